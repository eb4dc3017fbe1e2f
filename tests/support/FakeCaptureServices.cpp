#include "tests/support/FakeCaptureServices.h"

namespace Kovrel::Testing {

namespace {

QString describe(const QRect& rect)
{
    return QString("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

QImage picture(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

QString hiding(const char* what, bool isHidden)
{
    return QString("%1: %2").arg(what, isHidden ? "hide" : "show");
}

} // namespace

FakeCaptureServices::FakeCaptureServices()
{
    Preferences::registerDefaults(defaults);
    desktop.displays().displays = {
        {.id = 1,
         .name = "main",
         .frame = {0, 0, 1000, 500},
         .visibleFrame = {0, 0, 1000, 500},
         .pixelRect = {800, 200, 1000, 500},
         .scale = 1,
         .isPrimary = true},
        {.id = 2,
         .name = "left",
         .frame = {-800, 500, 400, 200},
         .visibleFrame = {},
         .pixelRect = {0, 0, 800, 400},
         .scale = 2,
         .isPrimary = false},
    };
    ports.account.offer(access);
    ports.help.offer(access);
    ports.delivery.offer(delivery);
    ports.editors.offer(delivery);
    ports.pins.offer(delivery);
    ports.effects.offer(reader);
    ports.textReader.offer(reader);
    ports.history.offer(history);
    ports.ledger.offer(history);
    ports.cards.offer(cards);
    ports.toasts.offer(toasts);
    ports.chrome = {&historyWindow};
    desktop.pointer().place = PointerPosition{{}, {}, 1};
    desktop.windows().windows.emplace();
    desktop.pixels().onWait = [this] { say("wait for repaint"); };
    desktop.keys().onRequest = [this](const QString& request) { say(request); };
}

CaptureServices FakeCaptureServices::services()
{
    return {
        .loop = loop,
        .workers = workers,
        .preferences = preferences,
        .trace = trace,
        .displays = desktop.displays(),
        .pointer = desktop.pointer(),
        .pixels = desktop.pixels(),
        .windows = desktop.windows(),
        .keys = desktop.keys(),
        .engine = engine,
        .overlay = overlay,
        .grabber = grabber,
        .backdrop = reader,
        .mayRecordScreen = [this] { return mayRecord; },
        .ports = ports,
    };
}

void FakeCaptureServices::releasePixels()
{
    holdsPixels = false;
    for (const auto& reply : std::exchange(engine.held, {}))
        reply({});
    loop.runPosted();
}

QCoro::Task<PixelSource::Outcome> FakeCaptureServices::Engine::pixels(QRect rootPixels, bool showCursor)
{
    fake.say("grab " + describe(rootPixels) + (showCursor ? " with pointer" : ""));
    co_await scope.reply<Nothing>([this](Reply<Nothing> done) {
        if (fake.holdsPixels)
            held.push_back(done);
        else
            fake.answer(done, Nothing{});
    });
    if (fake.grabThrows)
        throw std::bad_alloc();
    if (!fake.grabSucceeds)
        co_return std::unexpected(fake.grabFailure);
    co_return Grab{picture(rootPixels.size()), true};
}

QCoro::Task<PixelSource::Outcome> FakeCaptureServices::Engine::window(quint32 id)
{
    fake.say(QString("engine window %1").arg(id));
    if (!fake.grabSucceeds)
        co_return std::unexpected(fake.grabFailure);
    co_return Grab{picture({30, 20}), false};
}

bool FakeCaptureServices::Engine::cancelInteractivePick(std::chrono::milliseconds minAge)
{
    fake.say(QString("cancel picker older than %1").arg(minAge.count()));
    return fake.pickerIsOld;
}

void FakeCaptureServices::Overlay::begin(Mode mode, std::function<void(SelectionResult)> completion)
{
    fake.say(mode == Mode::areaDrag ? "overlay: area" : "overlay: window");
    fake.overlayCompletion = std::move(completion);
}

void FakeCaptureServices::Overlay::cancel()
{
    fake.say("overlay: cancel");
    fake.endSelection(SelectionCancelled{});
}

void FakeCaptureServices::Grabber::grab(QRect rootPixels, FrozenScreens, Reply<std::optional<QImage>> reply)
{
    fake.say("cut " + describe(rootPixels));
    fake.answer(reply, fake.frozenGrabSucceeds ? std::optional(picture(rootPixels.size())) : std::nullopt);
}

void FakeCaptureServices::Grabber::grabWindows(std::vector<WindowInfo> windows, FrozenScreens,
                                               Reply<std::optional<QImage>> reply)
{
    fake.say(QString("grab window %1").arg(windows.front().id));
    fake.answer(reply, fake.windowGrabSucceeds ? std::optional(picture({30, 20})) : std::nullopt);
}

bool FakeCaptureServices::Cards::setHiddenForCapture(bool isHidden)
{
    fake.say(hiding("cards", isHidden));
    return fake.chromeIsVisible;
}

void FakeCaptureServices::Cards::prepareForIncomingCapture(std::optional<quint32> nearDisplay)
{
    fake.say(QString("cards: prepare on %1").arg(nearDisplay.value_or(0)));
}

void FakeCaptureServices::Cards::present(Card card)
{
    fake.say("card " + rawString(card.result.mode));
    fake.cardsShown.push_back(std::move(card));
}

bool FakeCaptureServices::HistoryWindow::setHiddenForCapture(bool isHidden)
{
    fake.say(hiding("history window", isHidden));
    return false;
}

bool FakeCaptureServices::ToastLog::setHiddenForCapture(bool isHidden)
{
    fake.say(hiding("toasts", isHidden));
    return false;
}

void FakeCaptureServices::ToastLog::present(ToastContent content, std::optional<quint32> displayID, bool)
{
    fake.say(QString("toast on %1: ").arg(displayID.value_or(0)) + content.message);
    fake.lastToast = std::move(content);
}

void FakeCaptureServices::ToastLog::update(ToastContent content, bool)
{
    fake.say("toast: " + content.message + (content.subtitle ? " / " + *content.subtitle : QString()));
    fake.lastToast = std::move(content);
}

std::shared_ptr<CaptureRecording>
FakeCaptureServices::History::record(CaptureResult result, std::shared_ptr<CaptureSave>, std::shared_ptr<EncodedPng>)
{
    fake.say("record " + rawString(result.mode));
    fake.recorded.push_back(std::move(result));
    auto recording = std::make_shared<CaptureRecording>();
    fake.loop.post([recording] { recording->finish("/history.png"); });
    return recording;
}

void FakeCaptureServices::History::setReading(QUuid, OCRResult text, std::vector<QRCode> codes)
{
    QStringList parts;
    if (!text.fullText.isEmpty())
        parts << text.fullText;
    for (const QRCode& code : codes)
        parts << code.payload;
    fake.say("history: text " + parts.join('\n'));
}

void FakeCaptureServices::History::load(QUuid id, Reply<std::optional<Reopened>> reply)
{
    CaptureResult result;
    result.id = id;
    result.image = fake.historyPicture;
    fake.answer(reply, std::optional(Reopened{result, result, {}}));
}

void FakeCaptureServices::Reader::read(QImage, double, std::stop_token stop, Reply<Reading> reply)
{
    fake.say("read text");
    if (fake.holdsReading)
        fake.heldReadings.emplace_back(stop, reply);
    else
        fake.answer(reply, fake.reading);
}

void FakeCaptureServices::Reader::captureWallpaper(quint32 displayID, int maxPixelSize,
                                                   Reply<std::optional<QImage>> reply)
{
    fake.say(QString("wallpaper of %1 at %2").arg(displayID).arg(maxPixelSize));
    fake.answer(reply, std::optional(picture({4, 4})));
}

void FakeCaptureServices::Reader::compose(QImage, WindowBackdropStyle style, std::optional<QImage> wallpaper,
                                          Reply<ComposedCapture> reply)
{
    fake.say("compose " + rawString(style) + (wallpaper ? " with picture" : ""));
    fake.answer(reply, ComposedCapture{picture({126, 116}), CaptureSubject{{48, 48, 30, 20}, 8}});
}

std::shared_ptr<CaptureSave> FakeCaptureServices::Delivery::save(CaptureResult, std::optional<QString> outputPath,
                                                                 std::shared_ptr<EncodedPng>)
{
    fake.say("save" + (outputPath ? " to " + *outputPath : QString()));
    auto save = std::make_shared<CaptureSave>();
    if (fake.holdsSaves)
        return save;
    fake.loop.post([save, error = fake.saveError] {
        save->finish(error ? SaveOutcome(std::unexpected(SaveProblem{*error})) : SaveOutcome("/saved.png"));
    });
    return save;
}

} // namespace Kovrel::Testing
