#include "capture/RecognitionTextReader.h"

#include "recognition/RecognitionError.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.ocr")

} // namespace

RecognitionTextReader::RecognitionTextReader(MainLoop& loop, Workers& workers, VisionOCREngine& engine,
                                             QRCodeDetector& codes)
    : m_engine(engine), m_codes(codes), m_scope(loop, workers)
{
}

void RecognitionTextReader::expectReading()
{
    m_engine.prewarm();
    m_codes.prewarm();
}

void RecognitionTextReader::read(QImage image, double, Reply<Reading> reply)
{
    Scope::start(readBoth(std::move(image), std::move(reply)), "reading a capture");
}

QCoro::Task<> RecognitionTextReader::readBoth(QImage image, Reply<Reading> reply)
{
    Reading reading;
    reading.text = co_await text(image);
    reading.codePayloads = co_await payloads(image);
    reply(reading);
}

QCoro::Task<QString> RecognitionTextReader::text(QImage image)
{
    try {
        const OCRResult result =
            co_await m_scope.join(m_engine.recognize(image, QualityOfService::userInteractive, true, {}));
        co_return result.fullText;
    } catch (const RecognitionError& error) {
        qCWarning(log, "%s", error.what());
    }
    co_return QString();
}

QCoro::Task<QStringList> RecognitionTextReader::payloads(QImage image)
{
    const QRCodeDetector::Outcome codes = co_await m_scope.join(m_codes.detectCodes(image));
    if (!codes)
        qCWarning(log, "%s", qUtf8Printable(codes.error()));
    QStringList payloads;
    for (const QRCode& code : codes.value_or(std::vector<QRCode>()))
        payloads << code.payload;
    co_return payloads;
}

} // namespace Kovrel
