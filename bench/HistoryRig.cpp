#include "bench/HistoryRig.h"

#include "history/files/FittedPicture.h"
#include "preferences/Settings.h"

#include <QApplication>
#include <QElapsedTimer>

namespace Kovrel::Bench {

namespace {

QCoro::Task<OCROutcome> readNothing(QImage, QualityOfService, bool, std::stop_token)
{
    co_return OCRResult();
}

} // namespace

HistoryRig::HistoryRig(int count, const std::vector<QImage>& pictures)
    : m_state(HistorySample::make(m_files, count, pictures)),
      m_ocr(
          m_loop, m_workers, m_files.folder(), [](QUuid) { return CaptureOCRStore::Status::recorded; }, readNothing),
      m_store({m_loop, m_workers, m_preferences, m_ocr, m_files.folder()}),
      m_index(m_loop, m_workers),
      m_actions({m_loop, m_workers, m_preferences, m_store, m_ports, m_desktop.filePanel(), m_desktop.fileManager()})
{
    Preferences::registerDefaults(m_defaults);
    m_preferences.set(Settings::historyRetentionCount, std::max(count, 1));
    m_store.start();
    waitUntil([this] { return m_store.isLoaded(); });
}

HistoryRig::~HistoryRig()
{
    m_workers.finish(std::chrono::seconds(10));
}

HistoryViewServices HistoryRig::services()
{
    return {
        .loop = m_loop,
        .workers = m_workers,
        .preferences = m_preferences,
        .store = m_store,
        .index = m_index,
        .actions = m_actions,
        .readThumbnail = [files = m_files](QUuid id,
                                           QSize bounds) { return FittedPicture::thumbnail(files, id, bounds); },
        .readPicture = [files = m_files](QUuid id, QSize bounds) { return FittedPicture::full(files, id, bounds); },
        .dragFile = [](QUuid) { return QString(); },
        .prepareDragFiles = [](const QList<QUuid>&) {},
        .captureKeys = [] { return QString("Ctrl+Alt+4"); },
    };
}

bool HistoryRig::waitUntil(const std::function<bool()>& isTrue, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!isTrue() && timer.elapsed() < milliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    return isTrue();
}

} // namespace Kovrel::Bench
