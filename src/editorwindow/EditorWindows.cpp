#include "editorwindow/EditorWindows.h"

#include "editorwindow/EditorToasts.h"
#include "platform/Guarded.h"
#include "platform/ImageCodec.h"
#include "platform/Workers.h"
#include "ports/CaptureDelivery.h"

#include <QFileInfo>

#include <algorithm>

namespace Kovrel {

namespace {

// A file says nothing of its screen; one whose density is that of a dense screen was taken there.
double scaleOf(const QImage& image)
{
    constexpr double usualDotsPerMeter = 96 / 0.0254;
    const double scale = image.dotsPerMeterX() / usualDotsPerMeter;
    return scale > 1.4 && scale < 4.1 ? scale : 1;
}

} // namespace

EditorWindows::EditorWindows(EditorServices services) : m_services(services), m_scope(services.loop, services.workers)
{
}

EditorWindows::~EditorWindows()
{
    qDeleteAll(m_windows);
}

// --- Opening

void EditorWindows::open(CaptureResult result)
{
    if (!bringForward(result.id))
        Scope::start(openCapture(std::move(result)), "opening an editor");
}

QCoro::Task<> EditorWindows::openCapture(CaptureResult result)
{
    const auto& edits = m_services.ports.edits;
    std::optional<EditedCaptures::Opened> opened;
    if (edits && edits->has(result.id))
        opened = co_await m_scope.reply<std::optional<EditedCaptures::Opened>>(
            [&](auto done) { m_services.ports.edits->open(result.id, done); });
    if (!opened && !result.image.isNull())
        opened = EditedCaptures::Opened{{result.id, result.image, result.pixelScale, result.subject}, {}, {}};
    if (!opened) {
        EditorToasts::warn(m_services.ports, tr("This capture is not there any more"));
        co_return;
    }
    if (!bringForward(result.id))
        show(std::move(*opened), EditorWindow::Kind::capture, tr("Edit Capture"));
}

void EditorWindows::openFiles(const QStringList& paths)
{
    for (const QString& path : paths)
        if (!m_opening.contains(path) && !bringForward(idOf(path)))
            Scope::start(openFile(path), "opening a file");
}

QCoro::Task<> EditorWindows::openFile(QString path)
{
    m_opening.insert(path);
    std::optional<EditedCaptures::Opened> opened = co_await captureOf(path);
    if (!opened)
        opened = co_await pictureOf(path);
    m_opening.remove(path);
    const QString name = QFileInfo(path).fileName();
    if (!opened)
        EditorToasts::warn(m_services.ports, tr("Not opened"), tr("%1 is no picture that can be read.").arg(name));
    else if (!bringForward(opened->capture.id))
        show(std::move(*opened), EditorWindow::Kind::file, name);
}

// A file that was edited before, or saved from a capture, comes with its marks.
QCoro::Task<std::optional<EditedCaptures::Opened>> EditorWindows::captureOf(QString path)
{
    std::optional<EditedCaptures::Opened> opened;
    if (!m_services.ports.edits)
        co_return opened;
    const auto id =
        co_await m_scope.reply<std::optional<QUuid>>([&](auto done) { m_services.ports.edits->idOf(path, done); });
    if (id)
        opened = co_await m_scope.reply<std::optional<EditedCaptures::Opened>>(
            [&](auto done) { m_services.ports.edits->open(*id, done); });
    co_return opened;
}

QCoro::Task<std::optional<EditedCaptures::Opened>> EditorWindows::pictureOf(QString path)
{
    const auto job = [path] { return ImageCodec::decodeFile(path); };
    const auto decoded = co_await m_scope.onWorker(Lane::utility, QualityOfService::userInteractive,
                                                   Guarded::orElse(job, decltype(job())()));
    if (!decoded)
        co_return std::nullopt;
    co_return EditedCaptures::Opened{{QUuid::createUuid(), *decoded, scaleOf(*decoded), std::nullopt}, {}, path};
}

QUuid EditorWindows::idOf(const QString& path) const
{
    const auto isOfFile = [&](EditorWindow* window) { return window->keeping().savedPath() == path; };
    const auto window = std::ranges::find_if(m_windows, isOfFile);
    return window == m_windows.end() ? QUuid() : window.key();
}

void EditorWindows::show(EditedCaptures::Opened opened, EditorWindow::Kind kind, const QString& title)
{
    const QUuid id = opened.capture.id;
    auto* const window = new EditorWindow(m_services, std::move(opened), kind, title);
    m_windows.insert(id, window);
    connect(window, &EditorWindow::closed, this, [this, window] { keep(window); });
    window->show();
    bringForward(id);
}

bool EditorWindows::bringForward(QUuid id)
{
    EditorWindow* const window = m_windows.value(id);
    if (!window)
        return false;
    if (window->isMinimized())
        window->showNormal();
    window->raise();
    window->activateWindow();
    return true;
}

// --- Closing

void EditorWindows::keep(EditorWindow* window)
{
    m_windows.remove(window->session().capture().id);
    if (!window->keeping().isKept() || !window->keeping().isToBeKept()) {
        window->deleteLater();
        return;
    }
    ++m_pending;
    window->keeping().keepForGood([this, window](const EditorKeeping::Kept& outcome) { kept(window, outcome); });
}

void EditorWindows::kept(EditorWindow* window, const EditorKeeping::Kept& outcome)
{
    if (outcome)
        ended(window);
    else
        rescue(window);
}

// What the history does not take, and what nobody can be asked about any more.
void EditorWindows::rescue(EditorWindow* window)
{
    window->keeping().saveCopy([this, window](const SaveOutcome& saved) {
        EditorToasts::warn(m_services.ports, tr("The edit was saved as a file of its own"),
                           saved ? *saved : saved.error().message);
        ended(window);
    });
}

void EditorWindows::ended(EditorWindow* window)
{
    window->deleteLater();
    if (--m_pending == 0 && m_whenKept)
        std::exchange(m_whenKept, nullptr)();
}

void EditorWindows::finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
{
    for (EditorWindow* const window : m_windows.values()) {
        window->canvas().stopWriting();
        if (window->keeping().isKept() || !window->keeping().isChanged()) {
            keep(window);
            continue;
        }
        m_windows.remove(window->session().capture().id);
        ++m_pending;
        rescue(window);
    }
    if (m_pending == 0)
        return done();
    m_whenKept = std::move(done);
    m_services.loop.after(deadline, [this] {
        if (m_whenKept)
            std::exchange(m_whenKept, nullptr)();
    });
}

} // namespace Kovrel
