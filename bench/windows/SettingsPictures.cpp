#include "bench/windows/SettingsPictures.h"

#include "cards/PreviewDuration.h"
#include "platform/FilePanel.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "ports/CaptureEffects.h"
#include "settings/SettingsWindow.h"
#include "settings/controls/HotkeyButton.h"
#include "settings/pages/CapturePage.h"
#include "settings/pages/CardsPage.h"
#include "settings/pages/EditorPage.h"
#include "settings/pages/GeneralPage.h"
#include "settings/pages/HistoryPage.h"
#include "settings/pages/SavingPage.h"
#include "settings/pages/ShortcutsPage.h"
#include "settings/pages/SoundsPage.h"
#include "settings/pages/TextPage.h"
#include "settings/pages/UpdatesPage.h"
#include "ui/controls/LineField.h"

#include <QApplication>
#include <QThread>

namespace Kovrel {

namespace {

struct Silence : CaptureEffects {
    void prewarm() override {}

    void playShutterIfEnabled() override {}

    void playToastIfEnabled() override {}

    void previewShutter() override {}

    void previewVolume() override {}

    void applyVolume() override {}
};

struct NoPanel : FilePanel {
    void ask(const QString&, QWindow*, Reply<std::optional<QString>>) override {}

    void askForFolder(const QString&, QWindow*, Reply<std::optional<QString>>) override {}

    void askForFile(const QString&, QWindow*, Reply<std::optional<QString>>) override {}
};

struct NoKeys : KeyGrabs {
    std::expected<GrabID, Status> grab(KeyCombo, Handlers, Modifiers) override { return std::unexpected(10); }

    void release(GrabID) override {}

    std::expected<Subscription, Status> listen(std::function<void(Typed)>) override { return Subscription(); }

    Subscription onModifiersHeld(std::function<void()>) override { return {}; }

    Subscription onLayoutChange(std::function<void()>) override { return {}; }

    Subscription watchForTakeover(std::function<void()>) override { return {}; }
};

struct Parts {
    Preferences& preferences;
    QtMainLoop loop = {};
    ThreadWorkers workers = {};
    Silence effects = {};
    NoPanel panel = {};
    NoKeys keys = {};

    std::vector<SettingsPage> pages()
    {
        std::vector<SettingsPage> pages = SavingPage::make({loop, workers, panel, preferences});
        pages.push_back(GeneralPage::make(preferences, {.loginItem = {.read = [] { return true; }}}));
        pages.push_back(UpdatesPage::make({.preferences = preferences,
                                           .newerVersion = [] { return std::optional<QString>("1.3"); },
                                           .onChange = [](auto) { return Subscription(); }}));
        pages.push_back(CapturePage::make(preferences));
        pages.push_back(CardsPage::make(preferences, PreviewDuration::helpText("Ctrl+Alt+Z")));
        pages.push_back(EditorPage::make(preferences));
        pages.push_back(ShortcutsPage::make({.keys = keys,
                                             .preferences = preferences,
                                             .refusal = [](HotkeyAction action) { return refusal(action); },
                                             .onRefusals = [](auto) { return Subscription(); },
                                             .canBorrow = true,
                                             .borrowed = [] { return QStringList{"Super+Shift+3", "Super+Shift+4"}; },
                                             .giveBack = [] {}}));
        pages.push_back(HistoryPage::make({preferences, [] { return 3; }, [](int) { return 0; }}));
        pages.push_back(TextPage::make(
            preferences, [](const Reply<QStringList>& reply) { reply({"deu", "eng", "chi_sim", "jpn", "spa"}); }));
        pages.push_back(SoundsPage::make(preferences, effects));
        return pages;
    }

    static std::optional<QString> refusal(HotkeyAction action)
    {
        if (action == HotkeyAction::window)
            return "Super+Shift+5 belongs to another program; it is tried again when that lets it go";
        return std::nullopt;
    }
};

void settle()
{
    for (int round = 0; round < 5; ++round) {
        QApplication::processEvents();
        QThread::msleep(4);
    }
}

} // namespace

void SettingsPictures::take(Preferences& preferences,
                            const std::function<void(const QString& name, QWidget& window)>& save)
{
    Parts parts{.preferences = preferences};
    preferences.set(Settings::jpegQuality, 0.6);
    preferences.set(Settings::fileNameTemplate, "Shot %Y/%m %H.%M");
    preferences.set(Settings::textLanguages, {"de", "fr"});
    preferences.setSaveDirectory("/media/stick/captures");
    SettingsWindow window(preferences, parts.pages());
    for (const auto& [tab, name] : RawStrings<SettingsTab>::table) {
        window.present(tab);
        settle();
        save(QString("settings-") + name, window);
    }
    window.present(SettingsTab::general);
    window.showNotice("Nothing was imported: This file of settings is damaged or cut off.", true);
    settle();
    save("settings-refused", window);
    window.present(SettingsTab::shortcuts);
    auto* const recorder = window.findChildren<HotkeyButton*>().at(0);
    recorder->setFocus();
    recorder->click();
    settle();
    save("settings-listening", window);
    for (const char* query : {"corner", "xyzzy"}) {
        window.findChildren<LineField*>().at(0)->setText(query);
        settle();
        save(QString("settings-search-") + query, window);
    }
}

} // namespace Kovrel
