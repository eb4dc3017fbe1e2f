#include "bench/windows/WelcomePictures.h"

#include "feedback/FeedbackReport.h"
#include "feedback/FeedbackWindow.h"
#include "ui/controls/RowButton.h"
#include "welcome/FirstRunWindow.h"
#include "welcome/HomeWindow.h"
#include "welcome/PermissionWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>

namespace Kovrel {

namespace {

using Save = std::function<void(const QString& name, QWidget& window)>;

void home(Preferences& preferences, const Save& save)
{
    const QString obstacle = "Kovrel can't capture a Wayland session yet. Log out, choose an X11 (Xorg) session "
                             "at the login screen and start Kovrel there.";
    for (const bool isSignedIn : {false, true})
        for (const bool isBlocked : {false, true}) {
            HomeWindow window(preferences, "1.2",
                              {
                                  .isSignedIn = [=] { return isSignedIn; },
                                  .account = [=] { return isSignedIn ? AccountKind::thisComputer : AccountKind::none; },
                                  .signIn = [] {},
                                  .signOut = [] {},
                                  .obstacle = [=] { return isBlocked ? obstacle : QString(); },
                                  .newerVersion = [=]() -> std::optional<QString> {
                                      return isSignedIn ? std::optional<QString>("1.3") : std::nullopt;
                                  },
                                  .isEnabled = [](const auto& entry) { return entry.arguments.front() == "capture"; },
                                  .perform = [](const auto&) {},
                              });
            window.refresh();
            const QString name =
                QString("home-%1%2").arg(isSignedIn ? "commands" : "welcome", isBlocked ? "-blocked" : "");
            save(name, window);
            if (isBlocked)
                continue;
            window.showNotice("Kovrel was updated to version 1.2.");
            window.present();
            QApplication::setActiveWindow(&window);
            window.findChildren<RowButton*>().at(1)->setDown(true);
            save(name + "-focused", window);
        }
}

void goOn(QWidget& window)
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

FirstRunWindow::Services services(Preferences& preferences, bool hasTrouble)
{
    return {
        .hotkeys = {.preferences = preferences,
                    .isOffered = [](const auto&) { return true; },
                    .refusal = [=](const QString& setting) -> std::optional<QString> {
                        if (hasTrouble && setting == Settings::hotkeyWindow.name)
                            return "Super+Shift+5 belongs to another program; it is tried again when that lets it go";
                        return std::nullopt;
                    },
                    .borrowedKeys =
                        [=] { return hasTrouble ? QStringList{"Super+Shift+3", "Super+Shift+4"} : QStringList(); },
                    .changeKeys = [] {}},
        .login = {.isOn = [] { return true; }, .set = [](bool) {}},
        .hasTray = !hasTrouble,
        .signIn = [] {},
        .capture = [] {},
        .showsCards = [] { return true; },
        .closed = [] {}};
}

void firstRun(Preferences& preferences, const Save& save)
{
    for (const bool hasTrouble : {false, true}) {
        const QString kind = hasTrouble ? "-trouble" : "";
        FirstRunWindow window(services(preferences, hasTrouble));
        save("first-1-greeting" + kind, window);
        goOn(window);
        save("first-2-account" + kind, window);
        window.setSignedIn(true);
        window.present();
        QApplication::setActiveWindow(&window);
        save("first-3-keys" + kind, window);
        goOn(window);
        save("first-4-try" + kind, window);
        window.noteCapture();
        save("first-5-there" + kind, window);
        goOn(window);
        save("first-6-done" + kind, window);
    }
}

void permission(const Save& save)
{
    PermissionWindow window(
        {.reason = [] { return QString("Kovrel can't capture a Wayland session yet."); },
         .steps = {"Log out of this session.", "At the login screen, choose “Plasma (X11)” from the list of sessions.",
                   "Log in, and start Kovrel again."},
         .cleared = [] {}});
    window.present();
    save("permission", window);
    goOn(window);
    save("permission-still", window);
}

void feedback(const Save& save)
{
    FeedbackWindow window({.save = [](const auto&, auto*) {}, .copy = [](const auto&) {}, .mail = [](const auto&) {}});
    FeedbackReport::Facts facts{
        .version = "1.2 (build 3)",
        .system = "Debian GNU/Linux 12 (bookworm), linux 6.1.0-18-amd64, x86_64",
        .desktop = "KDE",
        .sessionType = "x11",
        .isComposited = true,
        .displays = {{.name = "DP-1", .pixelRect = {0, 0, 3840, 2160}, .scale = 1.5, .isPrimary = true}},
        .libraries = {"Qt 6.4.2 on xcb", "libspng.so.0.7.3"},
        .settings = {"imageFormat = jpeg", "fileNameTemplate is set"},
        .log = {"09:07:03 warning com.kovrel.save: ~/Documents/Kovrel: No space left on device"}};
    window.present(FeedbackReport::text(facts, PersonalTraces("/home/me", "me")));
    QApplication::setActiveWindow(&window);
    window.setMinimumSize(window.size());
    save("feedback", window);
    window.findChildren<QPlainTextEdit*>().first()->setPlainText("The window was black where a video played.");
    window.showNotice("Saved as /home/me/Kovrel feedback.txt.", false);
    save("feedback-saved", window);
}

} // namespace

void WelcomePictures::take(Preferences& preferences, const Save& save)
{
    home(preferences, save);
    firstRun(preferences, save);
    permission(save);
    feedback(save);
}

} // namespace Kovrel
