#include "reading/RecognitionTextReader.h"

#include <QLoggingCategory>

#include <algorithm>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.ocr")

} // namespace

RecognitionTextReader::RecognitionTextReader(MainLoop& loop, Workers& workers, VisionOCREngine& engine,
                                             QRCodeDetector& codes, LanguagesChosen languagesChosen)
    : m_engine(engine), m_codes(codes), m_languagesChosen(std::move(languagesChosen)), m_scope(loop, workers)
{
}

void RecognitionTextReader::expectReading()
{
    m_engine.prewarm();
    m_codes.prewarm();
}

void RecognitionTextReader::read(QImage image, double, std::stop_token stop, Reply<Reading> reply)
{
    Scope::start(readBoth(std::move(image), std::move(stop), std::move(reply)), "reading a capture");
}

void RecognitionTextReader::readText(QImage image, QualityOfService qos, bool corrected, std::stop_token stop,
                                     Reply<OCROutcome> reply)
{
    Scope::start(recognize(std::move(image), qos, corrected, std::move(stop), std::move(reply)), "reading text");
}

// Without models nothing can be read any better.
void RecognitionTextReader::modelsChanged(Reply<QDateTime> reply)
{
    m_engine.modelsChanged([chosen = m_languagesChosen(), reply = std::move(reply)](const QDateTime& installed) {
        reply(installed.isValid() && chosen.isValid() ? std::max(installed, chosen) : installed);
    });
}

QCoro::Task<> RecognitionTextReader::recognize(QImage image, QualityOfService qos, bool corrected, std::stop_token stop,
                                               Reply<OCROutcome> reply)
{
    OCROutcome text = co_await m_scope.join(m_engine.recognize(std::move(image), qos, corrected, std::move(stop)));
    reply(std::move(text));
}

void RecognitionTextReader::readCodes(QImage image, Reply<std::optional<std::vector<QRCode>>> reply)
{
    Scope::start(detect(std::move(image), std::move(reply)), "looking for codes");
}

QCoro::Task<> RecognitionTextReader::detect(QImage image, Reply<std::optional<std::vector<QRCode>>> reply)
{
    const QRCodeDetector::Outcome codes =
        co_await m_scope.join(m_codes.detect(std::move(image), true, true, std::nullopt, Lane::utility));
    reply(codes ? std::optional(*codes) : std::nullopt);
}

// Both at the same time: they have lanes of their own.
QCoro::Task<> RecognitionTextReader::readBoth(QImage image, std::stop_token stop, Reply<Reading> reply)
{
    Reading reading;
    auto codesRead = m_scope.join(m_codes.detectCodes(image));
    OCROutcome text = co_await m_scope.join(m_engine.recognize(image, QualityOfService::userInteractive, true, stop));
    if (text)
        reading.text = *std::move(text);
    else
        reading.failure = text.error().message;
    const QRCodeDetector::Outcome codes = co_await codesRead;
    if (!codes && reading.failure.isEmpty())
        reading.failure = codes.error();
    reading.codes = codes.value_or(std::vector<QRCode>());
    if (!reading.failure.isEmpty() && !stop.stop_requested())
        qCWarning(log, "%s", qUtf8Printable(reading.failure));
    reply(reading);
}

} // namespace Kovrel
