#include "app/Translations.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace Kovrel {

TEST(TranslationsTest, TheFirstLanguageThatIsKnownIsSpokenAndEnglishIsKnown)
{
    struct Case {
        QStringList preferred;
        std::optional<QLocale::Language> spoken; // nothing: English
    };

    const Case cases[] = {
        {{"de-DE", "de-Latn-DE", "de"}, QLocale::German},
        {{"de-AT"}, QLocale::German},
        {{"ar-EG", "ar"}, QLocale::Arabic},
        {{"fr-CA", "fr", "de-DE"}, QLocale::German},
        {{"en-GB", "de-DE"}, {}},
        {{"C"}, {}},
        {{"fr"}, {}},
        {{}, {}},
    };
    for (const Case& each : cases) {
        const auto locale = Translations::chosen(each.preferred);
        EXPECT_EQ(locale ? std::optional(locale->language()) : std::nullopt, each.spoken)
            << each.preferred.join(' ').toStdString();
    }
}

TEST(TranslationsTest, InEnglishOneIsNotMany)
{
    Translations::install(*QCoreApplication::instance());
    for (const auto& [count, text] : {std::pair(1, "1 capture deleted"), {2, "2 captures deleted"}})
        EXPECT_EQ(QCoreApplication::translate("Kovrel::HistoryWindow", "%n captures deleted", nullptr, count), text);
}

} // namespace Kovrel
