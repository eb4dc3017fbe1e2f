#include "livetext/preview/PreviewWindows.h"

#include "platform/Guarded.h"
#include "platform/Workers.h"
#include "ports/CaptureDelivery.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"

#include <QFileInfo>

namespace Kovrel {

PreviewWindows::PreviewWindows(Services services) : m_services(services), m_scope(services.loop, services.workers) {}

PreviewWindows::~PreviewWindows()
{
    for (const auto& shown : std::as_const(m_shown))
        shown->stop.request_stop();
}

PreviewWindow* PreviewWindows::window(const QString& path) const
{
    const auto shown = m_shown.value(path);
    return shown ? shown->window.get() : nullptr;
}

void PreviewWindows::show(const QString& path)
{
    if (PreviewWindow* const open = window(path))
        open->present();
    else
        Scope::start(this->open(path), "showing a picture");
}

QCoro::Task<> PreviewWindows::open(QString path)
{
    const auto picture =
        co_await m_scope.onWorker(Lane::capture, Guarded::orReason([path] { return ImageCodec::decodeFile(path); }));
    if (!picture) {
        m_services.programs.open(path);
        co_return;
    }
    if (!window(path))
        add(path, *picture);
}

void PreviewWindows::add(const QString& path, QImage picture)
{
    auto window = std::make_unique<PreviewWindow>(
        std::move(picture), QFileInfo(path).fileName(),
        PreviewWindow::Services{m_services.loop, m_services.workers, m_services.preferences, doors()});
    // Not within its own event.
    QObject::connect(
        window.get(), &PreviewWindow::closed, window.get(), [this, path] { remove(path); }, Qt::QueuedConnection);
    window->present();
    m_shown[path] = std::make_shared<Shown>(Shown{std::move(window), {}});
    read(path);
}

void PreviewWindows::read(const QString& path)
{
    if (!m_services.ports.textReader)
        return;
    const auto shown = m_shown.value(path);
    const auto take = [weak = std::weak_ptr(shown)](const TextReader::Reading& reading) {
        if (const auto still = weak.lock())
            still->window->setReading(reading.text, reading.codes);
    };
    const QImage& picture = shown->window->picture();
    m_services.ports.textReader->read(picture, shown->window->devicePixelRatioF(), shown->stop.get_token(), take);
}

void PreviewWindows::remove(const QString& path)
{
    if (const auto shown = m_shown.take(path))
        shown->stop.request_stop();
}

LiveTextLayer::Doors PreviewWindows::doors() const
{
    const Ports& ports = m_services.ports;
    return {.copy =
                [&ports](const QString& text) {
                    ports.delivery.tell(&CaptureDelivery::copyText, text);
                    ports.toasts.tell(
                        &Toasts::present,
                        ToastContent{.message = tr("Text copied"), .icon = "doc.on.clipboard.fill", .copied = true},
                        std::nullopt, true);
                },
            .open = [&ports](const QUrl& target) { ports.delivery.tell(&CaptureDelivery::openLink, target); }};
}

} // namespace Kovrel
