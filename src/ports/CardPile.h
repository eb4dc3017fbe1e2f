#pragma once

#include "model/CaptureResult.h"
#include "ports/CaptureChrome.h"
#include "ports/CaptureHistory.h"
#include "ports/CaptureSave.h"
#include "ports/CountdownHold.h"

#include <memory>

namespace Kovrel {

// The cards of recent captures in a corner of a screen. Main thread.
class CardPile : public CaptureChrome {
public:
    struct Card {
        CaptureResult result;
        std::optional<QString> savedPath = {};
        bool didCopyToClipboard = false;
        std::optional<quint32> showOn = {};           // the display for the card, which need not be the captured one
        std::optional<CaptureResult> baseResult = {}; // a reopened capture before its marks
    };

    // False while cards can't be shown.
    virtual bool canPresent() const = 0;
    // Pixels are coming: where the card will show.
    virtual void prepareForIncomingCapture(std::optional<quint32> nearDisplay) = 0;
    virtual void settleAfterAbandonedCapture() = 0;
    virtual void present(Card card) = 0;
    // The card shows how its save ended.
    virtual void attachCaptureSave(std::shared_ptr<CaptureSave> save, QUuid cardID) = 0;
    // Once the history has the pixels the card lets them go.
    virtual void attachRecording(std::shared_ptr<CaptureRecording> recording, QUuid cardID) = 0;

    virtual bool hasCards() const = 0;
    // Out of the way until the next capture, or until this takes it back.
    virtual void setTemporarilyHidden(bool isHidden) = 0;
    virtual bool isTemporarilyHidden() const = 0;

    // No card closes by itself while there is a reason for it.
    virtual void holdCountdowns(CountdownHold hold, bool isHeld) = 0;
};

} // namespace Kovrel
