#include "cards/menu/CardQuickActionsMenu.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/desktop/FakeFilePrograms.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct CardQuickActionsMenuTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeFilePrograms programs{loop};
    CardQuickActionsMenu::Card card{
        .canPerform = [](CardQuickAction) { return true; },
        .keysOf = [](CardQuickAction action) -> std::optional<KeyCombo> {
            return action == CardQuickAction::copy ? KeyCombo::fromText("Super+C") : std::nullopt;
        },
        .fileName = "shot.png",
    };

    static QStringList titles(const QMenu& menu)
    {
        QStringList titles;
        for (const QAction* action : menu.actions())
            if (!action->isSeparator())
                titles << action->text();
        return titles;
    }

    static QAction& item(const QMenu& menu, const QString& title)
    {
        const auto actions = menu.actions();
        return **std::ranges::find_if(actions, [&](QAction* action) { return action->text().startsWith(title); });
    }
};

} // namespace

TEST_F(CardQuickActionsMenuTest, NamesWhatCanBeDoneInItsOrderWithTheKeysThatDoIt)
{
    const CardQuickActionsMenu all(card, programs);
    EXPECT_EQ(titles(all), (QStringList{"Copy\tSuper+C", "Save", "Edit", "Pin to Screen", "Rotate Left", "Rotate Right",
                                        "Preview", "Show in Files", "Open With", "Open in Mail\u2026",
                                        "Temporarily Hide", "Close", "Close All"}));
    card.canPerform = [](CardQuickAction action) {
        return action == CardQuickAction::save || action == CardQuickAction::close;
    };
    card.isSaved = true;
    EXPECT_EQ(titles(CardQuickActionsMenu(card, programs)), (QStringList{"Saved", "Close"}));
}

TEST_F(CardQuickActionsMenuTest, EachItemSaysWhatWasChosen)
{
    CardQuickActionsMenu menu(card, programs);
    std::vector<CardQuickAction> chosen;
    QObject::connect(&menu, &CardQuickActionsMenu::chosen, [&](CardQuickAction action) { chosen.push_back(action); });
    for (QAction* action : menu.actions())
        if (!action->menu())
            action->trigger();
    std::vector expected(allCardQuickActions.begin(), allCardQuickActions.end());
    std::erase(expected, CardQuickAction::openWith);
    EXPECT_EQ(chosen, expected);
}

TEST_F(CardQuickActionsMenuTest, ProgramsComeWhenTheDesktopTellsThem)
{
    programs.programs = {{.id = "a.desktop", .name = "Viewer"}, {.id = "b.desktop", .name = "Painter"}};
    programs.answers.manner = Testing::FakeAnswers::Manner::late;
    auto menu = std::make_unique<CardQuickActionsMenu>(card, programs);
    const QAction& openWith = item(*menu, "Open With");
    EXPECT_FALSE(openWith.isEnabled());
    programs.answers.catchUp();
    loop.runPosted();
    EXPECT_TRUE(openWith.isEnabled());
    EXPECT_EQ(titles(*openWith.menu()), (QStringList{"Viewer", "Painter"}));
    QString chosen;
    QObject::connect(menu.get(), &CardQuickActionsMenu::openWithChosen, [&](const QString& id) { chosen = id; });
    item(*openWith.menu(), "Painter").trigger();
    EXPECT_EQ(chosen, "b.desktop");

    menu = std::make_unique<CardQuickActionsMenu>(card, programs);
    menu.reset();
    programs.answers.catchUp();
    loop.runPosted(); // the menu has gone

    programs.programs.clear();
    const CardQuickActionsMenu none(card, programs);
    programs.answers.catchUp();
    loop.runPosted();
    EXPECT_FALSE(item(none, "Open With").isEnabled());
}

} // namespace Kovrel
