#pragma once

#include "model/ToastContent.h"
#include "pins/PinGeometry.h"
#include "pins/PinQuickAction.h"
#include "pins/PinServices.h"
#include "platform/Lifeline.h"
#include "ports/CaptureChrome.h"
#include "ports/CapturePins.h"
#include "ports/CaptureSave.h"

#include <QCoreApplication>
#include <QPointer>

#include <map>

namespace Kovrel {

class PinPanel;

// The pins that there are, and what is done with them. What somebody has put on the screen stays there, in captures
// too; only its buttons step aside for them. Main thread.
class PinController : public CapturePins, public CaptureChrome {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::PinController)

public:
    explicit PinController(PinServices services);
    ~PinController() override;

    // From now on pins follow the pictures of the history.
    void start();

    // One that is pinned already comes to the front.
    void pin(CaptureResult result) override;

    bool setHiddenForCapture(bool isHidden) override;

    bool canPerform(PinQuickAction action) const;
    // Of a pin that has gone nothing is done.
    void perform(PinQuickAction action, QUuid id);

private:
    struct Pinned {
        CaptureResult result;
        QPointer<PinPanel> panel;
        bool isSaved = false;
    };

    void show(CaptureResult result, std::optional<quint32> displayID);
    void follow(PinPanel& panel, QUuid id);
    void clicked(PinGeometry::Button button, QUuid id);
    void showMenu(QPoint globalPosition, QUuid id);
    void pictureChanged(QUuid id);
    void edit(const CaptureResult& result);
    void copy(const CaptureResult& result);
    void save(const Pinned& pinned);
    void saveEnded(QUuid id, quint32 display, const SaveOutcome& outcome);
    void bringCard(const Pinned& pinned);
    std::optional<Pinned> take(QUuid id);
    void resample(QImage picture, QSize size, Reply<QImage> reply);

    PinServices m_services;
    std::map<QUuid, Pinned> m_pins;
    bool m_isChromeHidden = false;
    Subscription m_displayChanges;
    Subscription m_pictureChanges;
    Lifeline m_lifeline;
};

} // namespace Kovrel
