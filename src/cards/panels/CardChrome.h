#pragma once

#include "cards/CardLook.h"
#include "cards/CardQuickAction.h"

#include <QWidget>

#include <vector>

namespace Kovrel {

class CardButton;

// What shows on a card's picture while somebody looks: its buttons, on a shade. Main thread.
class CardChrome : public QWidget {
    Q_OBJECT

public:
    struct Offer {
        std::vector<CardQuickAction> actions; // in the bar, in reading order
        bool hasMenu = false;

        bool operator==(const Offer&) const = default;
    };

    CardChrome(const Offer& offer, QWidget* parent);

    void setLook(const CardLook& look);

    // Corners of the shade, and its widget's place.
    void setPlace(const QRect& place, double radius);

Q_SIGNALS:
    void performed(CardQuickAction action);
    void freezeWanted();
    void menuWanted(QPoint globalPosition);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CardButton* addButton(CardQuickAction action, double size);
    void addMenuButton();
    void arrange();
    void put(CardButton* button, QPoint place);

    double m_radius = 0;
    CardButton* m_close;
    CardButton* m_freeze;
    CardButton* m_save = nullptr;
    std::vector<CardButton*> m_bar;
};

} // namespace Kovrel
