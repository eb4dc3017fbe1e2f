#include "recognition/CaptureOCRStore.h"

#include "platform/Guarded.h"
#include "platform/files/AtomicFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.ocr")

using Key = CaptureOCRStore::Key;
using Kind = CaptureOCRStore::Kind;

constexpr const char* name(Kind kind)
{
    return kind == Kind::base ? "base" : "edited";
}

QByteArray name(QUuid id)
{
    return id.toByteArray(QUuid::WithoutBraces).toUpper();
}

const char* suffix(bool corrected)
{
    return corrected ? "" : " raw";
}

QString fileName(const Key& key)
{
    return QString::fromLatin1(name(key.id)) + (key.kind == Kind::base ? "_ocr.json" : "_edited_ocr.json");
}

// --- On the worker lane

std::optional<OCRFile> readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? OCRFile::decoded(file.readAll()) : std::nullopt;
}

// Without a text that was read before models changed. The file is as old as its text.
std::optional<OCRFile> readCurrentFile(const QString& path, const QDateTime& modelsChanged)
{
    std::optional<OCRFile> file = readFile(path);
    if (file && modelsChanged.isValid() && QFileInfo(path).lastModified() < modelsChanged)
        file->text.reset();
    return file;
}

void setTime(const QString& path, const QDateTime& time)
{
    QFile file(path);
    if (time.isValid() && file.open(QIODevice::ReadWrite))
        file.setFileTime(time, QFileDevice::FileModificationTime);
}

struct Written {
    OCRFile file;
    std::optional<QString> error;
};

std::expected<Written, QString> changeFile(const QString& path, const std::optional<OCRFile>& remembered,
                                           const std::function<bool(OCRFile&)>& change)
{
    const std::optional<OCRFile> existing = readFile(path);
    const QDateTime time = QFileInfo(path).lastModified();
    Written written{existing ? *existing : remembered.value_or(OCRFile{}), {}};
    const bool hasNewText = change(written.file);
    if (const auto outcome = AtomicFile::write(path, written.file.encoded(), AtomicFile::Access::onlyOwner); !outcome)
        written.error = outcome.error().message;
    else if (existing && existing->text && !hasNewText)
        setTime(path, time);
    return written;
}

// A raw text never takes the place of a corrected one that found something. Whether it was put.
bool putText(OCRFile& file, const OCRFile::TextPart& part)
{
    const bool isBetter = file.text && file.text->corrected && !file.text->result.lines.empty();
    if (!part.corrected && isBetter)
        return false;
    file.text = part;
    return true;
}

} // namespace

// A recognition under way.
struct CaptureOCRStore::Run {
    using Outcome = std::optional<OCROutcome>; // none when an asker leaves, or whoever has the picture went

    int token = 0; // when it began
    int waiters = 0;
    QualityOfService qos = QualityOfService::background;
    std::stop_source stop; // of its latest recognition
    std::vector<Reply<Outcome>> askers;
    std::optional<Outcome> outcome; // once it has ended
};

CaptureOCRStore::CaptureOCRStore(MainLoop& loop, Workers& workers, QString directory, StatusOf status,
                                 Recognize recognize)
    : m_directory(std::move(directory)),
      m_status(std::move(status)),
      m_recognize(std::move(recognize)),
      m_scope(loop, workers)
{
}

CaptureOCRStore::~CaptureOCRStore()
{
    for (const auto& [read, run] : m_inFlight)
        run->stop.request_stop();
}

QStringList CaptureOCRStore::sidecarURLs(QUuid id, const QString& directory)
{
    return {directory + '/' + fileName({id, Kind::base}), directory + '/' + fileName({id, Kind::edited})};
}

QString CaptureOCRStore::path(const Key& key) const
{
    return m_directory + '/' + fileName(key);
}

int CaptureOCRStore::token(QUuid id) const
{
    const auto generation = m_generation.find(id.toRfc4122());
    return generation == m_generation.end() ? 0 : generation->second;
}

bool CaptureOCRStore::mayKeep(const Key& key, int token) const
{
    return token == this->token(key.id) && m_status(key.id) == Status::recorded;
}

void CaptureOCRStore::setModelsChanged(const QDateTime& time)
{
    m_modelsChanged = time;
    m_memo.clear();
    m_memoOrder.clear();
}

// --- Asking

QCoro::Task<OCROutcome> CaptureOCRStore::text(Key key, QualityOfService qos, bool corrected, Pixels pixels,
                                              std::stop_token stop)
{
    const std::optional<OCRFile> file = co_await stored(key, qos);
    if (stop.stop_requested())
        throw Cancelled{};
    if (file && file->text && (file->text->corrected || !corrected))
        co_return file->textWithCodes();

    const Read read{key, corrected};
    std::shared_ptr<Run> run = m_inFlight[read];
    const bool isNew = !run;
    if (isNew)
        run = m_inFlight[read] = std::make_shared<Run>(Run{.token = token(key.id)});
    else
        qCInfo(log, "text %s %s: joining the read in flight", name(key.id).constData(), name(key.kind));
    const bool isSlow = run->qos < QualityOfService::userInitiated && qos > run->qos;
    if (isNew || isSlow)
        begin(read, run, qos, std::move(pixels));
    OCROutcome outcome = co_await join(read, run, stop);
    co_return withCodes(outcome, key, file);
}

// The codes may have been stored meanwhile.
OCROutcome CaptureOCRStore::withCodes(const OCROutcome& text, const Key& key, const std::optional<OCRFile>& file) const
{
    if (!text)
        return text;
    OCRFile whole = known(key).value_or(file.value_or(OCRFile()));
    whole.text = OCRFile::TextPart{.result = *text};
    return whole.textWithCodes();
}

std::optional<OCRFile> CaptureOCRStore::known(const Key& key) const
{
    for (const auto* files : {&m_memo, &m_pending})
        if (const auto place = files->find(key); place != files->end())
            return place->second;
    return std::nullopt;
}

QCoro::Task<std::optional<OCRFile>> CaptureOCRStore::stored(Key key, QualityOfService qos)
{
    if (const auto remembered = known(key))
        co_return remembered;
    const int token = this->token(key.id);
    const auto read = Guarded::orElse(
        [path = path(key), modelsChanged = m_modelsChanged] { return readCurrentFile(path, modelsChanged); },
        std::nullopt);
    std::optional<OCRFile> file = co_await m_scope.onWorker(Lane::ocrFiles, read);
    if (const auto remembered = known(key))
        co_return remembered;
    if (token != this->token(key.id))
        co_return std::nullopt;
    if (file)
        remember(key, *file, qos);
    co_return file;
}

QCoro::Task<OCROutcome> CaptureOCRStore::join(Read read, std::shared_ptr<Run> run, std::stop_token stop)
{
    ++run->waiters;
    std::optional<std::stop_callback<std::function<void()>>> leaving;
    const Run::Outcome outcome = co_await m_scope.reply<Run::Outcome>([&](Reply<Run::Outcome> done) {
        if (run->outcome)
            return done(*run->outcome);
        run->askers.push_back(done);
        leaving.emplace(stop, [done] { done(std::nullopt); });
    });
    if (stop.stop_requested())
        waiterLeft(read, run);
    if (!outcome)
        throw Cancelled{};
    co_return *outcome;
}

// Nobody waits any more: a raw read is not worth its time then, a corrected one is for later, unless it is begun
// again when there is time.
void CaptureOCRStore::waiterLeft(const Read& read, const std::shared_ptr<Run>& run)
{
    const bool isForLater = read.corrected && run->qos > QualityOfService::background;
    if (--run->waiters > 0 || isForLater || run->outcome)
        return;
    qCInfo(log, "text %s %s: %s read cancelled with its last asker", name(read.key.id).constData(), name(read.key.kind),
           read.corrected ? "background" : "raw");
    endOf(read, run);
    run->stop.request_stop();
}

// Later requests begin a run of their own.
void CaptureOCRStore::endOf(const Read& read, const std::shared_ptr<Run>& run)
{
    if (const auto place = m_inFlight.find(read); place != m_inFlight.end() && place->second == run)
        m_inFlight.erase(place);
}

// --- Reading

// In the place of a slower recognition, if there is one.
void CaptureOCRStore::begin(const Read& read, const std::shared_ptr<Run>& run, QualityOfService qos, Pixels pixels)
{
    run->stop.request_stop();
    run->stop = std::stop_source();
    run->qos = qos;
    Scope::start(perform(read, run, qos, std::move(pixels)), "keeping recognised text");
}

QCoro::Task<> CaptureOCRStore::perform(Read read, std::shared_ptr<Run> run, QualityOfService qos, Pixels pixels)
{
    const std::stop_token stop = run->stop.get_token();
    Run::Outcome outcome;
    try {
        outcome = co_await recognized(read, run->token, qos, std::move(pixels), stop);
    } catch (const Cancelled&) {
    } catch (...) {
        outcome = OCROutcome(std::unexpected(RecognitionFailure{Guarded::reason()}));
    }
    if (run->outcome || (run->stop.get_token() != stop && !(outcome && *outcome)))
        co_return; // a more urgent one has answered, or is about to
    endOf(read, run);
    run->outcome = outcome;
    for (const auto& asker : std::exchange(run->askers, {}))
        asker(outcome);
}

QCoro::Task<OCROutcome> CaptureOCRStore::recognized(Read read, int token, QualityOfService qos, Pixels pixels,
                                                    std::stop_token stop)
{
    const QImage image = co_await m_scope.join(pixels());
    if (image.isNull())
        co_return std::unexpected(
            RecognitionFailure{"There is no picture to read.", RecognitionFailure::Reason::noPicture});
    OCROutcome result = co_await m_scope.join(m_recognize(image, qos, read.corrected, stop));
    if (!result)
        co_return result;
    const Key& key = read.key;
    const bool isKept = mayKeep(key, token);
    qCInfo(log, "text %s %s: read %ld lines at %ldx%ld%s, %s", name(key.id).constData(), name(key.kind),
           long(result->lines.size()), long(image.width()), long(image.height()), suffix(read.corrected),
           isKept ? "kept" : "not kept");
    if (!isKept)
        co_return result;
    co_await keepText({image.size(), read.corrected, *result}, key, token, qos);
    co_return result;
}

QCoro::Task<> CaptureOCRStore::keepText(OCRFile::TextPart part, Key key, int token, QualityOfService qos)
{
    const std::optional<QString> error =
        co_await keep(key, token, qos, [part](OCRFile& file) { return putText(file, part); });
    if (error)
        qCWarning(log, "text %s %s: not written: %s", name(key.id).constData(), name(key.kind), qUtf8Printable(*error));
    else
        qCInfo(log, "text %s %s: kept, %ld lines%s", name(key.id).constData(), name(key.kind),
               long(part.result.lines.size()), suffix(part.corrected));
}

// Changes the file of an image, and what is remembered of it. The answer is why it could not be written.
QCoro::Task<std::optional<QString>> CaptureOCRStore::keep(Key key, int token, QualityOfService qos, Change change)
{
    const auto write =
        Guarded::orReason([path = path(key), known = known(key), change] { return changeFile(path, known, change); });
    const auto written = co_await m_scope.onWorker(Lane::ocrFiles, write);
    if (!written)
        co_return written.error();
    if (token == this->token(key.id))
        remember(key, written->file, qos);
    co_return written->error;
}

// --- Codes

QCoro::Task<std::optional<OCRFile::QRPart>> CaptureOCRStore::codes(Key key)
{
    const std::optional<OCRFile> file = co_await stored(key, QualityOfService::userInitiated);
    co_return file ? file->qr : std::nullopt;
}

void CaptureOCRStore::storeCodes(std::vector<QRCode> codes, bool complete, Key key, int token)
{
    if (mayKeep(key, token))
        Scope::start(keepCodes(std::move(codes), complete, key, token), "keeping codes");
}

QCoro::Task<> CaptureOCRStore::keepCodes(std::vector<QRCode> codes, bool complete, Key key, int token)
{
    const OCRFile::QRPart part{codes, complete};
    const std::optional<QString> error = co_await keep(key, token, QualityOfService::background, [part](OCRFile& file) {
        file.qr = part;
        return false;
    });
    if (error)
        qCWarning(log, "codes %s %s: not written: %s", name(key.id).constData(), name(key.kind),
                  qUtf8Printable(*error));
    else
        qCInfo(log, "codes %s %s: kept, %ld codes", name(key.id).constData(), name(key.kind), long(codes.size()));
}

// --- What was read elsewhere

void CaptureOCRStore::storeReading(OCRResult text, std::vector<QRCode> codes, QSize pixels, Key key)
{
    const OCRFile reading{.text = OCRFile::TextPart{pixels, true, std::move(text)},
                          .qr = OCRFile::QRPart{std::move(codes), true}};
    if (m_status(key.id) == Status::pending)
        m_pending.insert_or_assign(key, reading);
    else if (mayKeep(key, token(key.id)))
        Scope::start(keepReading(reading, key, token(key.id)), "keeping a reading");
}

void CaptureOCRStore::recorded(QUuid id)
{
    for (const Kind kind : {Kind::base, Kind::edited})
        if (const auto reading = m_pending.extract({id, kind}))
            Scope::start(keepReading(reading.mapped(), reading.key(), token(id)), "keeping a reading");
}

QCoro::Task<> CaptureOCRStore::keepReading(OCRFile reading, Key key, int token)
{
    remember(key, reading, QualityOfService::userInitiated);
    const auto put = [reading](OCRFile& file) {
        file.qr = reading.qr;
        return putText(file, *reading.text);
    };
    const std::optional<QString> error = co_await keep(key, token, QualityOfService::utility, put);
    if (error)
        qCWarning(log, "text %s %s: not written: %s", name(key.id).constData(), name(key.kind), qUtf8Printable(*error));
}

// --- Images that change and go

void CaptureOCRStore::invalidate(QUuid id, std::set<Kind> kinds)
{
    ++m_generation[id.toRfc4122()];
    std::vector<Key> keys;
    for (const Kind kind : kinds) {
        const Key key{id, kind};
        keys.push_back(key);
        drop(key);
        m_removing.insert(key);
    }
    Scope::start(removeFiles(std::move(keys)), "removing recognised text");
}

QCoro::Task<> CaptureOCRStore::removeFiles(std::vector<Key> keys)
{
    QStringList paths;
    for (const Key& key : keys)
        paths << path(key);
    const auto remove = [paths] {
        for (const QString& path : paths)
            QFile::remove(path);
    };
    co_await m_scope.onWorker(Lane::ocrFiles, Guarded::job(remove, Guarded::logReason));
    for (const Key& key : keys)
        m_removing.erase(m_removing.find(key));
}

void CaptureOCRStore::forget(QUuid id)
{
    invalidate(id, {Kind::base, Kind::edited});
}

// Who is still reading the old image gets its text; who asks from now on does not.
void CaptureOCRStore::drop(const Key& key)
{
    m_memo.erase(key);
    m_pending.erase(key);
    std::erase(m_memoOrder, key);
    for (const bool corrected : {false, true})
        m_inFlight.erase({key, corrected});
}

void CaptureOCRStore::remember(const Key& key, OCRFile file, QualityOfService qos)
{
    const bool isForNobody = qos == QualityOfService::background && !m_memo.contains(key);
    if (m_removing.contains(key) || isForNobody)
        return;
    std::erase(m_memoOrder, key);
    m_memoOrder.push_back(key);
    while (m_memoOrder.size() > memoSize) {
        m_memo.erase(m_memoOrder.front());
        m_memoOrder.erase(m_memoOrder.begin());
    }
    m_memo.insert_or_assign(key, std::move(file));
}

} // namespace Kovrel
