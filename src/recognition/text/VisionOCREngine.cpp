#include "recognition/text/VisionOCREngine.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "recognition/text/TextObservations.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.ocr")

// A picture that makes a recogniser load its models and finds nothing.
QImage warmingPicture()
{
    QImage image(48, 24, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    for (int y = 9; y < 15; ++y)
        std::fill_n(image.scanLine(y) + 8, 32, uchar(0));
    return image;
}

OCROutcome read(TextRecogniser& recogniser, const QImage& image, const TextRecogniser::Request& request)
{
    if (request.stop.stop_requested())
        return std::unexpected(
            RecognitionFailure{"The recognition was cancelled.", RecognitionFailure::Reason::cancelled});
    const auto observations = recogniser.recognise(image, request);
    if (!observations)
        return std::unexpected(observations.error());
    return TextObservations::result(*observations, image.size());
}

QCoro::Task<> logFailure(QCoro::Task<OCROutcome> reading)
{
    const OCROutcome outcome = co_await reading;
    if (!outcome && outcome.error().reason != RecognitionFailure::Reason::cancelled)
        qCWarning(log, "Loading the text recogniser failed: %s", qUtf8Printable(outcome.error().message));
}

} // namespace

VisionOCREngine::VisionOCREngine(MainLoop& loop, Workers& workers, std::unique_ptr<TextRecogniser> recogniser,
                                 std::function<QStringList()> languages)
    : m_loop(loop),
      m_workers(workers),
      m_recogniser(std::move(recogniser)),
      m_languages(std::move(languages)),
      m_scope(loop, workers)
{
}

VisionOCREngine::~VisionOCREngine()
{
    m_loop.cancel(m_rest);
    m_end.request_stop();
}

void VisionOCREngine::installedLanguages(Reply<QStringList> reply)
{
    replyFromWorker<QStringList>(
        m_loop, m_workers, Lane::visionOCR,
        [recogniser = m_recogniser]() noexcept { return recogniser->installedLanguages(); }, std::move(reply));
}

void VisionOCREngine::modelsChanged(Reply<QDateTime> reply)
{
    restLater();
    replyFromWorker<QDateTime>(
        m_loop, m_workers, Lane::visionOCR, QualityOfService::background,
        [recogniser = m_recogniser, languages = m_languages()]() noexcept {
            return recogniser->modelsChanged(languages);
        },
        std::move(reply));
}

void VisionOCREngine::prewarm()
{
    Scope::start(logFailure(recognize(warmingPicture(), QualityOfService::utility, true, m_end.get_token())),
                 "loading the text recogniser");
}

QCoro::Task<OCROutcome> VisionOCREngine::recognize(QImage image, QualityOfService qos, bool languageCorrection,
                                                   std::stop_token stop, std::function<void(double)> progress)
{
    const bool mayHurry = qos >= QualityOfService::userInitiated;
    if (mayHurry)
        makeWay();
    for (;;) {
        if (!mayHurry && isKnownToMiss())
            co_return std::unexpected(*m_missing);
        const std::stop_token way = mayHurry ? std::stop_token() : m_way.get_token();
        OCROutcome outcome = co_await attempt(image, qos, languageCorrection, {stop, way}, progress);
        note(outcome);
        if (outcome || stop.stop_requested() || !way.stop_requested())
            co_return outcome;
    }
}

QCoro::Task<OCROutcome> VisionOCREngine::attempt(QImage image, QualityOfService qos, bool languageCorrection,
                                                 std::array<std::stop_token, 2> stops,
                                                 std::function<void(double)> progress)
{
    restLater();
    std::stop_source ended;
    const auto end = [ended]() mutable { ended.request_stop(); };
    const std::stop_callback byAsker(stops[0], end);
    const std::stop_callback byUrgent(stops[1], end);
    const std::stop_callback byEngine(m_end.get_token(), end);
    const TextRecogniser::Request request{.correctsLanguage = languageCorrection,
                                          .languages = m_languages(),
                                          .customWords = {"Kovrel"},
                                          .mayHurry = qos >= QualityOfService::userInitiated,
                                          .stop = ended.get_token(),
                                          .progress = std::move(progress)};
    const auto job =
        Guarded::orReason([recogniser = m_recogniser, image, request] { return read(*recogniser, image, request); });
    OCROutcome outcome = co_await m_scope.onWorker(Lane::visionOCR, qos, job);
    co_return outcome;
}

void VisionOCREngine::makeWay()
{
    m_way.request_stop();
    m_way = std::stop_source();
}

void VisionOCREngine::note(const OCROutcome& outcome)
{
    if (outcome) {
        m_missing.reset();
    } else if (outcome.error().reason == RecognitionFailure::Reason::notInstalled) {
        m_missing = outcome.error();
        m_missingSince = m_loop.now();
    }
}

bool VisionOCREngine::isKnownToMiss() const
{
    return m_missing && m_loop.now() - m_missingSince < missesFor;
}

void VisionOCREngine::restLater()
{
    m_loop.cancel(m_rest);
    m_rest = m_loop.after(restsAfter, [this] {
        m_workers.submit(Lane::visionOCR, QualityOfService::background,
                         [recogniser = m_recogniser] { recogniser->releaseMemory(); });
    });
}

} // namespace Kovrel
