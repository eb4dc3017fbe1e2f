#pragma once

#include "capture/CaptureRun.h"
#include "capture/CaptureServices.h"
#include "capture/pixels/WindowBackdrop.h"
#include "platform/Observers.h"
#include "platform/Scope.h"
#include "ports/CaptureHistory.h"
#include "ports/CardPile.h"
#include "saving/EncodedPng.h"

#include <QCoreApplication>

#include <memory>

namespace Kovrel {

// Turns pixels in hand into a finished capture: the record, the notification, file, clipboard, history, card, editor.
// Main thread.
class CaptureFinisher {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CaptureFinisher)

public:
    struct Pixels {
        QImage image;
        CaptureMode mode = CaptureMode::area;
        std::optional<quint32> displayID;
        std::optional<quint32> cardDisplayID; // where the card is to be shown, if not there
        double pixelScale = 2.0;
        std::optional<SourceApp> sourceApp;
    };

    // The window path's composition that is still being made.
    using PendingComposition = std::optional<Wait<ComposedCapture>>;

    explicit CaptureFinisher(CaptureServices& services);

    // Called with each finished capture, pixels included, before anything else is done with it.
    Subscription onCaptureFinished(std::function<void(const CaptureResult&)> observer);

    QCoro::Task<> finish(Pixels pixels, std::shared_ptr<CaptureRun> run, PendingComposition pendingFully = {});

    // A text capture keeps its picture in the history, and nothing else.
    CaptureResult keepInHistory(Pixels pixels);

    // The most recent save, for whoever must wait for it.
    std::shared_ptr<CaptureSave> lastCaptureSave() const { return m_lastCaptureSave; }

private:
    struct Delivery;

    CaptureResult makeResult(Pixels pixels) const;
    Delivery planDelivery(const CaptureOptions& options) const;
    std::shared_ptr<CaptureSave> startSave(const CaptureResult& result, const CaptureOptions& options,
                                           std::shared_ptr<EncodedPng> png);
    bool isRecording() const;
    std::shared_ptr<CaptureRecording> record(const CaptureResult& result, std::shared_ptr<CaptureSave> save,
                                             std::shared_ptr<EncodedPng> png);
    void presentCard(const CardPile::Card& card, std::shared_ptr<CaptureSave> save,
                     std::shared_ptr<CaptureRecording> recording);
    void showElsewhere(const Delivery& plan, const CaptureResult& result);
    QCoro::Task<> reportWhenOnDisk(CaptureOutcome outcome, std::shared_ptr<CaptureRun> run,
                                   std::shared_ptr<CaptureSave> save, std::shared_ptr<CaptureRecording> recording);

    CaptureServices& m_services;
    Observers<const CaptureResult&> m_observers;
    std::shared_ptr<CaptureSave> m_lastCaptureSave;
    Scope m_scope;
};

} // namespace Kovrel
