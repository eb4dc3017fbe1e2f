#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "history/CaptureHistoryStore.h"
#include "ports/Ports.h"

namespace Kovrel {

// The record of all captures.
class HistoryFeature : public Feature {
public:
    HistoryFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() const override;
    void start(const Launch& launch) override;
    void prewarmLater() override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;
    void prepareToEnd() override;

private:
    void runHistory(const Command& command, const Reply<CommandAnswer>& reply);
    void rescue(CaptureResult result, std::shared_ptr<EncodedPng> png, const QString& reason);
    QCoro::Task<OCROutcome> recognize(QImage image, QualityOfService qos, bool corrected, std::stop_token stop);

    Foundation& m_foundation;
    Ports& m_ports;
    CaptureOCRStore m_ocr;
    CaptureHistoryStore m_store;
    Scope m_scope;
};

} // namespace Kovrel
