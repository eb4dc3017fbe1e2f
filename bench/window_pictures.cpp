// Takes a picture of every window and state, light and dark, into a folder, to be looked at:
//
//     QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=2 bench_window_pictures FOLDER
#include "toasts/ToastPanel.h"
#include "welcome/HomeWindow.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QScreen>
#include <QStyleFactory>

namespace Kovrel {

namespace {

struct Pictures {
    QString folder;
    QString look;
    QColor desktop;

    void save(const QString& name, QWidget& widget) const
    {
        widget.ensurePolished();
        widget.adjustSize();
        QPixmap picture(widget.size() * widget.devicePixelRatioF());
        picture.setDevicePixelRatio(widget.devicePixelRatioF());
        picture.fill(desktop);
        widget.render(&picture, {}, {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
        picture.save(folder + '/' + name + '-' + look + ".png");
    }
};

QPalette darkPalette()
{
    QPalette palette(QColor(40, 42, 48), QColor(32, 33, 38));
    palette.setColor(QPalette::Base, QColor(28, 29, 33));
    palette.setColor(QPalette::WindowText, QColor(240, 240, 244));
    palette.setColor(QPalette::ButtonText, QColor(240, 240, 244));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 120, 126));
    return palette;
}

void homeWindows(const Pictures& pictures, Preferences& preferences)
{
    for (const bool isSignedIn : {false, true})
        for (const bool isBlocked : {false, true}) {
            HomeWindow window(preferences,
                              {
                                  .isSignedIn = [=] { return isSignedIn; },
                                  .signIn = [] {},
                                  .obstacle =
                                      [=] {
                                          return isBlocked ? QString("Nothing can be captured "
                                                                     "here, and this is why.")
                                                           : QString();
                                      },
                                  .isEnabled = [](const auto& entry) { return entry.arguments.front() == "capture"; },
                                  .perform = [](const auto&) {},
                              });
            window.refresh();
            pictures.save(QString("home-%1%2").arg(isSignedIn ? "commands" : "welcome", isBlocked ? "-blocked" : ""),
                          window);
        }
}

void toasts(const Pictures& pictures)
{
    const std::pair<const char*, ToastContent> contents[] = {
        {"countdown", {.message = "Capturing in 3\u2026", .icon = "timer"}},
        {"failed",
         {.message = "The capture could not be saved",
          .subtitle = "/media/stick is full; kept as /home/me/Documents/Kovrel/Screenshot.png",
          .icon = "exclamationmark.triangle"}},
        {"copied", {.message = "Text and QR code copied", .icon = "doc.on.clipboard.fill"}},
        {"text", {.message = "Extracting text\u2026", .icon = "text.viewfinder", .showsSpinner = true}},
        {"codes", {.message = "2 QR codes copied", .subtitle = "https://example.org/a/path", .icon = "qrcode"}},
        {"saved", {.message = "Saved to Kovrel"}},
    };
    const Kovrel::Display display{.name = QGuiApplication::primaryScreen()->name()};
    for (const auto& [name, content] : contents)
        for (const bool isComposited : {true, false}) {
            ToastPanel panel(content, display, isComposited);
            pictures.save(QString("toast-%1%2").arg(name, isComposited ? "" : "-opaque"), panel);
        }
}

void takeAll(const QString& folder)
{
    UserDefaults defaults(QDir::temp().filePath("kovrel-window-pictures.conf"));
    Preferences::registerDefaults(defaults);
    Preferences preferences(defaults);
    QDir().mkpath(folder);
    const QString scale = QString::number(qApp->devicePixelRatio()) + "x";
    for (const bool isDark : {false, true}) {
        QApplication::setPalette(isDark ? darkPalette() : QPalette(QColor(239, 239, 239)));
        const Pictures pictures{folder, (isDark ? "dark-" : "light-") + scale,
                                isDark ? QColor("#20232b") : QColor("#c9d3e6")};
        homeWindows(pictures, preferences);
        toasts(pictures);
    }
}

} // namespace

} // namespace Kovrel

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    Kovrel::takeAll(argv[1]);
    return 0;
}
