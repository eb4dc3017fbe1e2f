#pragma once

#include "cards/CardViews.h"
#include "cards/PileMotion.h"
#include "cards/panels/CardPanel.h"
#include "platform/Displays.h"
#include "preferences/Preferences.h"

#include <QObject>

#include <map>

namespace Kovrel {

class QuickAccessController;

// The windows of all cards, one for each, and their ways. At rest nothing wakes up but the rings. Main thread.
class CardPanels : public QObject, public CardViews {
    Q_OBJECT

public:
    // All of it outlives them.
    struct Services {
        MainLoop& loop;
        const Preferences& preferences;
        Displays& displays;
        PanelShapes& shapes;
    };

    // Opens a card's menu at a point of the toolkit.
    using OpenMenu = std::function<void(QUuid, QPoint)>;

    explicit CardPanels(Services services);
    ~CardPanels() override;

    // Whom it tells what is done to cards. Before any is shown.
    void setController(QuickAccessController& controller) { m_controller = &controller; }

    // Without one cards have no menu.
    void setMenu(OpenMenu openMenu) { m_openMenu = std::move(openMenu); }

    void show(const std::vector<CardLook>& cards) override;
    void expectCard(std::optional<quint32> displayID) override;
    bool setHidden(bool isHidden) override;

    // Null for none.
    CardPanel* panel(QUuid card) const;

Q_SIGNALS:
    void linkWanted(const QUrl& url);
    void textWanted(const QString& text);

private:
    // A window and where it was put.
    struct Shown {
        CardPanel* panel = nullptr;
        PileMotion::Pose pose;
        QSizeF size; // points
        bool isLeaving = false;
    };

    void showCard(const CardLook& look, const Display& display);
    CardPanel* makePanel(const Display& display) const;
    CardPanel* takePanel(const Display& display);
    CardPanel::Style style(const Display& display) const;
    void listen(CardPanel* panel, QUuid card);
    void leave(QUuid card);
    void close(QUuid card);
    void put(QUuid card, Shown& shown);
    void moveAll();
    void closeArrived();
    void turnRings();
    void keepRingsTurning();
    void slide(QUuid card, double distance);
    void letGo(QUuid card, double distance);
    void dragOut(QUuid card);
    void openMenu(QUuid card, QPoint position);
    void openCode(QUuid card, QPoint position);
    PileMotion::Pose home(const CardLook& look, const Display& display) const;
    double outwards(double points, const Display& display) const;

    Services m_services;
    QuickAccessController* m_controller = nullptr;
    OpenMenu m_openMenu;
    std::map<QUuid, Shown> m_shown;
    std::unique_ptr<CardPanel> m_spare; // for the card that comes next
    PileMotion m_motion;
    MainLoop::TimerID m_rings = 0;
    bool m_isHidden = false;
};

} // namespace Kovrel
