#include "capture/TextCapture.h"

#include "capture/QRToast.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureHistory.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"

namespace Kovrel {

namespace {

constexpr int previewLength = 80;
constexpr double failureDwell = 6; // seconds

// Codes stand behind the text, each on a line of its own.
QString composedText(const TextReader::Reading& reading)
{
    QStringList parts = reading.codePayloads;
    if (!reading.text.isEmpty())
        parts.prepend(reading.text);
    return parts.join('\n');
}

QString preview(const QString& text)
{
    const QString line = text.simplified();
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
    const QStringList& codes = reading.codePayloads;
    if (reading.text.isEmpty() && codes.isEmpty())
        return nothingCopied(reading);
    if (reading.text.isEmpty())
        return {.message = QRToast::qrMessage(codes.size()),
                .subtitle = QRToast::qrDetail(codes),
                .icon = "qrcode",
                .copied = true,
                .onTap = QRToast::openLinkTap(codes.first(), openLink)};
    return {.message = codes.isEmpty() ? preview(reading.text) : TextCapture::tr("Text and QR code copied"),
            .icon = "doc.on.clipboard.fill",
            .copied = true};
}

} // namespace

TextCapture::TextCapture(CaptureServices& services, CaptureFinisher& finisher)
    : m_services(services), m_finisher(finisher), m_scope(services.loop, services.workers)
{
}

QCoro::Task<> TextCapture::runOCR(CaptureFinisher::Pixels pixels, std::shared_ptr<CaptureRun> run)
{
    const int generation = ++m_generation;
    const QImage image = pixels.image;
    const double scale = pixels.pixelScale;
    m_services.toasts.present({.message = tr("Extracting text\u2026"), .icon = "text.viewfinder", .showsSpinner = true},
                              pixels.displayID, false);
    CaptureResult result = m_finisher.keepInHistory(std::move(pixels));

    TextReader::Reading reading =
        co_await m_scope.reply<TextReader::Reading>([&](auto done) { m_services.textReader.read(image, scale, done); });
    const QString text = composedText(reading);
    if (!text.isEmpty())
        m_services.history.setText(result.id, text);
    if (generation == m_generation) {
        if (!text.isEmpty())
            m_services.delivery.copyText(text);
        const auto openLink = [&delivery = m_services.delivery](const QUrl& url) { delivery.openLink(url); };
        m_services.toasts.update(confirmation(reading, openLink), true);
    }
    const bool hasFailed = text.isEmpty() && !reading.failure.isEmpty();
    CaptureOutcome outcome{.kind = hasFailed ? CaptureOutcome::Kind::failed : CaptureOutcome::Kind::finished,
                           .message = reading.failure,
                           .result = result,
                           .pixelSize = image.size(),
                           .text = text};
    outcome.result->image = {};
    run->reply.give(std::move(outcome));
}

} // namespace Kovrel
