#pragma once

#include "history/search/HistoryTextIndex.h"
#include "recognition/CaptureOCRStore.h"

#include <QImage>
#include <QSet>

#include <stop_token>

namespace Kovrel {

// Reads the text of captures that nobody has read, one at a time, while nobody needs the machine; behind them those
// that were read when less could be read. Main thread.
class HistoryBackfill {
public:
    // Where the history's captures are found.
    struct Captures {
        std::function<std::vector<QUuid>()> ids; // in the order in which they are read
        // The picture that a capture has now, and its pixels: a null image where it can't be read.
        std::function<QCoro::Task<CaptureOCRStore::Kind>(QUuid)> kind;
        std::function<QCoro::Task<QImage>(CaptureOCRStore::Key)> pixels;
        // The codes in a picture; nothing where nobody can look for them.
        std::function<QCoro::Task<std::optional<std::vector<QRCode>>>(QImage)> codes;
        // Those whose text may be read better now; each is told once.
        std::function<QCoro::Task<std::vector<QUuid>>()> outdated;
    };

    // Nothing was captured for so long: the machine is idle.
    static constexpr MainLoop::Milliseconds idleTime{5000};

    HistoryBackfill(MainLoop& loop, Workers& workers, HistoryTextIndex& index, CaptureOCRStore& texts,
                    Captures captures);
    ~HistoryBackfill();
    HistoryBackfill(const HistoryBackfill&) = delete;
    HistoryBackfill& operator=(const HistoryBackfill&) = delete;

    // Stops at once, in the middle of a picture too, which is read again later.
    void suspend();
    // Goes on once the machine is idle, and the index loaded.
    void schedule();

private:
    void begin();
    QCoro::Task<> run(std::stop_token stop);
    QCoro::Task<bool> readAll(std::stop_token stop);
    QCoro::Task<> findOutdated();
    QCoro::Task<bool> read(QUuid id, std::stop_token stop);
    QCoro::Task<QImage> pixels(CaptureOCRStore::Key key, std::shared_ptr<QImage> seen);
    QCoro::Task<OCRResult> withCodes(OCRResult text, CaptureOCRStore::Key key, std::shared_ptr<QImage> seen);
    std::optional<QUuid> next() const;

    MainLoop& m_loop;
    HistoryTextIndex& m_index;
    CaptureOCRStore& m_texts;
    Captures m_captures;
    QSet<QUuid> m_failed; // not tried again before the next start
    QSet<QUuid> m_outdated;
    MainLoop::TimerID m_timer = 0;
    bool m_isRunning = false;
    std::stop_source m_stop;
    Scope m_scope;
};

} // namespace Kovrel
