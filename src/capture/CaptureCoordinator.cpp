#include "capture/CaptureCoordinator.h"

#include "capture/pixels/PixelSource.h"
#include "capture/selection/SelectionOverlay.h"
#include "platform/Displays.h"
#include "platform/Guarded.h"
#include "ports/AccountStatus.h"
#include "ports/CaptureEffects.h"
#include "ports/CaptureHistory.h"
#include "ports/CaptureTrace.h"
#include "ports/CardPile.h"
#include "ports/ColorPicking.h"
#include "ports/HelpWindows.h"
#include "ports/Toasts.h"
#include "preferences/Preferences.h"

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr auto livePickerMinAge = 700ms;
constexpr auto credentialsMaxAge = 86400s;

void give(CaptureReply reply, CaptureOutcome::Kind kind)
{
    reply.give({.kind = kind});
}

} // namespace

CaptureCoordinator::CaptureCoordinator(CaptureServices services)
    : m_services(services),
      m_finisher(m_services),
      m_selfTimer(m_services),
      m_reopener(m_services),
      m_survey(m_services),
      m_selection(m_services, m_finisher, m_survey, *this),
      m_scope(m_services.loop, m_services.workers)
{
}

CaptureCoordinator::~CaptureCoordinator()
{
    // The runs that unwind now must not start what waits behind them.
    m_queue = {};
    m_deferredForeground.clear();
}

// --- Requests

void CaptureCoordinator::capture(CaptureRequest request)
{
    m_services.trace.mark("t1 coordinator entry (" + rawString(request.mode) + ")");
    m_services.ports.history.tell(&CaptureHistory::suspendIndexing);
    if (!m_isCapturing)
        startRun(std::move(request));
    else if (m_selection.isOverlayUp())
        arbitrateWithOverlay(std::move(request));
    else
        arbitrateWithoutOverlay(std::move(request));
}

void CaptureCoordinator::startRun(CaptureRequest request)
{
    // What the loupe covered may not be painted again yet.
    request.options.waitsForRepaint |= abandonColorPicking();
    if (!ensureScreenAccess()) {
        if (m_activeRuns == 0)
            m_services.ports.history.tell(&CaptureHistory::scheduleIdleIndex);
        give(std::move(request.reply), CaptureOutcome::Kind::refused);
        return;
    }
    m_isCapturing = true;
    m_selectionUIDone = false;
    m_currentRun = std::make_shared<CaptureRun>(CaptureRun{
        .generation = ++m_runGeneration,
        .mode = request.mode,
        .options = request.options,
        .reply = std::move(request.reply),
        .requestID = request.id,
    });
    Scope::start(run(m_currentRun), "Capture");
}

void CaptureCoordinator::arbitrateWithoutOverlay(CaptureRequest request)
{
    if (m_selectionUIDone) {
        m_queue.add(std::move(request));
        m_services.trace.mark("  shot landed \u2014 QUEUED");
    } else if (m_services.engine.cancelInteractivePick(livePickerMinAge)) {
        m_queue.add(std::move(request));
        m_services.trace.mark("  picker live \u2014 RESTARTING");
    } else {
        m_services.trace.mark("  aim not up yet \u2014 press ignored");
        give(std::move(request.reply), CaptureOutcome::Kind::ignored);
    }
}

void CaptureCoordinator::arbitrateWithOverlay(CaptureRequest request)
{
    const QString mode = rawString(request.mode);
    // A selection made beforehand has nothing to do with the overlay that is up.
    if (!m_selection.isSameAsOverlay(request.mode) || request.options.rect) {
        m_queue.add(std::move(request));
        m_services.trace.mark("  overlay live \u2014 SWITCHING to " + mode);
        m_services.overlay.cancel();
    } else if (m_services.overlay.isCommitting()) {
        m_queue.add(std::move(request));
        m_services.trace.mark("  drag committing \u2014 press QUEUED as next capture");
    } else {
        m_services.overlay.reassertPresence();
        m_services.trace.mark("  overlay already in " + mode + " mode \u2014 re-asserted");
        give(std::move(request.reply), CaptureOutcome::Kind::ignored);
    }
}

void CaptureCoordinator::cancelAim()
{
    if (m_selection.isOverlayUp())
        m_services.overlay.cancel();
}

void CaptureCoordinator::cancelCountdown()
{
    m_selfTimer.cancel();
}

void CaptureCoordinator::cancel(quint64 requestID)
{
    m_queue.cancel(requestID);
    m_selection.cancelReading(requestID);
    if (m_currentRun && m_currentRun->requestID == requestID && !m_selectionUIDone) {
        m_currentRun->isCancelled = true;
        cancelAim();
        cancelCountdown();
    }
}

// --- Access

bool CaptureCoordinator::ensureScreenAccess()
{
    const Ports& ports = m_services.ports;
    abandonColorPicking();
    if (!ports.account || ports.account->isSignedIn()) {
        ports.account.tell(&AccountStatus::refreshCredentials, credentialsMaxAge);
        return ensurePermission();
    }
    if (m_services.preferences.get(Settings::hasCompletedOnboarding))
        ports.help.tell(&HelpWindows::showHome);
    else
        ports.help.tell(&HelpWindows::showOnboarding, true);
    return false;
}

bool CaptureCoordinator::abandonColorPicking()
{
    const Port<ColorPicking>& picking = m_services.ports.colorPicking;
    return picking && picking->abandon();
}

bool CaptureCoordinator::ensurePermission()
{
    if (m_services.mayRecordScreen())
        return true;
    if (m_services.preferences.get(Settings::hasCompletedOnboarding))
        m_services.ports.help.tell(&HelpWindows::showPermissionWindow);
    else
        m_services.ports.help.tell(&HelpWindows::showOnboarding, false);
    return false;
}

// --- Runs

QCoro::Task<> CaptureCoordinator::run(Run run)
{
    ++m_activeRuns;
    const auto leave = qScopeGuard([this, run] { leaveRun(run); });
    try {
        m_services.ports.effects.tell(&CaptureEffects::prewarm);
        co_await m_scope.join(dispatch(run));
    } catch (const std::exception&) {
        abandon(run, Guarded::reason());
    }
}

QCoro::Task<> CaptureCoordinator::dispatch(Run run)
{
    switch (run->mode) {
    case CaptureMode::area:
        return m_selection.runAreaSelection(run, false);
    case CaptureMode::window:
        return m_selection.runWindowSelection(run);
    case CaptureMode::fullScreen:
        return runFullScreen(run, {}, {});
    case CaptureMode::lastArea:
        return runLastArea(run);
    case CaptureMode::ocrRegion:
        return m_selection.runAreaSelection(run, true);
    case CaptureMode::timed:
        return runTimed(run);
    }
    Q_UNREACHABLE();
}

void CaptureCoordinator::leaveRun(const Run& run)
{
    --m_activeRuns;
    selectionEnded(run);
    run->reply.give({});
    if (m_activeRuns == 0)
        m_services.ports.history.tell(&CaptureHistory::scheduleIdleIndex);
}

void CaptureCoordinator::leaveInteractivePhase(const Run& run)
{
    if (run->generation == m_runGeneration)
        m_selectionUIDone = true;
}

void CaptureCoordinator::selectionEnded(const Run& run, std::optional<DisplayArea> area)
{
    if (std::exchange(run->hasEndedSelection, true))
        return;
    if (m_chromeHiddenBy == run->generation) {
        m_chromeHiddenBy.reset();
        showChrome();
    }
    if (area)
        m_lastArea = area;
    if (run->generation != m_runGeneration)
        return;
    m_selectionUIDone = true;
    if (std::exchange(m_isCapturing, false))
        startNext();
    flushDeferredForeground();
}

// One that is refused makes room for the one behind it.
void CaptureCoordinator::startNext()
{
    while (!m_isCapturing && !m_queue.isEmpty()) {
        CaptureRequest next = m_queue.takeNext();
        // What the overlay covered a moment ago may not be painted again yet.
        next.options.waitsForRepaint = true;
        capture(std::move(next));
    }
}

void CaptureCoordinator::abandon(const Run& run, const QString& message)
{
    selectionEnded(run);
    if (run->mode != CaptureMode::ocrRegion)
        m_services.ports.cards.tell(&CardPile::settleAfterAbandonedCapture);
    if (!message.isEmpty())
        run->fail(message);
}

void CaptureCoordinator::whenForegroundIsFree(std::function<void()> work)
{
    m_deferredForeground.push_back(std::move(work));
    flushDeferredForeground();
}

void CaptureCoordinator::flushDeferredForeground()
{
    if (m_isCapturing)
        return;
    for (const auto& work : std::exchange(m_deferredForeground, {}))
        work();
}

Subscription CaptureCoordinator::onCaptureFinished(std::function<void(const CaptureResult&)> observer)
{
    return m_finisher.onCaptureFinished(std::move(observer));
}

// --- What all flows use

bool CaptureCoordinator::hideChrome(const Run& run, bool withToasts)
{
    const Ports& ports = m_services.ports;
    const bool hidesAll = m_services.preferences.get(Settings::hideChromeFromRecordings);
    m_chromeHiddenBy = run->generation;
    bool changesScreen = hidesAll && ports.cards && ports.cards->setHiddenForCapture(true);
    for (CaptureChrome* chrome : ports.chrome)
        if (hidesAll || chrome->alwaysMakesWay())
            changesScreen |= chrome->setHiddenForCapture(true);
    if (hidesAll && withToasts && ports.toasts)
        changesScreen |= ports.toasts->setHiddenForCapture(true);
    return changesScreen;
}

void CaptureCoordinator::showChrome()
{
    const Ports& ports = m_services.ports;
    ports.cards.tell(&CardPile::setHiddenForCapture, false);
    for (CaptureChrome* chrome : ports.chrome)
        chrome->setHiddenForCapture(false);
    ports.toasts.tell(&Toasts::setHiddenForCapture, false);
}

QCoro::Task<> CaptureCoordinator::hideChromeAndRepaint(Run run)
{
    const bool changesScreen = hideChrome(run, true);
    if (changesScreen || run->options.waitsForRepaint)
        co_await m_scope.reply<bool>([this](auto done) { m_services.pixels.whenRepainted(done); });
}

// --- Full screen, last area, timed

QCoro::Task<> CaptureCoordinator::runFullScreen(Run run, std::optional<Display> on, std::optional<Display> previewOn)
{
    if (run->mode == CaptureMode::fullScreen) {
        leaveInteractivePhase(run);
        co_await hideChromeAndRepaint(run);
    }
    std::optional<Display> target = on;
    if (!target)
        target = co_await m_scope.join(m_survey.screenUnderMouse());
    if (!target) {
        abandon(run, "There is no display to capture");
        co_return;
    }
    const quint32 cardDisplay = previewOn.value_or(*target).id;
    m_services.ports.cards.tell(&CardPile::prepareForIncomingCapture, cardDisplay);
    const bool showCursor = m_services.preferences.get(Settings::showCursorInCapture);
    PixelSource::Outcome grab = co_await m_scope.join(m_services.engine.pixels(target->pixelRect, showCursor));
    m_services.trace.mark(
        QString("t2 display grabbed in-process (%1)").arg(grab && grab->isInProcess ? "true" : "false"));
    if (!grab) {
        abandon(run, "The display could not be captured: " + grab.error().reason);
        co_return;
    }
    m_services.ports.effects.tell(&CaptureEffects::playShutterIfEnabled);
    selectionEnded(run);
    CaptureFinisher::Pixels pixels{
        .image = grab->image,
        .mode = run->mode,
        .displayID = target->id,
        .cardDisplayID = cardDisplay,
        .pixelScale = target->scale,
        .sourceApp = {},
    };
    pixels.sourceApp = co_await m_scope.join(m_survey.sourceAppUnder(target->pixelRect));
    co_await m_scope.join(m_finisher.finish(std::move(pixels), run));
}

QCoro::Task<> CaptureCoordinator::runLastArea(Run run)
{
    if (!m_lastArea) {
        run->mode = CaptureMode::area;
        co_await m_scope.join(m_selection.runAreaSelection(run, false));
        co_return;
    }
    leaveInteractivePhase(run);
    co_await hideChromeAndRepaint(run);
    const DisplayList displays = m_services.displays.all();
    const Display* remembered = displayWithID(displays, m_lastArea->displayID);
    std::optional<Display> display;
    if (remembered)
        display = *remembered;
    else
        display = co_await m_scope.join(m_survey.screenUnderMouse());
    if (!display) {
        abandon(run, "There is no display to capture");
        co_return;
    }
    const QRect rootPixels = m_lastArea->pixels.translated(display->pixelRect.topLeft());
    PixelSource::Outcome grab = co_await m_scope.join(m_services.engine.pixels(rootPixels, false));
    if (!grab) {
        abandon(run, "The last area could not be captured: " + grab.error().reason);
        co_return;
    }
    co_await m_scope.join(m_selection.finishArea(run, grab->image, rootPixels, *display, false));
}

QCoro::Task<> CaptureCoordinator::runTimed(Run run)
{
    const std::optional<Display> screen = co_await m_scope.join(m_survey.screenUnderMouse());
    if (!screen) {
        abandon(run, "There is no display to capture");
        co_return;
    }
    if (run->isCancelled) {
        abandon(run, {});
        co_return;
    }
    hideChrome(run, false);
    const bool isDone = co_await m_scope.join(m_selfTimer.countDown(screen->id));
    if (!isDone) {
        abandon(run, {});
        co_return;
    }
    // The toast is fading out; it must not be in the picture.
    m_chromeHiddenBy = run->generation;
    m_services.ports.toasts.tell(&Toasts::setHiddenForCapture, true);
    leaveInteractivePhase(run);
    co_await m_scope.reply<bool>([this](auto done) { m_services.pixels.whenRepainted(done); });
    std::optional<Display> previewOn = co_await m_scope.join(m_survey.screenUnderMouse());
    const DisplayList displays = m_services.displays.all();
    const Display* remembered = displayWithID(displays, screen->id);
    co_await runFullScreen(run, remembered ? std::optional(*remembered) : previewOn, previewOn);
}

// --- Reopening

void CaptureCoordinator::reopenClosed(std::function<void(bool)> reply)
{
    m_reopener.reopenClosed(std::move(reply));
}

void CaptureCoordinator::presentFromHistory(QUuid id, std::function<void(bool)> reply)
{
    m_reopener.presentFromHistory(id, std::move(reply));
}

} // namespace Kovrel
