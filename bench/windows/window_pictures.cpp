// Takes a picture of every window and state into a folder, to be looked at: light and dark, both in high contrast, at
// scale 1 and 2, with a usual font and with one that is half as large again.
//
//     QT_QPA_PLATFORM=offscreen bench_window_pictures FOLDER
#include "bench/cards/MotionPictures.h"
#include "bench/windows/PictureLook.h"
#include "bench/windows/SettingsPictures.h"
#include "bench/windows/WelcomePictures.h"
#include "capture/selection/SelectionScene.h"
#include "cards/CardFace.h"
#include "cards/chords/CardChord.h"
#include "cards/menu/CardQuickActionsMenu.h"
#include "cards/panels/CardPanel.h"
#include "overlay/OverlayPainter.h"
#include "pins/PinMenu.h"
#include "pins/PinPanel.h"
#include "platform/desktop/QtMainLoop.h"
#include "toasts/ToastPanel.h"
#include "ui/tokens/SoftShadow.h"
#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QDir>
#include <QEnterEvent>
#include <QPainter>
#include <QScreen>
#include <QTemporaryDir>

namespace Kovrel {

namespace {

struct Look {
    ColorScheme scheme;
    double scale;
    bool hasLargeFont;

    QString name() const
    {
        return QString("%1%2-%3x%4")
            .arg(scheme.isDark ? "dark" : "light", scheme.isHighContrast ? "-contrast" : "", QString::number(scale),
                 hasLargeFont ? "-large" : "");
    }
};

struct Pictures {
    QString folder;
    Look look;

    void save(const QString& name, const QImage& picture) const
    {
        picture.save(folder + '/' + name + '-' + look.name() + ".png");
    }

    void save(const QString& name, QWidget& widget) const
    {
        widget.ensurePolished();
        widget.adjustSize();
        saveAsItIs(name, widget);
    }

    void saveAsItIs(const QString& name, QWidget& widget) const
    {
        QImage picture((QSizeF(widget.size()) * look.scale).toSize(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(look.scale);
        picture.fill(look.scheme.isDark ? QColor("#20232b") : QColor("#c9d3e6"));
        widget.render(&picture, {}, {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
        save(name, picture);
    }
};

void settings(const Pictures& pictures)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath("kovrel.conf"));
    Preferences::registerDefaults(defaults);
    Preferences preferences(defaults);
    SettingsPictures::take(preferences,
                           [&](const QString& name, QWidget& window) { pictures.saveAsItIs(name, window); });
}

struct NoShapes : PanelShapes {
    void takeInputOnlyIn(quintptr, const QRegion&) override {}
};

QImage landscape()
{
    QImage image(320, 200, QImage::Format_RGB32);
    QLinearGradient sky(0, 0, 0, 200);
    sky.setColorAt(0, QColor("#5a8dee"));
    sky.setColorAt(0.6, QColor("#f6c48f"));
    sky.setColorAt(0.61, QColor("#3d5a4c"));
    QPainter(&image).fillRect(image.rect(), sky);
    return image;
}

void toasts(const Pictures& pictures)
{
    const std::pair<const char*, ToastContent> contents[] = {
        {"countdown", {.message = "Capturing in 3\u2026", .icon = "timer"}},
        {"failed",
         {.message = "The capture could not be saved",
          .subtitle = "/media/stick is full; kept as /home/me/Documents/Kovrel/Screenshot.png",
          .icon = "exclamationmark.triangle"}},
        {"copied", {.message = "Text and QR code copied", .icon = "doc.on.clipboard.fill", .copied = true}},
        {"text", {.message = "Extracting text\u2026", .icon = "text.viewfinder", .showsSpinner = true}},
        {"codes",
         {.message = "2 QR codes copied",
          .subtitle = "https://example.org/a/path  (+1 more)",
          .icon = "qrcode",
          .copied = true}},
        {"saved", {.message = "Saved to Kovrel"}},
        {"image", {.message = "Copied to the clipboard", .copied = true, .image = landscape()}},
    };
    const Kovrel::Display display{
        .name = QGuiApplication::primaryScreen()->name(), .frame = {0, 0, 800, 600}, .pixelRect = {0, 0, 800, 600}};
    for (const auto& [name, content] : contents)
        for (const bool isComposited : {true, false}) {
            NoShapes shapes;
            ToastPanel panel(content, display, shapes, isComposited);
            const QString file = QString("toast-%1%2").arg(name, isComposited ? "" : "-opaque");
            pictures.save(file, panel);
            panel.popIn();
            QEnterEvent enter({}, {}, {});
            QCoreApplication::sendEvent(&panel, &enter);
            pictures.save(file + "-hovered", panel);
        }
}

struct OneDisplay : Displays {
    Kovrel::Display display{
        .name = QGuiApplication::primaryScreen()->name(), .frame = {0, 0, 800, 600}, .pixelRect = {0, 0, 800, 600}};
    bool hasCompositor;

    explicit OneDisplay(bool isComposited) : hasCompositor(isComposited) {}

    DisplayList all() const override { return {display}; }

    bool isComposited() const override { return hasCompositor; }

    Subscription onChange(std::function<void()>) override { return {}; }
};

void pins(const Pictures& pictures)
{
    for (const bool isComposited : {true, false})
        for (const QSize size : {QSize(320, 200), QSize(1600, 1000), QSize(60, 30)}) {
            OneDisplay displays(isComposited);
            NoShapes shapes;
            const QImage picture = landscape().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            PinPanel panel(picture, 1, displays, shapes, [](auto...) {});
            panel.setButtons(true, true);
            panel.spawnOn(displays.display, 0);
            const QString file = QString("pin-%1%2").arg(size.width()).arg(isComposited ? "" : "-opaque");
            pictures.save(file, panel);
            QEnterEvent enter({}, {}, {});
            QCoreApplication::sendEvent(&panel, &enter);
            pictures.save(file + "-hovered", panel);
        }
}

struct TwoPrograms : FilePrograms {
    void openers(const QString&, Reply<std::vector<FileProgram>> reply) override
    {
        reply({{.id = "a", .name = "Image Viewer"}, {.id = "b", .name = "Painting"}});
    }

    void open(const QString&) override {}

    void open(const QString&, const QString&) override {}

    void prefer(const QString&, const QString&) override {}

    bool canMail() const override { return true; }

    void mail(const QString&) override {}
};

void menus(const Pictures& pictures)
{
    TwoPrograms programs;
    CardQuickActionsMenu cards({.canPerform = [](auto) { return true; },
                                .keysOf = [](CardQuickAction action) -> std::optional<KeyCombo> {
                                    const auto* const keys =
                                        std::ranges::find(allCardChords, action, &CardChordKeys::action);
                                    return keys == allCardChords.end() ? std::nullopt : std::optional(keys->combo);
                                }},
                               programs);
    pictures.save("menu-card", cards);
    QWidget window;
    PinMenu pin(window, [](auto) { return true; }, true);
    pictures.save("menu-pin", pin);
}

// --- Cards

using namespace std::chrono_literals;

// What people take pictures of: a window with lines of text.
QImage capturedWindow(QSize points, double scale, const QColor& accent)
{
    QImage image((QSizeF(points) * scale).toSize(), QImage::Format_RGB32);
    image.fill(QColor("#fbfbfd"));
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.fillRect(QRect(0, 0, points.width(), points.height() / 9), accent);
    for (int line = 0; line < 7; ++line)
        painter.fillRect(QRectF(points.width() * 0.08, points.height() * (0.22 + 0.1 * line),
                                points.width() * (line % 3 == 2 ? 0.45 : 0.8), points.height() * 0.035),
                         QColor("#c3c9d6"));
    return image;
}

struct CardState {
    const char* name;
    CardLook look;
    bool isHovered = false;
};

CardLook cardLook(QSize points, const char* accent, double scale)
{
    const QImage capture = capturedWindow(points, scale, QColor(accent));
    const QSizeF size = CardFace::cardSize(capture.size());
    return {.id = QUuid::createUuid(),
            .displayID = 1,
            .place = QRectF(QPointF(), size),
            .face = CardFace::render(capture, scale, size, scale)};
}

std::vector<CardState> cardStates(const MainLoop& loop, double scale)
{
    const CardLook plain = cardLook({800, 500}, "#4c6ef5", scale);
    const Countdown running{.deadline = loop.now() + 6s, .total = 10s, .stoppedAt = {}};
    std::vector<CardState> states{{"resting", plain},
                                  {"hovered", plain, true},
                                  {"copied", plain},
                                  {"frozen", plain},
                                  {"saved", plain},
                                  {"saved-hovered", plain, true},
                                  {"code", plain},
                                  {"code-hovered", plain, true},
                                  {"portrait", cardLook({300, 600}, "#2f9e44", scale)},
                                  {"tiny", cardLook({40, 24}, "#e8590c", scale)},
                                  {"wide", cardLook({1400, 200}, "#ae3ec9", scale)},
                                  {"unreadable", plain}};
    for (CardState& state : states)
        state.look.countdown = running;
    states[2].look.isCopied = true;
    states[3].look.isFrozen = true;
    for (const size_t saved : {4, 5})
        states[saved].look.isSaved = true;
    for (const size_t coded : {6, 7})
        states[coded].look.code = CardCode{"https://kovrel.example.org/a/path/that/is/long"};
    states.back().look.face = {};
    return states;
}

// With its upper left corner at a point.
void paintCard(QPainter& painter, QPointF at, const CardState& state, bool isComposited, double scale)
{
    static QtMainLoop loop;
    NoShapes shapes;
    using enum CardQuickAction;
    const Kovrel::Display points{.name = QGuiApplication::primaryScreen()->name(), .pixelRect = {0, 0, 2000, 2000}};
    Kovrel::Display pixels = points;
    pixels.scale = scale;
    CardPanel panel(shapes, loop,
                    {.isComposited = isComposited,
                     .position = PreviewPosition::bottomRight,
                     .offer = {.actions = {copy, save, edit, pin}, .hasMenu = true},
                     .display = pixels});
    panel.setLook(state.look);
    panel.place(points, QRect(QPoint(500, 500), state.look.place.size().toSize()));
    panel.setHovered(state.isHovered);
    const double room = isComposited ? SoftShadow::floatingRoom : 0;
    panel.render(&painter, (at - QPointF(room, room)).toPoint(), {}, QWidget::DrawChildren);
}

// All states beside each other on a desktop.
void cards(const Pictures& pictures, bool isComposited)
{
    const double scale = pictures.look.scale;
    const QSize points(1020, 640);
    QImage picture((QSizeF(points) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    QLinearGradient desktop(0, 0, points.width(), points.height());
    desktop.setColorAt(0, QColor("#dfe9f5"));
    desktop.setColorAt(1, QColor("#1b2a41"));
    painter.fillRect(QRect(QPoint(), points), desktop);
    QPointF at(40, 40);
    const QtMainLoop loop;
    for (const CardState& state : cardStates(loop, scale)) {
        paintCard(painter, at, state, isComposited, scale);
        at.rx() += CardFace::width + 28;
        if (at.x() + CardFace::width > points.width())
            at = {40, at.y() + CardFace::mostHeight + 36};
    }
    painter.end();
    pictures.save(isComposited ? "cards" : "cards-opaque", picture);
}

// A desktop that is light at the left and dark at the right.
QImage screen(const QRect& rect)
{
    QImage image(rect.size(), QImage::Format_RGB32);
    QLinearGradient gradient(0, 0, rect.width(), 0);
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, QColor("#102030"));
    QPainter(&image).fillRect(rect, gradient);
    return image;
}

void overlays(const Pictures& pictures)
{
    const double scale = pictures.look.scale;
    const QRect rect(QPoint(), (QSizeF(800, 500) * scale).toSize());
    const Display display{.id = 1, .pixelRect = rect, .scale = scale};
    const auto at = [&](double x, double y) { return QPoint(int(x * scale), int(y * scale)); };
    const QRect area(at(150, 90), at(520, 320));
    const std::pair<const char*, SelectionScene::Moment> moments[] = {
        {"hint", {.pointer = at(300, 200), .showsHint = true}},
        {"area", {.area = area, .isDragging = true, .pointer = area.bottomRight()}},
        {"window",
         {.isWindowMode = true,
          .windows = {area},
          .windowsInSight = area,
          .pointer = area.center(),
          .showsHint = true}},
    };
    for (const auto& [name, moment] : moments) {
        const OverlayScene scene = SelectionScene::of(display, moment);
        const QImage bare = screen(rect);
        QImage picture = bare;
        QPainter painter(&picture);
        for (const QRect& part : QRegion(rect) - scene.lit)
            painter.fillRect(part, OverlayPainter::shade());
        OverlayPainter overlay;
        for (const auto& decoration : scene.decorations)
            overlay.draw(painter, decoration, bare, rect);
        painter.end();
        pictures.save(QString("overlay-") + name, picture);
    }
}

void takeAll(const QString& folder)
{
    UserDefaults defaults(QDir::temp().filePath("kovrel-window-pictures.conf"));
    Preferences::registerDefaults(defaults);
    Preferences preferences(defaults);
    QDir().mkpath(folder);
    const QFont usualFont = QApplication::font();
    for (const ColorScheme scheme : {ColorScheme{}, {true, false}, {false, true}, {true, true}})
        for (const double scale : {1.0, 2.0})
            for (const bool hasLargeFont : {false, true}) {
                const Pictures pictures{folder, {scheme, scale, hasLargeFont}};
                QFont font = usualFont;
                font.setPixelSize(hasLargeFont ? 20 : 13);
                QApplication::setFont(font);
                QApplication::setPalette(Theme::of(scheme).palette());
                WelcomePictures::take(preferences,
                                      [&](const QString& name, QWidget& window) { pictures.save(name, window); });
                toasts(pictures);
                pins(pictures);
                menus(pictures);
                settings(pictures);
                cards(pictures, true);
                cards(pictures, false);
                if (scale == 1 && !hasLargeFont)
                    pictures.save("motion", MotionPictures::ofCards(capturedWindow({800, 500}, 1, QColor("#4c6ef5"))));
                if (scheme == ColorScheme{} && !hasLargeFont)
                    overlays(pictures);
            }
}

} // namespace

} // namespace Kovrel

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    Kovrel::Bench::takePictureLook(application);
    Kovrel::takeAll(argv[1]);
    return 0;
}
