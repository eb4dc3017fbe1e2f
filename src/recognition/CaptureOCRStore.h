#pragma once

#include "model/OCRResult.h"
#include "model/QRCode.h"
#include "platform/Scope.h"
#include "recognition/OCRFile.h"

#include <QDateTime>
#include <QUuid>

#include <map>
#include <set>
#include <stop_token>

namespace Kovrel {

// The text and the codes of each capture, read once: kept in memory and, for recorded captures, in a file beside them.
// Main thread; files are read and written on a worker lane.
class CaptureOCRStore {
public:
    enum class Kind { base, edited }; // the capture as taken, the flattened edited image

    struct Key {
        QUuid id; // of the capture
        Kind kind = Kind::base;

        std::weak_ordering operator<=>(const Key& other) const
        {
            return std::pair(id.toRfc4122(), kind) <=> std::pair(other.id.toRfc4122(), other.kind);
        }

        bool operator==(const Key&) const = default;
    };

    // Whether a capture is in the history. Only recorded ones get files.
    enum class Status { none, pending, recorded };

    using StatusOf = std::function<Status(QUuid)>;
    using Recognize = std::function<QCoro::Task<OCROutcome>(QImage, QualityOfService, bool corrected, std::stop_token)>;
    // A null image: there is none.
    using Pixels = std::function<QCoro::Task<QImage>()>;

    // The most keys that are kept in memory.
    static constexpr size_t memoSize = 12;

    CaptureOCRStore(MainLoop& loop, Workers& workers, QString directory, StatusOf status, Recognize recognize);
    ~CaptureOCRStore();

    // Since when text is read as it is now: what was read before is read again once it is asked for.
    void setModelsChanged(const QDateTime& time);

    // The text of a capture, with a line for each of its codes. It is recognised only when neither memory nor file has
    // it: a corrected text answers both kinds of request, a raw one only raw ones, and none one that is older than the
    // models. Requests at the same time share one recognition, which begins anew where it is slow and a more urgent
    // one comes. `stop` is how an asker leaves, and throws Cancelled; with its last asker a recognition ends, but for
    // a corrected one that somebody waited for. What nobody waits for (background) is not kept in memory.
    QCoro::Task<OCROutcome> text(Key key, QualityOfService qos, bool corrected, Pixels pixels,
                                 std::stop_token stop = {});

    // The codes that were stored, and whether the whole image was looked at; none when nobody looked yet.
    QCoro::Task<std::optional<OCRFile::QRPart>> codes(Key key);
    // Keeps codes unless the image has changed since `token` was read. `complete`: the whole image was looked at.
    void storeCodes(std::vector<QRCode> codes, bool complete, Key key, int token);
    int token(QUuid id) const;

    // Keeps what somebody has read elsewhere, with language correction, and the codes of the whole image, so that it is
    // not read again. Of a pending capture it is kept in memory until that is recorded.
    void storeReading(OCRResult text, std::vector<QRCode> codes, QSize pixels, Key key);
    // A pending capture has been recorded.
    void recorded(QUuid id);

    // An image of these kinds was replaced.
    void invalidate(QUuid id, std::set<Kind> kinds);
    // The capture was deleted. Its files are removed behind every write that was begun.
    void forget(QUuid id);

    // Where the files of both kinds lie, `base` first.
    static QStringList sidecarURLs(QUuid id, const QString& directory);

private:
    struct Read {
        Key key;
        bool corrected = false;
        auto operator<=>(const Read&) const = default;
    };

    struct Run;

    // Whether the file has a new text by it.
    using Change = std::function<bool(OCRFile&)>;

    // Not what an invalidation has overtaken.
    QCoro::Task<std::optional<OCRFile>> stored(Key key, QualityOfService qos);
    QCoro::Task<OCROutcome> join(Read read, std::shared_ptr<Run> run, std::stop_token stop);
    void begin(const Read& read, const std::shared_ptr<Run>& run, QualityOfService qos, Pixels pixels);
    QCoro::Task<> perform(Read read, std::shared_ptr<Run> run, QualityOfService qos, Pixels pixels);
    QCoro::Task<OCROutcome> recognized(Read read, int token, QualityOfService qos, Pixels pixels, std::stop_token stop);
    QCoro::Task<std::optional<QString>> keep(Key key, int token, QualityOfService qos, Change change);
    QCoro::Task<> keepText(OCRFile::TextPart part, Key key, int token, QualityOfService qos);
    QCoro::Task<> keepCodes(std::vector<QRCode> codes, bool complete, Key key, int token);
    QCoro::Task<> keepReading(OCRFile reading, Key key, int token);
    std::optional<OCRFile> known(const Key& key) const;
    QCoro::Task<> removeFiles(std::vector<Key> keys);
    void waiterLeft(const Read& read, const std::shared_ptr<Run>& run);
    void endOf(const Read& read, const std::shared_ptr<Run>& run);
    bool mayKeep(const Key& key, int token) const;
    void remember(const Key& key, OCRFile file, QualityOfService qos);
    OCROutcome withCodes(const OCROutcome& text, const Key& key, const std::optional<OCRFile>& file) const;
    void drop(const Key& key);
    QString path(const Key& key) const;

    QString m_directory;
    StatusOf m_status;
    Recognize m_recognize;
    QDateTime m_modelsChanged;              // invalid until it is known
    std::map<QByteArray, int> m_generation; // by the id's bytes
    std::map<Read, std::shared_ptr<Run>> m_inFlight;
    std::multiset<Key> m_removing;
    std::map<Key, OCRFile> m_memo;
    std::map<Key, OCRFile> m_pending; // readings of captures that are not recorded yet
    std::vector<Key> m_memoOrder;     // least recently remembered first
    Scope m_scope;
};

} // namespace Kovrel
