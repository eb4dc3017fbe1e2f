#include "reading/LanguageChoice.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(LanguageChoiceTest, OtherLanguagesAreNoticedOnceAlsoAtTheNextStart)
{
    struct Case {
        QStringList chosen;
        std::optional<int> changed; // second at which it was seen
    };

    const Testing::TempFolder folder;
    const QDateTime start = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    const Case cases[] = {{{}, {}}, {{"de"}, 1}, {{"de"}, 1}, {{"de", "en"}, 3}, {{}, 4}, {{}, 4}};
    for (int run = 0; const Case& c : cases) {
        UserDefaults defaults(folder / "kovrel.conf");
        Preferences preferences(defaults);
        preferences.set(Settings::textLanguages, c.chosen);
        const QDateTime expected = c.changed ? start.addSecs(*c.changed) : QDateTime();
        EXPECT_EQ(LanguageChoice::changed(preferences, start.addSecs(run)), expected) << run;
        ++run;
    }
}

} // namespace Kovrel
