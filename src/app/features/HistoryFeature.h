#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "history/CaptureHistoryStore.h"
#include "history/HistoryDragFiles.h"
#include "history/HistoryEdits.h"
#include "history/HistoryIndexer.h"
#include "historywindow/HistoryWindows.h"
#include "ports/Ports.h"

namespace Kovrel {

// The record of all captures, and the windows in which they are found again.
class HistoryFeature : public Feature {
public:
    HistoryFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() override;
    void start(const Launch& launch) override;
    void prewarmLater() override;
    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override;
    void prepareToEnd() override;

private:
    void runHistory(const Command& command, const Reply<CommandAnswer>& reply);
    void showRecent(const Command& command, const Reply<CommandAnswer>& reply);
    void showStrip();
    void makeWindows();
    QString captureKeys() const;
    void prepareDragFiles(const QList<QUuid>& ids);
    void rescue(CaptureResult result, std::shared_ptr<EncodedPng> png, const QString& reason);
    QCoro::Task<OCROutcome> recognize(QImage image, QualityOfService qos, bool corrected, std::stop_token stop);

    Foundation& m_foundation;
    Ports& m_ports;
    CaptureOCRStore m_ocr;
    CaptureHistoryStore m_store;
    HistoryIndexer m_indexer;
    HistoryDragFiles m_dragFiles;
    HistoryEdits m_edits;
    QHash<QUuid, QString> m_draggable;         // files that are ready
    std::unique_ptr<HistoryActions> m_actions; // these two only on a desktop
    std::unique_ptr<HistoryWindows> m_windows;
    Scope m_scope;
};

} // namespace Kovrel
