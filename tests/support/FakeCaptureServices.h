#pragma once

#include "capture/CaptureServices.h"
#include "capture/pixels/PixelSource.h"
#include "capture/pixels/WindowBackdrop.h"
#include "capture/selection/SelectionGrabber.h"
#include "platform/Scope.h"
#include "ports/AccountStatus.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureEditors.h"
#include "ports/CaptureEffects.h"
#include "ports/CaptureHistory.h"
#include "ports/CapturePins.h"
#include "ports/CaptureTrace.h"
#include "ports/CardPile.h"
#include "ports/HelpWindows.h"
#include "ports/Ports.h"
#include "ports/ReopenLedger.h"
#include "ports/TextReader.h"
#include "ports/Toasts.h"
#include "preferences/Preferences.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

namespace Kovrel::Testing {

// Everything that the coordinator reaches, as one log of what was asked of it in order. Questions are answered through
// the main loop, as the real services do; the pixels wait while `holdsPixels` is on.
struct FakeCaptureServices {
    using Log = std::vector<std::string>;

    FakeCaptureServices();
    CaptureServices services();

    void say(const QString& line) { log.push_back(line.toStdString()); }

    Log takeLog() { return std::exchange(log, {}); }

    bool logged(const std::string& line) const { return std::find(log.begin(), log.end(), line) != log.end(); }

    Log log;
    FakeMainLoop loop;
    FakeWorkers workers;
    TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    CaptureTrace trace{loop, [] { return false; }};

    FakeDesktop desktop{loop};

    // How the others answer.
    bool grabSucceeds = true;
    bool grabThrows = false;
    PixelSource::Failure grabFailure{GrabFailure::refused, "the desktop does not give its pixels"};
    bool holdsPixels = false;
    bool frozenGrabSucceeds = true;
    bool windowGrabSucceeds = true;
    bool chromeIsVisible = true;
    bool cardsCanPresent = true;
    bool historyRecords = true;
    bool isSignedIn = true;
    bool mayRecord = true;
    bool pickerIsOld = false;
    bool isCommitting = false;
    std::optional<QString> saveError;
    TextReader::Reading reading;
    bool holdsReading = false;
    bool holdsSaves = false; // they never end
    std::optional<std::vector<QRCode>> codesFound;
    QImage historyPicture;
    ToastContent lastToast;
    std::optional<QUuid> lastClosed;

    // What came of it.
    std::function<void(SelectionResult)> overlayCompletion;
    Observers<SelectionOverlay::Mode> modeObservers;
    Observers<QUuid> forgotten;
    Observers<QUuid> pictureChanged;
    std::vector<CaptureResult> recorded;
    std::vector<CardPile::Card> cardsShown;
    std::vector<std::pair<std::stop_token, Reply<TextReader::Reading>>> heldReadings;

    void endSelection(SelectionResult result) { std::exchange(overlayCompletion, nullptr)(std::move(result)); }

    void releasePixels();

    struct Engine : PixelSource {
        explicit Engine(FakeCaptureServices& f) : fake(f), scope(f.loop, f.workers) {}

        QCoro::Task<Outcome> pixels(QRect rootPixels, bool showCursor) override;
        QCoro::Task<Outcome> window(quint32 id) override;
        bool cancelInteractivePick(std::chrono::milliseconds minAge) override;
        FakeCaptureServices& fake;
        std::vector<Reply<Nothing>> held;
        Scope scope;
    } engine{*this};

    struct Overlay : SelectionOverlay {
        explicit Overlay(FakeCaptureServices& f) : fake(f) {}

        void begin(Mode mode, std::function<void(SelectionResult)> completion) override;

        Subscription onModeChange(std::function<void(Mode)> callback) override
        {
            return fake.modeObservers.add(std::move(callback));
        }

        void applyFrozenImages() override { fake.say("overlay: freeze"); }

        FrozenScreens takeFrozenImages() override { return {}; }

        void reassertPresence() override { fake.say("overlay: reassert"); }

        void cancel() override;

        bool isCommitting() const override { return fake.isCommitting; }

        FakeCaptureServices& fake;
    } overlay{*this};

    struct Grabber : SelectionGrabber {
        explicit Grabber(FakeCaptureServices& f) : fake(f) {}

        void prewarm() override {}

        void grab(QRect rootPixels, FrozenScreens, Reply<std::optional<QImage>> reply) override;
        void grabWindows(std::vector<WindowInfo> windows, FrozenScreens, Reply<std::optional<QImage>> reply) override;
        FakeCaptureServices& fake;
    } grabber{*this};

    struct Cards : CardPile {
        explicit Cards(FakeCaptureServices& f) : fake(f) {}

        bool setHiddenForCapture(bool isHidden) override;

        bool canPresent() const override { return fake.cardsCanPresent; }

        void prepareForIncomingCapture(std::optional<quint32> nearDisplay) override;

        void settleAfterAbandonedCapture() override { fake.say("cards: settle"); }

        void present(Card card) override;

        void attachCaptureSave(std::shared_ptr<CaptureSave>, QUuid) override { fake.say("cards: attach save"); }

        void attachRecording(std::shared_ptr<CaptureRecording>, QUuid) override {}

        bool hasCards() const override { return !fake.cardsShown.empty(); }

        void setTemporarilyHidden(bool) override {}

        bool isTemporarilyHidden() const override { return false; }

        void holdCountdowns(CountdownHold, bool) override {}

        FakeCaptureServices& fake;
    } cards{*this};

    struct HistoryWindow : CaptureChrome {
        explicit HistoryWindow(FakeCaptureServices& f) : fake(f) {}

        bool setHiddenForCapture(bool isHidden) override;

        bool alwaysMakesWay() const override { return makesWay; }

        FakeCaptureServices& fake;
        bool makesWay = false;
    } historyWindow{*this};

    struct ToastLog : Toasts {
        explicit ToastLog(FakeCaptureServices& f) : fake(f) {}

        bool setHiddenForCapture(bool isHidden) override;
        void present(ToastContent content, std::optional<quint32> displayID, bool sound) override;
        void update(ToastContent content, bool sound) override;

        void showSaved(const QString& path, std::optional<quint32>) override { fake.say("toast: saved " + path); }

        void armCountdown(std::optional<double>) override {}

        void dismiss(bool animated) override { fake.say(animated ? "toast: fade" : "toast: gone"); }

        FakeCaptureServices& fake;
    } toasts{*this};

    struct History : CaptureHistory, ReopenLedger {
        explicit History(FakeCaptureServices& f) : fake(f) {}

        void suspendIndexing() override { fake.say("history: suspend"); }

        void scheduleIdleIndex() override { fake.say("history: idle index"); }

        bool isRecording() const override { return fake.historyRecords; }

        std::shared_ptr<CaptureRecording> record(CaptureResult result, std::shared_ptr<CaptureSave>,
                                                 std::shared_ptr<EncodedPng>) override;
        void setReading(QUuid, OCRResult text, std::vector<QRCode> codes) override;

        void load(QUuid id, Reply<std::optional<Reopened>> reply) override;

        void setSavedPath(QUuid, std::optional<QString>) override {}

        void rotate(QUuid, QuarterTurn turn, Reply<bool> done) override
        {
            fake.say(turn == QuarterTurn::left ? "history: turn left" : "history: turn right");
            fake.answer(done, true);
        }

        Subscription onForget(std::function<void(QUuid)> observer) override
        {
            return fake.forgotten.add(std::move(observer));
        }

        Subscription onPictureChange(std::function<void(QUuid)> observer) override
        {
            return fake.pictureChanged.add(std::move(observer));
        }

        void rememberSavedFile(QUuid, const QString& path) override { fake.say("ledger: " + path); }

        std::optional<QString> savedFile(QUuid) const override { return {}; }

        void rememberClosed(QUuid) override {}

        void forgetClosed(QUuid) override {}

        std::optional<QUuid> takeLastClosed() override { return std::exchange(fake.lastClosed, std::nullopt); }

        FakeCaptureServices& fake;
    } history{*this};

    struct Reader : TextReader, CaptureEffects, WindowBackdrop {
        explicit Reader(FakeCaptureServices& f) : fake(f) {}

        void expectReading() override { fake.say("text: expect"); }

        void read(QImage image, double pixelScale, std::stop_token stop, Reply<Reading> reply) override;

        void readText(QImage, QualityOfService, bool, std::stop_token, Reply<OCROutcome> reply) override
        {
            reply(fake.reading.text);
        }

        void readCodes(QImage, Reply<std::optional<std::vector<QRCode>>> reply) override
        {
            fake.answer(reply, fake.codesFound);
        }

        void prewarm() override { fake.say("effects: prewarm"); }

        void playShutterIfEnabled() override { fake.say("shutter"); }

        void playToastIfEnabled() override { fake.say("toast sound"); }

        void previewShutter() override {}

        void previewVolume() override {}

        void applyVolume() override {}

        void captureWallpaper(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override;
        void compose(QImage window, WindowBackdropStyle style, std::optional<QImage> wallpaper,
                     Reply<ComposedCapture> reply) override;
        FakeCaptureServices& fake;
    } reader{*this};

    struct Access : AccountStatus, HelpWindows {
        explicit Access(FakeCaptureServices& f) : fake(f) {}

        AccountKind kind() const override { return fake.isSignedIn ? AccountKind::thisComputer : AccountKind::none; }

        void whenKnown(std::function<void()> work) override { work(); }

        Subscription onChange(std::function<void()>) override { return {}; }

        void signInOnThisComputer() override {}

        void signOut() override {}

        void refreshCredentials(std::chrono::seconds) override {}

        void showHome() override { fake.say("show home"); }

        void showOnboarding(bool withSignIn) override { fake.say(withSignIn ? "show sign-in" : "show onboarding"); }

        void showPermissionWindow() override { fake.say("show permission"); }

        void presentUpdatedNotice(const QString&) override {}

        FakeCaptureServices& fake;
    } access{*this};

    struct Delivery : CaptureDelivery, CaptureEditors, CapturePins {
        explicit Delivery(FakeCaptureServices& f) : fake(f) {}

        std::shared_ptr<CaptureSave> save(CaptureResult result, std::optional<QString> outputPath,
                                          std::shared_ptr<EncodedPng>) override;

        void copy(CaptureResult, std::shared_ptr<EncodedPng>) override { fake.say("copy"); }

        void copyAsFile(const QString& path, std::shared_ptr<EncodedPng>) override { fake.say("copy as file " + path); }

        void copyText(const QString& text) override { fake.say("copy text " + text); }

        void reveal(const QString& path) override { fake.say("reveal " + path); }

        void openLink(const QUrl& url) override { fake.say("open " + url.toString()); }

        void open(CaptureResult) override { fake.say("editor"); }

        void openFiles(const QStringList&) override {}

        void pin(CaptureResult) override { fake.say("pin"); }

        FakeCaptureServices& fake;
    } delivery{*this};

    Ports ports;

private:
    template <class T>
    void answer(Reply<T> reply, T value)
    {
        loop.post([reply, value] { reply(value); });
    }
};

} // namespace Kovrel::Testing
