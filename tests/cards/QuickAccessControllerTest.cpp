#include "cards/QuickAccessController.h"
#include "cards/ClosedCards.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/TestPictures.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <malloc.h>

namespace Kovrel {

using namespace std::chrono_literals;

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QUuid id(uint number)
{
    return QUuid(number, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

struct ViewsOfData : CardViews {
    std::vector<CardLook> looks;
    bool isHidden = false;

    void show(const std::vector<CardLook>& cards) override { looks = cards; }

    void expectCard(std::optional<quint32>) override {}

    bool setHidden(bool hidden) override
    {
        isHidden = hidden;
        return !looks.empty();
    }
};

// Cards on two displays, the second of scale 2, with everything else of the program as data.
struct QuickAccessControllerTest : testing::Test {
    Testing::FakeCaptureServices fake;
    Testing::FakeMainLoop& loop = fake.loop;
    ClosedCards ledger;
    ViewsOfData views;
    std::unique_ptr<QuickAccessController> cards;
    std::shared_ptr<CaptureRecording> recording;

    QuickAccessControllerTest()
    {
        fake.ports.ledger.offer(ledger);
        fake.preferences.set(Settings::previewDurationSeconds, 10.0);
        auto displays = fake.desktop.displays().displays;
        displays[1].visibleFrame = displays[1].frame;
        fake.desktop.displays().displays = displays;
        fake.historyPicture = Testing::testPicture({400, 300}, Testing::Texture::flat);
        cards = std::make_unique<QuickAccessController>(CardServices{fake.loop, fake.workers, fake.preferences,
                                                                     fake.desktop.displays(), fake.ports,
                                                                     fake.folder / "tmp"},
                                                        views);
        cards->start();
    }

    void settle()
    {
        do
            loop.runPosted();
        while (fake.workers.runAll() > 0);
        loop.runPosted();
    }

    static CaptureResult capture(uint number, QSize size = {400, 250})
    {
        return {.id = id(number), .image = Testing::testPicture(size, Testing::Texture::blocks), .pixelScale = 1};
    }

    void present(uint number, quint32 display = 1, QSize size = {400, 250})
    {
        cards->present({.result = capture(number, size), .showOn = display});
        settle();
    }

    // A capture that the history has, from the newest to the oldest.
    void presentRecorded(uint number)
    {
        present(number);
        recording = std::make_shared<CaptureRecording>();
        cards->attachRecording(recording, id(number));
        recording->finish("/history.png");
    }

    std::vector<QUuid> shown() const
    {
        std::vector<QUuid> ids;
        ids.reserve(views.looks.size());
        for (const CardLook& look : views.looks)
            ids.push_back(look.id);
        return ids;
    }

    const CardLook& look(uint number) const { return *std::ranges::find(views.looks, id(number), &CardLook::id); }

    void pass(MainLoop::Milliseconds time)
    {
        loop.advance(time);
        settle();
    }
};

} // namespace

// --- Coming and going

TEST_F(QuickAccessControllerTest, TheNewestCardIsNearestTheCornerAndClosesWithTheOthers)
{
    present(1);
    loop.advance(1s);
    present(2);
    EXPECT_THAT(shown(), ElementsAre(id(2), id(1)));
    EXPECT_GT(look(2).place.top(), look(1).place.bottom());
    EXPECT_EQ(look(2).face.size(), QSize(204, 128));
    EXPECT_EQ(look(2).countdown.total, 10s);
    pass(9s);
    EXPECT_THAT(shown(), ElementsAre(id(2)));
    pass(1s);
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(ledger.takeLastClosed(), id(2));
    EXPECT_EQ(ledger.takeLastClosed(), id(1));
    EXPECT_EQ(ledger.takeLastClosed(), std::nullopt);
}

TEST_F(QuickAccessControllerTest, ACardThatComesBackIsNotAmongTheClosedAndNotThereTwice)
{
    present(1);
    cards->remove(id(1));
    present(1);
    present(1);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    EXPECT_EQ(ledger.takeLastClosed(), std::nullopt);
}

TEST_F(QuickAccessControllerTest, ThePileMakesRoomBeforeACardComesAndClosesUpWhenNoneDoes)
{
    present(1);
    const QRectF before = look(1).place;
    cards->prepareForIncomingCapture(1);
    EXPECT_LT(look(1).place.bottom(), before.top());
    cards->settleAfterAbandonedCapture();
    EXPECT_EQ(look(1).place, before);
}

TEST_F(QuickAccessControllerTest, CardsStandOnTheScreenUnderThePointerIfThatIsWanted)
{
    present(1, 2);
    EXPECT_EQ(look(1).displayID, 2u);
    EXPECT_EQ(look(1).face.height(), 255) << "its scale is 2";
    fake.preferences.set(Settings::previewsFollowMouse, false);
    settle();
    EXPECT_EQ(look(1).displayID, 1u);
    EXPECT_EQ(look(1).face.height(), 128);
    present(2, 2);
    EXPECT_EQ(look(2).displayID, 1u);
    present(3, 77);
    EXPECT_EQ(look(3).displayID, 1u) << "a display that is not there";
}

TEST_F(QuickAccessControllerTest, AScreenThatGoesLeavesItsCardsAndTheirTimeToAnother)
{
    present(1, 2);
    loop.advance(2s);
    const DisplayList both = fake.desktop.displays().displays;
    fake.desktop.displays().change({});
    EXPECT_FALSE(cards->canPresent());
    present(2);
    EXPECT_THAT(shown(), IsEmpty());
    fake.desktop.displays().change({both[0]});
    settle();
    EXPECT_EQ(look(1).displayID, 1u);
    EXPECT_EQ(look(1).face.height(), 128);
    pass(7999ms);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    pass(1ms);
    EXPECT_THAT(shown(), IsEmpty()) << "8 seconds later, not 10";
}

TEST_F(QuickAccessControllerTest, CardsThatAreTooManyGoWithoutLosingACapture)
{
    fake.preferences.set(Settings::previewDurationSeconds, -1.0);
    for (uint number = 1; number <= 3; ++number)
        presentRecorded(number);
    for (uint number = 4; number <= 6; ++number)
        present(number);
    cards->toggleFreeze(id(1));
    fake.takeLog();
    // Three find room in a column, and two columns in half of the width.
    presentRecorded(7);
    EXPECT_THAT(shown(), ElementsAre(id(7), id(6), id(5), id(4), id(3), id(1))) << "the frozen one stays";
    EXPECT_FALSE(fake.logged("save"));
    for (uint number = 8; number <= 9; ++number)
        presentRecorded(number);
    EXPECT_THAT(shown(), ElementsAre(id(9), id(8), id(7), id(6), id(5), id(1)));
    EXPECT_TRUE(fake.logged("save")) << "nobody else has the fourth";
}

// --- Countdowns

TEST_F(QuickAccessControllerTest, HoveringHoldsThePileAndLeavingItStartsAnew)
{
    fake.preferences.set(Settings::previewDurationSeconds, 5.0);
    present(1);
    present(2);
    present(3, 2);
    loop.advance(2s);
    cards->pointerEntered(id(1));
    EXPECT_EQ(cards->hoveredCardID(), id(1));
    pass(10s);
    EXPECT_THAT(shown(), ElementsAre(id(2), id(1))) << "the pile of the other display went on";
    present(4);
    pass(10s);
    EXPECT_THAT(shown(), Contains(id(4))) << "one that comes meanwhile is held, too";
    cards->pointerLeft(id(1));
    EXPECT_EQ(cards->hoveredCardID(), std::nullopt);
    pass(4999ms);
    EXPECT_EQ(shown().size(), 3u);
    pass(1ms);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickAccessControllerTest, AMenuAndADragHoldThePileWhenThePointerHasLeft)
{
    present(1);
    cards->pointerEntered(id(1));
    cards->quickActionsMenuOpened(id(1));
    cards->setDragged(id(1), true);
    cards->pointerLeft(id(1));
    pass(1min);
    cards->quickActionsMenuClosed(id(1));
    pass(1min);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    cards->setDragged(id(1), false);
    pass(10s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickAccessControllerTest, ACardThatGoesWhileItsMenuIsOpenHoldsNothingAfterwards)
{
    present(1);
    present(2);
    cards->quickActionsMenuOpened(id(1));
    cards->setDragged(id(2), true);
    cards->remove(id(1));
    cards->quickActionsMenuClosed(id(1));
    pass(1min);
    EXPECT_THAT(shown(), ElementsAre(id(2))) << "the drag goes on";
    fake.forgotten.notify(id(2));
    cards->setDragged(id(2), false);
    pass(10s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickAccessControllerTest, TheCardUnderThePointerGoesAndThePileCountsAgain)
{
    present(1);
    present(2);
    std::vector<std::optional<QUuid>> told;
    const Subscription hovered = cards->onHoverChange([&](auto card) { told.push_back(card); });
    cards->pointerEntered(id(2));
    cards->perform(CardQuickAction::close, id(2));
    EXPECT_THAT(told, ElementsAre(std::optional(id(2)), std::nullopt));
    pass(10s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickAccessControllerTest, SettingsAndHoldsArmAllCards)
{
    present(1);
    loop.advance(9s);
    fake.preferences.set(Settings::previewDurationSeconds, 30.0);
    EXPECT_EQ(look(1).countdown.total, 30s);
    loop.advance(29s);
    cards->holdCountdowns(CountdownHold::onboarding, true);
    EXPECT_FALSE(look(1).countdown.isShown());
    pass(1h);
    cards->holdCountdowns(CountdownHold::onboarding, false);
    pass(29s);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    fake.preferences.set(Settings::previewDurationSeconds, -1.0);
    EXPECT_FALSE(look(1).countdown.isShown());
    pass(1h);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
}

TEST_F(QuickAccessControllerTest, ACaptureHidesTheCardsAndTheirTimeGoesOn)
{
    present(1);
    loop.advance(2s);
    EXPECT_TRUE(cards->setHiddenForCapture(true));
    EXPECT_TRUE(views.isHidden);
    EXPECT_FALSE(cards->setHiddenForCapture(true));
    loop.advance(3s);
    cards->setHiddenForCapture(false);
    EXPECT_FALSE(views.isHidden);
    EXPECT_DOUBLE_EQ(look(1).countdown.remaining(loop.now()), 0.5);
    pass(5s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(QuickAccessControllerTest, HiddenCardsComeBackWithTheNextCapture)
{
    present(1);
    cards->perform(CardQuickAction::temporarilyHide, id(1));
    EXPECT_TRUE(views.isHidden);
    EXPECT_TRUE(cards->isTemporarilyHidden());
    pass(1h);
    cards->setHiddenForCapture(true);
    cards->setHiddenForCapture(false);
    EXPECT_TRUE(views.isHidden) << "a capture that did not come changes nothing";
    present(2);
    EXPECT_FALSE(views.isHidden);
    EXPECT_THAT(shown(), ElementsAre(id(2), id(1)));
    cards->setTemporarilyHidden(true);
    cards->setTemporarilyHidden(false);
    EXPECT_FALSE(views.isHidden);
}

// --- Saving

TEST_F(QuickAccessControllerTest, SavesBeforeItClosesOnlyWhatHasNoFile)
{
    fake.preferences.set(Settings::previewAutoCloseAction, AutoCloseAction::saveAndClose);
    const auto own = std::make_shared<CaptureSave>();
    present(1);
    cards->attachCaptureSave(own, id(1));
    EXPECT_TRUE(look(1).isSaving);
    pass(10s);
    EXPECT_THAT(shown(), ElementsAre(id(1))) << "its own save is under way";
    own->finish("/own.png");
    settle();
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(fake.logged("toast: saved /own.png"));
    EXPECT_FALSE(fake.logged("save"));

    present(2);
    pass(10s);
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(fake.logged("save"));
    EXPECT_TRUE(fake.logged("toast: saved /saved.png"));
    EXPECT_EQ(ledger.savedFile(id(2)), "/saved.png");
}

TEST_F(QuickAccessControllerTest, ASaveThatFailsOrHangsKeepsTheCard)
{
    fake.preferences.set(Settings::previewAutoCloseAction, AutoCloseAction::saveAndClose);
    fake.saveError = "the disk is full";
    present(1);
    pass(10s);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    EXPECT_EQ(fake.lastToast.subtitle, "the disk is full");
    fake.saveError.reset();
    fake.holdsSaves = true;
    cards->perform(CardQuickAction::save, id(1));
    settle();
    EXPECT_TRUE(look(1).isSaving);
    cards->autoSaveBeforeClose(id(1));
    pass(1h);
    EXPECT_THAT(shown(), ElementsAre(id(1)));
    cards->remove(id(1));
    EXPECT_THAT(shown(), IsEmpty()) << "by hand it closes all the same";
}

TEST_F(QuickAccessControllerTest, TheFileManagerShowsTheFileOfThePersonWhoAsks)
{
    const QString path = fake.folder / "saved.png";
    const auto save = std::make_shared<CaptureSave>();
    present(1);
    cards->attachCaptureSave(save, id(1));
    cards->perform(CardQuickAction::showInFinder, id(1));
    settle();
    const std::string revealed = "reveal " + path.toStdString();
    EXPECT_FALSE(fake.logged(revealed)) << "its save is under way";
    ASSERT_TRUE(capture(1).image.save(path));
    save->finish(path);
    settle();
    EXPECT_TRUE(fake.logged(revealed));
    EXPECT_FALSE(fake.logged("save"));

    QFile::remove(path);
    cards->perform(CardQuickAction::showInFinder, id(1));
    settle();
    EXPECT_TRUE(fake.logged("save")) << "there is none any more, and the ones made for other programs are hidden away";
    EXPECT_TRUE(fake.logged("reveal /saved.png"));
    EXPECT_TRUE(look(1).isSaved);
}

// --- Files and pixels

TEST_F(QuickAccessControllerTest, PixelsAreLetGoOnceTheHistoryHasThem)
{
    present(1);
    EXPECT_FALSE(cards->card(id(1))->result.image.isNull());
    presentRecorded(2);
    EXPECT_TRUE(cards->card(id(2))->result.image.isNull());
    EXPECT_FALSE(look(2).face.isNull());
    cards->perform(CardQuickAction::copy, id(2));
    settle();
    EXPECT_TRUE(fake.logged("copy")) << "they come from the history";
    EXPECT_TRUE(look(2).isCopied);
    pass(2s);
    EXPECT_FALSE(look(2).isCopied);
}

TEST_F(QuickAccessControllerTest, LetsGoOfWhatLeavesTheHistory)
{
    presentRecorded(1);
    present(2);
    fake.forgotten.notify(id(1));
    fake.forgotten.notify(id(2));
    EXPECT_THAT(shown(), ElementsAre(id(2))) << "it has its pixels yet";
    EXPECT_EQ(ledger.takeLastClosed(), std::nullopt) << "what has gone can't come back";
}

TEST_F(QuickAccessControllerTest, ASavedFileThatHasGoneIsForgottenAndAnotherOneIsDragged)
{
    const QString path = fake.folder / "saved.png";
    ASSERT_TRUE(capture(1).image.save(path));
    const auto save = std::make_shared<CaptureSave>();
    present(1);
    cards->attachCaptureSave(save, id(1));
    save->finish(path);
    cards->pointerEntered(id(1));
    settle();
    EXPECT_EQ(look(1).dragFile, path);
    EXPECT_TRUE(look(1).isSaved);
    cards->pointerLeft(id(1));
    QFile::remove(path);
    cards->pointerEntered(id(1));
    settle();
    EXPECT_FALSE(look(1).isSaved);
    ASSERT_TRUE(look(1).dragFile);
    EXPECT_EQ(QImage(*look(1).dragFile).size(), QSize(400, 250));
    const QString written = *look(1).dragFile;
    cards->remove(id(1));
    settle();
    EXPECT_FALSE(QFile::exists(written)) << "it lasts as long as the card";
}

TEST_F(QuickAccessControllerTest, TurningIsAnEditOrWithoutAHistoryThePictureItself)
{
    present(1);
    cards->perform(CardQuickAction::rotateLeft, id(1));
    settle();
    EXPECT_EQ(cards->card(id(1))->result.image.size(), QSize(250, 400));
    EXPECT_EQ(look(1).face.height(), 152);

    presentRecorded(2);
    cards->perform(CardQuickAction::rotateRight, id(2));
    settle();
    EXPECT_TRUE(fake.logged("history: turn right"));
    fake.historyPicture = Testing::testPicture({100, 400}, Testing::Texture::flat);
    fake.pictureChanged.notify(id(2));
    settle();
    EXPECT_EQ(look(2).face.height(), 152) << "the face follows the edit";
    EXPECT_FALSE(look(2).isSaved);
}

TEST_F(QuickAccessControllerTest, ACodeIsOfferedUnlessTheCardHasGone)
{
    fake.codesFound = {{QRCode{.payload = "https://example.org", .boundingBox = {}}}};
    present(1);
    EXPECT_EQ(look(1).code, CardCode{"https://example.org"});
    cards->present({.result = capture(2), .showOn = 1});
    cards->remove(id(2));
    settle();
    EXPECT_THAT(shown(), ElementsAre(id(1)));
}

TEST_F(QuickAccessControllerTest, ADoubleClickEditsElseCopies)
{
    present(1);
    cards->open(id(1));
    settle();
    EXPECT_TRUE(fake.logged("editor"));
    fake.ports.editors = {};
    cards->open(id(1));
    settle();
    EXPECT_TRUE(fake.logged("copy"));
    EXPECT_FALSE(cards->canPerform(CardQuickAction::edit));
}

TEST_F(QuickAccessControllerTest, EndsInTheMiddleOfEverything)
{
    fake.preferences.set(Settings::previewAutoCloseAction, AutoCloseAction::saveAndClose);
    cards->present({.result = capture(1), .showOn = 1});
    const auto save = std::make_shared<CaptureSave>();
    cards->attachCaptureSave(save, id(1));
    loop.advance(10s);
    cards->pointerEntered(id(1));
    cards->perform(CardQuickAction::rotateLeft, id(1));
    cards.reset();
    save->finish("/own.png");
    settle();
    loop.advance(1h);
}

TEST_F(QuickAccessControllerTest, AThousandCapturesInARowLeaveNoMoreThanTheirFaces)
{
    const auto memory = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    size_t atHundred = 0;
    for (uint number = 1; number <= 1000; ++number) {
        presentRecorded(number);
        fake.takeLog();
        if (number == 100)
            atHundred = memory();
        loop.advance(100ms);
    }
    EXPECT_LE(shown().size(), 6u);
    std::printf("memory in use after 100 captures: %zu kB, after 1000: %zu kB\n", atHundred / 1024, memory() / 1024);
    EXPECT_LT(memory(), atHundred + (1 << 20));
}

} // namespace Kovrel
