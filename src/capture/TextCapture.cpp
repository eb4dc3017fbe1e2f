#include "capture/TextCapture.h"

#include "capture/QRToast.h"
#include "model/text/PrintableText.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureHistory.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"

namespace Kovrel {

namespace {

constexpr int previewLength = 80;
constexpr double failureDwell = 6; // seconds

QStringList payloads(const TextReader::Reading& reading)
{
    QStringList all;
    for (const QRCode& code : reading.codes)
        all << code.payload;
    return all;
}

// Codes stand behind the text, each on a line of its own.
QString composedText(const TextReader::Reading& reading)
{
    QStringList parts = payloads(reading);
    if (!reading.text.fullText.isEmpty())
        parts.prepend(reading.text.fullText);
    return parts.join('\n');
}

QString preview(const QString& text)
{
    const QString line = PrintableText::of(text.simplified());
    return line.size() <= previewLength ? line : line.left(previewLength - 1) + QChar(0x2026);
}

ToastContent nothingCopied(const TextReader::Reading& reading)
{
    if (reading.failure.isEmpty())
        return {.message = TextCapture::tr("No text found in the capture"), .icon = "text.viewfinder"};
    return {.message = TextCapture::tr("The text can't be read"),
            .subtitle = reading.failure,
            .icon = "exclamationmark.triangle",
            .dwell = failureDwell};
}

ToastContent confirmation(const TextReader::Reading& reading, const std::function<void(QUrl)>& openLink)
{
    const QStringList codes = payloads(reading);
    const QString& text = reading.text.fullText;
    if (text.isEmpty() && codes.isEmpty())
        return nothingCopied(reading);
    if (text.isEmpty())
        return {.message = QRToast::qrMessage(codes.size()),
                .subtitle = QRToast::qrDetail(codes),
                .icon = "qrcode",
                .copied = true,
                .onTap = QRToast::openLinkTap(codes.first(), openLink)};
    return {.message = codes.isEmpty() ? preview(text) : TextCapture::tr("Text and QR code copied"),
            .icon = "doc.on.clipboard.fill",
            .copied = true};
}

CaptureOutcome outcomeOf(CaptureResult result, const TextReader::Reading& reading, const QString& text)
{
    const bool hasFailed = text.isEmpty() && !reading.failure.isEmpty();
    CaptureOutcome outcome{.kind = hasFailed ? CaptureOutcome::Kind::failed : CaptureOutcome::Kind::finished,
                           .message = reading.failure,
                           .pixelSize = result.image.size(),
                           .text = text};
    result.image = {};
    outcome.result = std::move(result);
    return outcome;
}

} // namespace

TextCapture::TextCapture(CaptureServices& services, CaptureFinisher& finisher)
    : m_services(services), m_finisher(finisher), m_scope(services.loop, services.workers)
{
}

QCoro::Task<> TextCapture::runOCR(CaptureFinisher::Pixels pixels, std::shared_ptr<CaptureRun> run)
{
    const Ports& ports = m_services.ports;
    m_stop.request_stop();
    m_stop = std::stop_source();
    m_run = run;
    const std::stop_token stop = m_stop.get_token();
    const QImage image = pixels.image;
    const double scale = pixels.pixelScale;
    ports.toasts.tell(
        &Toasts::present,
        ToastContent{.message = tr("Extracting text\u2026"), .icon = "text.viewfinder", .showsSpinner = true},
        pixels.displayID, false);
    CaptureResult result = m_finisher.keepInHistory(std::move(pixels));

    TextReader::Reading reading{.failure = "this program can't read text"};
    if (ports.textReader)
        reading = co_await m_scope.reply<TextReader::Reading>(
            [&](auto done) { ports.textReader->read(image, scale, stop, done); });
    if (stop.stop_requested()) {
        using Kind = CaptureOutcome::Kind;
        run->reply.give({.kind = run->isCancelled ? Kind::cancelled : Kind::overwritten});
        co_return;
    }
    const QString text = composedText(reading);
    if (!text.isEmpty())
        ports.history.tell(&CaptureHistory::setReading, result.id, reading.text, reading.codes);
    confirm(reading, text);
    m_run.reset();
    run->reply.give(outcomeOf(std::move(result), reading, text));
}

void TextCapture::cancel(quint64 requestID)
{
    if (!m_run || m_run->requestID != requestID || m_stop.stop_requested())
        return;
    m_run->isCancelled = true;
    m_stop.request_stop();
    m_services.ports.toasts.tell(&Toasts::dismiss, true);
}

void TextCapture::confirm(const TextReader::Reading& reading, const QString& text)
{
    const Ports& ports = m_services.ports;
    if (!text.isEmpty())
        ports.delivery.tell(&CaptureDelivery::copyText, text);
    const auto openLink = [&ports](const QUrl& url) { ports.delivery.tell(&CaptureDelivery::openLink, url); };
    ports.toasts.tell(&Toasts::update, confirmation(reading, openLink), true);
}

} // namespace Kovrel
