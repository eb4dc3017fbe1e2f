#include "settings/pages/TextPage.h"

#include "model/RecogniserLanguage.h"

#include <QLocale>

#include <algorithm>

namespace Kovrel {

SettingsPage TextPage::make(Preferences& preferences, std::function<void(Reply<QStringList>)> installed)
{
    const auto load = [installed = std::move(installed)](const QStringList& chosen,
                                                         const Reply<std::vector<SettingControls::Language>>& reply) {
        installed([chosen, reply](const QStringList& models) {
            reply(languages(models, chosen, QLocale::system().uiLanguages()));
        });
    };
    const SettingRow row{.label = tr("Languages of the text in captures"),
                         .control = SettingControls::Languages{load},
                         .binding = SettingBinding::of(preferences, Settings::textLanguages),
                         .hint = tr("With none of them chosen, text is read in the languages of the desktop."),
                         .keywords = tr("ocr recognition read tesseract language")};
    return {.tab = SettingsTab::text,
            .groups = {{.title = tr("Languages"),
                        .rows = {row},
                        .help = tr("Debian's packages tesseract-ocr-… bring more languages, as tesseract-ocr-fra for "
                                   "French. Each language that is chosen makes reading slower.")}}};
}

std::vector<SettingControls::Language> TextPage::languages(const QStringList& installed, const QStringList& chosen,
                                                           const QStringList& desktop)
{
    std::vector<SettingControls::Language> offered;
    for (const QString& model : installed)
        offered.push_back({model, RecogniserLanguage::title(model)});
    std::ranges::sort(offered, [](const auto& a, const auto& b) { return a.title.localeAwareCompare(b.title) < 0; });
    QStringList known = installed;
    for (const QString& language : chosen + desktop)
        if (const QString model = RecogniserLanguage::model(language), package = RecogniserLanguage::package(model);
            !package.isEmpty() && !known.contains(model)) {
            known << model;
            offered.push_back({model, RecogniserLanguage::title(model), package});
        }
    return offered;
}

} // namespace Kovrel
