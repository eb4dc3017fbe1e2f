#include "capture/SelectionFlow.h"

#include "capture/selection/SelectionGrabber.h"
#include "capture/selection/WindowTiles.h"
#include "platform/Displays.h"
#include "platform/ScreenPixels.h"
#include "ports/CaptureEffects.h"
#include "ports/CaptureTrace.h"
#include "ports/CardPile.h"
#include "ports/TextReader.h"

namespace Kovrel {

namespace {

// Nothing where the user has closed the window meanwhile.
QString windowFailure(const PixelSource::Failure& failure)
{
    if (failure.cause == GrabFailure::windowGone)
        return {};
    return "The window could not be captured: " + failure.reason;
}

// Cut to the rectangle around the parts that lie on displays.
QRect visiblePart(const QRect& rootPixels, const DisplayList& displays)
{
    QRect visible;
    for (const Display& display : displays)
        visible |= rootPixels & display.pixelRect;
    return visible;
}

} // namespace

SelectionFlow::SelectionFlow(CaptureServices& services, CaptureFinisher& finisher, DesktopSurvey& survey,
                             CaptureStages& stages)
    : m_services(services),
      m_finisher(finisher),
      m_survey(survey),
      m_stages(stages),
      m_textCapture(services, finisher),
      m_composition(services),
      m_modeChanges(services.overlay.onModeChange([this](SelectionOverlay::Mode mode) { m_overlayMode = mode; })),
      m_scope(services.loop, services.workers)
{
}

bool SelectionFlow::isSameAsOverlay(CaptureMode mode) const
{
    if (mode == CaptureMode::ocrRegion)
        return m_overlaySessionIsOCR;
    if (m_overlaySessionIsOCR)
        return false;
    return (mode == CaptureMode::area && m_overlayMode == SelectionOverlay::Mode::areaDrag) ||
           (mode == CaptureMode::window && m_overlayMode == SelectionOverlay::Mode::windowPick);
}

QCoro::Task<SelectionResult> SelectionFlow::select(Run run, SelectionOverlay::Mode mode, bool ocrOnly)
{
    const bool isWindowPick = mode == SelectionOverlay::Mode::windowPick;
    m_overlayMode = mode;
    m_overlaySessionIsOCR = ocrOnly;
    if (!isWindowPick)
        m_services.trace.mark("t1b runAreaSelection \u2192 overlay");
    m_overlayIsUp = true;
    auto result = m_scope.reply<SelectionResult>([&](auto done) { m_services.overlay.begin(mode, done); });
    m_services.trace.mark(isWindowPick ? "t1c window picker up" : "t1c overlay up");
    co_await m_scope.join(m_stages.hideChromeAndRepaint(run));
    m_services.grabber.prewarm();
    m_services.overlay.applyFrozenImages();
    // After the displays are frozen, which nothing may delay, and while the user still aims.
    if (isWindowPick)
        co_await prewarmWindowBackdrop();
    if (ocrOnly)
        m_services.ports.textReader.tell(&TextReader::expectReading);
    SelectionResult selection = co_await result;
    m_overlayIsUp = false;
    m_stages.leaveInteractivePhase(run);
    co_return selection;
}

QCoro::Task<> SelectionFlow::runAreaSelection(Run run, bool ocrOnly)
{
    if (run->options.rect) {
        co_await runGivenArea(run, ocrOnly);
        co_return;
    }
    SelectionResult selection = co_await select(run, SelectionOverlay::Mode::areaDrag, ocrOnly);
    co_await takeSelection(run, std::move(selection), ocrOnly);
}

QCoro::Task<> SelectionFlow::runWindowSelection(Run run)
{
    SelectionResult selection = co_await select(run, SelectionOverlay::Mode::windowPick, false);
    if (!std::holds_alternative<SelectedWindows>(selection))
        m_composition.forgetPrewarm();
    co_await takeSelection(run, std::move(selection), false);
}

QCoro::Task<> SelectionFlow::prewarmWindowBackdrop()
{
    const std::optional<Display> display = co_await m_scope.join(m_survey.screenUnderMouse());
    if (display)
        m_composition.prewarm(*display);
}

QCoro::Task<> SelectionFlow::takeSelection(Run run, SelectionResult selection, bool ocrOnly)
{
    // The overlay lets the user change between an area and a window.
    if (const auto* area = std::get_if<SelectedArea>(&selection)) {
        run->mode = ocrOnly ? CaptureMode::ocrRegion : CaptureMode::area;
        co_await takeArea(run, area->rootPixels, ocrOnly);
    } else if (auto* windows = std::get_if<SelectedWindows>(&selection)) {
        run->mode = ocrOnly ? CaptureMode::ocrRegion : CaptureMode::window;
        co_await takeWindows(run, std::move(windows->windows), ocrOnly);
    } else {
        const QString& failure = std::get<SelectionCancelled>(selection).failure;
        m_stages.abandon(run, failure.isEmpty() ? QString() : "Nothing could be selected: " + failure);
    }
}

QCoro::Task<> SelectionFlow::takeArea(Run run, QRect rootPixels, bool ocrOnly)
{
    FrozenScreens frozen = m_services.overlay.takeFrozenImages();
    const auto frozenCount = frozen.size();
    const std::optional<Display> display = co_await m_scope.join(displayOf(rootPixels));
    std::optional<QImage> cut = co_await m_scope.reply<std::optional<QImage>>(
        [&](auto done) { m_services.grabber.grab(rootPixels, std::move(frozen), done); });
    m_services.trace.mark(QString("selection committed \u2192 pixels in hand (frozen %1)").arg(frozenCount));
    PixelSource::Outcome grab;
    if (cut)
        grab->image = *std::move(cut);
    else
        grab = co_await fallbackAreaGrab(rootPixels);
    if (!grab || !display) {
        const QString reason = grab ? QString("there is no display") : grab.error().reason;
        m_stages.abandon(run, "The selected area could not be captured: " + reason);
        co_return;
    }
    co_await finishArea(run, grab->image, rootPixels, *display, ocrOnly);
}

// The pointer ends on the next display where a rectangle reaches to the seam; across it, it says whose the area is.
QCoro::Task<std::optional<Display>> SelectionFlow::displayOf(QRect rootPixels)
{
    const DisplayList displays = m_services.displays.all();
    for (const Display& display : displays)
        if (display.pixelRect.contains(rootPixels))
            co_return display;
    const std::optional<Display> underMouse = co_await m_scope.join(m_survey.screenUnderMouse());
    co_return underMouse;
}

QCoro::Task<PixelSource::Outcome> SelectionFlow::fallbackAreaGrab(QRect rootPixels)
{
    // The overlay was there a moment ago.
    co_await m_scope.reply<bool>([this](auto done) { m_services.pixels.whenRepainted(done); });
    PixelSource::Outcome live = co_await m_scope.join(m_services.engine.pixels(rootPixels, false));
    co_return live;
}

QCoro::Task<> SelectionFlow::runGivenArea(Run run, bool ocrOnly)
{
    m_stages.leaveInteractivePhase(run);
    co_await m_scope.join(m_stages.hideChromeAndRepaint(run));
    const DisplayList displays = m_services.displays.all();
    const Display* primary = primaryDisplay(displays);
    if (!primary) {
        m_stages.abandon(run, "There is no display to capture");
        co_return;
    }
    const Rect& given = *run->options.rect;
    const Rect rect{given.x, primary->frame.height - given.maxY(), given.width, given.height};
    const Display* under = displayContaining(displays, rect.centre());
    const Display display = under ? *under : *primary;
    const QRect rootPixels = visiblePart(display.toPixels(rect), displays);
    if (rootPixels.isEmpty()) {
        run->reply.give({.kind = CaptureOutcome::Kind::misused, .message = "the rectangle lies on no display"});
        m_stages.abandon(run, {});
        co_return;
    }
    PixelSource::Outcome grab = co_await m_scope.join(m_services.engine.pixels(rootPixels, false));
    if (!grab) {
        m_stages.abandon(run, "The area could not be captured: " + grab.error().reason);
        co_return;
    }
    co_await finishArea(run, grab->image, rootPixels, display, ocrOnly);
}

QCoro::Task<> SelectionFlow::finishArea(Run run, QImage image, QRect rootPixels, Display display, bool ocrOnly)
{
    if (!ocrOnly) {
        m_services.ports.effects.tell(&CaptureEffects::playShutterIfEnabled);
        m_services.ports.cards.tell(&CardPile::prepareForIncomingCapture, display.id);
    }
    m_stages.selectionEnded(run, DisplayArea{display.id, rootPixels.translated(-display.pixelRect.topLeft())});
    CaptureFinisher::Pixels pixels{
        .image = std::move(image),
        .mode = run->mode,
        .displayID = display.id,
        .pixelScale = display.scale,
        .sourceApp = {},
    };
    pixels.sourceApp = co_await m_scope.join(m_survey.sourceAppUnder(rootPixels));
    if (ocrOnly)
        co_await m_scope.join(m_textCapture.runOCR(std::move(pixels), run));
    else
        co_await m_scope.join(m_finisher.finish(std::move(pixels), run));
}

QCoro::Task<> SelectionFlow::takeWindows(Run run, std::vector<WindowInfo> windows, bool ocrOnly)
{
    FrozenScreens frozen = m_services.overlay.takeFrozenImages();
    const std::optional<Display> display = co_await m_scope.join(m_survey.screenUnderMouse());
    if (windows.size() > 1 && WindowTiles::liveTileMembers(windows, display ? display->scale : 1).empty())
        windows.resize(1);
    std::optional<QImage> image = co_await m_scope.reply<std::optional<QImage>>(
        [&](auto done) { m_services.grabber.grabWindows(windows, std::move(frozen), done); });
    m_services.trace.mark(QString("window pick \u2192 pixels in hand (in-process %1)").arg(image ? "true" : "false"));
    PixelSource::Outcome grab;
    if (image)
        grab->image = *std::move(image);
    else
        grab = co_await m_scope.join(m_services.engine.window(windows.front().id));
    if (!grab) {
        m_composition.forgetPrewarm();
        m_stages.abandon(run, windowFailure(grab.error()));
        co_return;
    }
    if (!ocrOnly) {
        m_services.ports.effects.tell(&CaptureEffects::playShutterIfEnabled);
        m_services.ports.cards.tell(&CardPile::prepareForIncomingCapture,
                                    display ? std::optional(display->id) : std::nullopt);
    }
    m_stages.selectionEnded(run);
    CaptureFinisher::Pixels picked{
        .image = grab->image,
        .mode = run->mode,
        .displayID = display ? std::optional(display->id) : std::nullopt,
        .pixelScale = display ? display->scale : 2.0,
        .sourceApp = windows.front().app,
    };
    if (ocrOnly)
        co_await m_scope.join(m_textCapture.runOCR(std::move(picked), run));
    else
        co_await finishWindowPick(run, std::move(picked));
}

QCoro::Task<> SelectionFlow::finishWindowPick(Run run, CaptureFinisher::Pixels picked)
{
    auto composed = m_scope.join(m_composition.compose(picked.image, picked.displayID));
    co_await m_scope.join(m_finisher.finish(std::move(picked), run, std::move(composed)));
}

} // namespace Kovrel
