#include "capture/pixels/NativeScreenCapture.h"

#include "platform/DisplayScales.h"
#include "platform/Guarded.h"
#include "platform/ImageCodec.h"

#include <QFile>
#include <QLoggingCategory>
#include <QScopeGuard>
#include <QUuid>

#include <cstdio>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture", QtInfoMsg)

constexpr int launchAttempts = 3;
constexpr auto pauseBetweenLaunches = 50ms;
constexpr auto toolDeadline = 10s;
constexpr auto idleDeadline = 1s;
constexpr auto idlePollingInterval = 20ms;
constexpr auto settlingAfterExit = 12ms;
constexpr int cancelledByUser = 1; // the tool's exit status

QStringList rectOptions(const Rect& rect, bool showCursor)
{
    QStringList options{"-x"};
    if (showCursor)
        options.append("-C");
    char numbers[128]; // QString::asprintf rounds halves another way
    std::snprintf(numbers, sizeof numbers, "%.0f,%.0f,%.0f,%.0f", rect.x, rect.y, rect.width, rect.height);
    options += {"-R", numbers};
    return options;
}

// The smallest rectangle of whole points that holds another.
Rect wholePoints(const Rect& rect)
{
    const double left = std::floor(rect.minX());
    const double bottom = std::floor(rect.minY());
    return {left, bottom, std::ceil(rect.maxX()) - left, std::ceil(rect.maxY()) - bottom};
}

// By the tool, which was asked after this process got no pixels.
PixelSource::Outcome fromTool(std::expected<QImage, QString> image, GrabFailure cause)
{
    if (image)
        return PixelSource::Grab{*std::move(image), false};
    return std::unexpected(PixelSource::Failure{cause, reason(cause) + "; the screenshot tool " + image.error()});
}

QString yesNo(bool value)
{
    return value ? "true" : "false";
}

} // namespace

NativeScreenCapture::NativeScreenCapture(Services services, Tool tool)
    : m_services(services), m_tool(std::move(tool)), m_scope(services.loop, services.workers)
{
}

Rect NativeScreenCapture::topLeftGlobalRect(Rect rect) const
{
    return flipped(m_services.displays.all(), rect);
}

QCoro::Task<PixelSource::Outcome> NativeScreenCapture::displayRect(Rect topLeftGlobalRect, bool showCursor)
{
    const DisplayList displays = m_services.displays.all();
    const QRect area = rootPixels(displays, flipped(displays, topLeftGlobalRect));
    GrabbedImage grabbed = co_await grabInProcess(area, showCursor);
    if (grabbed)
        co_return Grab{*std::move(grabbed), true};
    auto image = co_await run(rectOptions(topLeftGlobalRect, showCursor), false);
    co_return fromTool(std::move(image), grabbed.error());
}

QCoro::Task<PixelSource::Outcome> NativeScreenCapture::pixels(QRect rootPixels, bool showCursor)
{
    GrabbedImage grabbed = co_await grabInProcess(rootPixels, showCursor);
    if (grabbed)
        co_return Grab{*std::move(grabbed), true};
    const DisplayList displays = m_services.displays.all();
    const Display* display = displayNearest(displays, rootPixels);
    if (!display)
        co_return std::unexpected(Failure{grabbed.error(), reason(grabbed.error())});
    // The tool knows whole points only, so it is asked for more than is wanted.
    const Rect asked = wholePoints(flipped(displays, display->toPoints(rootPixels)));
    const QRect given = Kovrel::rootPixels(displays, flipped(displays, asked));
    auto image = co_await run(rectOptions(asked, showCursor), false);
    if (image && image->size() != given.size())
        image = std::unexpected(QStringLiteral("took a picture of another size"));
    if (image)
        image = image->copy(rootPixels.translated(-given.topLeft()));
    co_return fromTool(std::move(image), grabbed.error());
}

QCoro::Task<PixelSource::Outcome> NativeScreenCapture::window(quint32 windowID)
{
    auto grabbed = co_await m_scope.reply<GrabbedImage>(
        [this, windowID](Reply<GrabbedImage> done) { m_services.windows.grab(windowID, std::move(done)); });
    if (grabbed)
        co_return Grab{*std::move(grabbed), true};
    auto image = co_await run({"-l", QString::number(windowID), "-o", "-x"}, false);
    co_return fromTool(std::move(image), grabbed.error());
}

QCoro::Task<std::expected<QImage, QString>> NativeScreenCapture::interactivePick()
{
    auto image = co_await run({"-w", "-o", "-x"}, true);
    co_return image;
}

Wait<GrabbedImage> NativeScreenCapture::grabInProcess(QRect rootPixels, bool showCursor)
{
    const auto pointer = showCursor ? ScreenPixels::PointerOption::drawn : ScreenPixels::PointerOption::without;
    return m_scope.reply<GrabbedImage>([this, rootPixels, pointer](Reply<GrabbedImage> done) {
        m_services.pixels.grab(rootPixels, pointer, std::move(done));
    });
}

QCoro::Task<std::expected<QImage, QString>> NativeScreenCapture::run(QStringList options, bool isInteractive)
{
    auto image = co_await runAndRead(std::move(options), isInteractive);
    if (!image && !image.error().isEmpty())
        qCWarning(log, "%s: %s", qUtf8Printable(m_tool.program), qUtf8Printable(image.error()));
    co_return image;
}

QCoro::Task<std::expected<QImage, QString>> NativeScreenCapture::runAndRead(QStringList options, bool isInteractive)
{
    co_await waitUntilInteractiveIdle(idleDeadline);
    const QString path =
        m_tool.temporaryFolder + "/kovrel-shot-" + QUuid::createUuid().toString(QUuid::WithoutBraces) + ".tiff";
    const auto removal = qScopeGuard([path] { QFile::remove(path); });
    const auto ended = co_await runTool(options + QStringList{"-t", "tiff", path}, isInteractive);
    if (!ended)
        co_return std::unexpected(ended.error());
    const auto decode = Guarded::orReason([path] { return ImageCodec::decodeFile(path); });
    auto image = co_await m_scope.onWorker(Lane::capture, decode);
    if (!image)
        co_return std::unexpected("wrote no image: " + image.error().message);
    m_services.trace.mark(QStringLiteral("t4 decoded %1x%2").arg(image->width()).arg(image->height()));
    co_return *std::move(image);
}

QCoro::Task<std::expected<Nothing, QString>> NativeScreenCapture::runTool(QStringList arguments, bool isInteractive)
{
    for (int attempt = 1; attempt <= launchAttempts; ++attempt) {
        if (attempt > 1)
            co_await m_scope.sleep(pauseBetweenLaunches);
        std::optional<qint64> pid;
        auto exit = m_scope.reply<ToolExit>([&](Reply<ToolExit> done) {
            pid = m_services.toolProcess.start(
                m_tool.program, arguments, {{DisplayScales::variable, DisplayScales::write(m_services.displays.all())}},
                std::move(done));
        });
        if (pid) {
            const auto ended = co_await finish(*pid, std::move(exit), isInteractive);
            co_return ended;
        }
        m_services.trace.mark(QStringLiteral("!! spawn attempt %1 FAILED, retrying").arg(attempt));
    }
    co_return std::unexpected(QStringLiteral("can't be started"));
}

QCoro::Task<std::expected<Nothing, QString>> NativeScreenCapture::finish(qint64 pid, Wait<ToolExit> exit,
                                                                         bool isInteractive)
{
    MainLoop& loop = m_services.loop;
    ToolProcess& toolProcess = m_services.toolProcess;
    noteStart(pid, isInteractive);
    // A user may take all the time to pick; nothing else may. A tool that nobody waits for any more goes too.
    const auto startedAt = loop.now();
    const auto timer = isInteractive ? 0 : loop.after(toolDeadline, [&toolProcess, pid] { toolProcess.kill(pid); });
    const auto atEnd = qScopeGuard([&loop, &toolProcess, timer, pid] {
        loop.cancel(timer);
        toolProcess.kill(pid);
    });
    const ToolExit result = co_await std::move(exit);
    m_services.trace.mark("t3 tool exited (ok " + yesNo(result.isOk()) + ")");
    const bool isCancelled = noteExit(pid);
    co_return judge(result, isInteractive, timer != 0 && loop.now() - startedAt >= toolDeadline, isCancelled);
}

std::expected<Nothing, QString> NativeScreenCapture::judge(ToolExit exit, bool isInteractive, bool isLate,
                                                           bool isCancelled) const
{
    if (isCancelled) {
        m_services.trace.mark(u"picker cancelled \u2014 not retrying"_qs);
        return std::unexpected(QString());
    }
    if (exit.isOk())
        return Nothing{};
    if (isLate)
        return std::unexpected(QStringLiteral("was killed, it took longer than 10 seconds"));
    const QString message = exit.message.isEmpty() ? QString() : ": " + exit.message;
    if (exit.isCrash)
        return std::unexpected("crashed" + message);
    if (isInteractive && exit.status == cancelledByUser)
        return std::unexpected(QString());
    return std::unexpected("exited with status " + QString::number(exit.status) + message);
}

void NativeScreenCapture::noteStart(qint64 pid, bool isInteractive)
{
    m_services.trace.mark(QStringLiteral("t2 spawned pid %1").arg(pid));
    const std::lock_guard lock(m_liveLock);
    if (!isInteractive)
        return;
    m_live.pid = pid;
    m_live.startedAt = m_services.loop.now();
    m_live.isCancelled = false;
}

bool NativeScreenCapture::noteExit(qint64 pid)
{
    const std::lock_guard lock(m_liveLock);
    m_live.lastExitAt = m_services.loop.now();
    if (m_live.pid != pid)
        return false;
    m_live.pid = 0;
    return std::exchange(m_live.isCancelled, false);
}

qint64 NativeScreenCapture::livePid() const
{
    const std::lock_guard lock(m_liveLock);
    return m_live.pid;
}

bool NativeScreenCapture::cancelInteractivePick(Milliseconds minAge)
{
    const std::lock_guard lock(m_liveLock);
    if (m_live.pid <= 0 || m_services.loop.now() - m_live.startedAt < minAge)
        return false;
    m_live.isCancelled = true;
    m_services.trace.mark(QStringLiteral("cancelling live picker pid %1").arg(m_live.pid));
    m_services.toolProcess.kill(m_live.pid);
    return true;
}

// What is left of the 12 ms; rounded up, as timers count whole milliseconds.
NativeScreenCapture::Milliseconds NativeScreenCapture::settlingTime() const
{
    const std::lock_guard lock(m_liveLock);
    if (!m_live.lastExitAt)
        return 0ms;
    const auto settledAt = *m_live.lastExitAt + settlingAfterExit;
    return std::max(0ms, std::chrono::ceil<Milliseconds>(settledAt - m_services.loop.now()));
}

QCoro::Task<> NativeScreenCapture::waitUntilInteractiveIdle(Milliseconds deadline)
{
    const auto end = m_services.loop.now() + deadline;
    for (;;) {
        const qint64 pid = livePid();
        if (pid <= 0 || !m_services.toolProcess.isRunning(pid)) {
            m_services.trace.mark(QStringLiteral("idle-wait: clear"));
            const auto rest = settlingTime();
            if (rest > 0ms)
                co_await m_scope.sleep(rest);
            co_return;
        }
        m_services.trace.mark(u"idle-wait: pid %1 still owns the picker \u2014 holding"_qs.arg(pid));
        if (m_services.loop.now() >= end) {
            m_services.trace.mark(QStringLiteral("idle-wait: DEADLINE BLEW (pid %1 never exited)").arg(pid));
            co_return;
        }
        co_await m_scope.sleep(idlePollingInterval);
    }
}

} // namespace Kovrel
