#include "cards/menu/CardMenus.h"
#include "cards/chords/CardChordActions.h"
#include "cards/menu/CardQuickActionsMenu.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/TestPictures.h"

#include <QApplication>
#include <QFile>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct NoViews : CardViews {
    void show(const std::vector<CardLook>&) override {}

    void expectCard(std::optional<quint32>) override {}

    bool setHidden(bool) override { return false; }
};

// Two cards, the second of which has a file of the user's.
struct CardMenusTest : testing::Test {
    Testing::FakeCaptureServices fake;
    Testing::FakeFilePrograms& programs = fake.desktop.programs();
    NoViews views;
    QuickAccessController cards{
        {fake.loop, fake.workers, fake.preferences, fake.desktop.displays(), fake.ports, fake.folder / "tmp"}, views};
    CardChordHotkeys hotkeys{fake.loop, fake.desktop.keys()};
    CardChordActions chords{cards, hotkeys};
    std::optional<CardMenus> menus{std::in_place, cards, programs, fake.ports.previews,
                                   [this](CardQuickAction action) { return hotkeys.keysOf(action); }};
    QUuid unsaved = present({});
    QString file = fake.folder / "mine.png";
    QUuid saved = present(file);

    QUuid present(const std::optional<QString>& path)
    {
        const QImage image = Testing::testPicture({40, 30}, Testing::Texture::blocks);
        if (path)
            image.save(*path);
        const QUuid id = QUuid::createUuid();
        cards.present({.result = {.id = id, .image = image, .pixelScale = 1}, .savedPath = path, .showOn = 1});
        settle();
        return id;
    }

    void settle()
    {
        do
            fake.loop.runPosted();
        while (fake.workers.runAll() > 0);
        fake.loop.runPosted();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static CardQuickActionsMenu* menu()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* menu = qobject_cast<CardQuickActionsMenu*>(widget); menu && menu->isVisible())
                return menu;
        return nullptr;
    }
};

} // namespace

TEST_F(CardMenusTest, FilesAreHandedToTheirProgramsAlsoThoseThatAreMadeForIt)
{
    using enum CardQuickAction;
    cards.perform(quickLook, saved);
    cards.perform(openInMail, saved);
    settle();
    EXPECT_EQ(programs.handedOver, (QStringList{"preferred: " + file, "mail: " + file}));
    menus->open(unsaved, {});
    Q_EMIT menu()->openWithChosen("painter");
    settle();
    ASSERT_EQ(programs.handedOver.size(), 3);
    EXPECT_TRUE(QFile::exists(programs.handedOver.last().section("painter: ", 1)));
    menus.reset();
    EXPECT_FALSE(cards.canPerform(quickLook));
    EXPECT_FALSE(menu());
}

TEST_F(CardMenusTest, PicturesAreShownByOurselvesWhereWeCan)
{
    struct Previews : PicturePreviews {
        void show(const QString& path) override { shown << path; }

        QStringList shown;
    } previews;

    fake.ports.previews.offer(previews);
    cards.perform(CardQuickAction::quickLook, saved);
    settle();
    EXPECT_EQ(previews.shown, QStringList(file));
    EXPECT_TRUE(programs.handedOver.isEmpty());
}

TEST_F(CardMenusTest, AMenuHoldsTheCountdownsOfItsPileUntilItCloses)
{
    fake.preferences.set(Settings::previewDurationSeconds, 10.0);
    menus->open(saved, {});
    menus->open(unsaved, {}); // in its place
    fake.loop.advance(std::chrono::hours(1));
    EXPECT_TRUE(cards.card(saved));
    menu()->close();
    fake.loop.advance(std::chrono::hours(1));
    EXPECT_FALSE(cards.card(saved));
    menus->open(saved, {});
    EXPECT_FALSE(menu()) << "the card has gone";
}

TEST_F(CardMenusTest, MailIsOfferedWhereThereIsAProgramForIt)
{
    for (const bool hasMail : {true, false}) {
        programs.hasMail = hasMail;
        menus->open(saved, {});
        const auto actions = menu()->actions();
        const bool isThere =
            std::ranges::any_of(actions, [](const QAction* action) { return action->text().contains("Mail"); });
        EXPECT_EQ(isThere, hasMail);
    }
}

TEST_F(CardMenusTest, ChordsActOnTheCardUnderThePointer)
{
    Testing::FakeKeyGrabs& keys = fake.desktop.keys();
    EXPECT_FALSE(keys.press("Super+W"));
    cards.pointerEntered(saved);
    EXPECT_TRUE(keys.press("Super+W"));
    EXPECT_FALSE(cards.card(saved));
    EXPECT_FALSE(keys.press("Super+C")) << "no card is hovered";
    cards.pointerEntered(unsaved);
    EXPECT_TRUE(keys.press("Super+Alt+W"));
    EXPECT_FALSE(cards.hasCards());
}

} // namespace Kovrel
