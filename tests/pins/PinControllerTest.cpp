#include "pins/PinController.h"
#include "pins/PinMenu.h"
#include "pins/PinPanel.h"
#include "ports/Captures.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/Patterns.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Log = Testing::FakeCaptureServices::Log;

struct PinControllerTest : testing::Test {
    // What the history has a card of.
    struct Reopening : Captures {
        bool isKnown = false;
        QList<QUuid> asked;

        Subscription onCaptureFinished(std::function<void(const CaptureResult&)>) override { return {}; }

        void whenForegroundIsFree(std::function<void()> work) override { work(); }

        void presentFromHistory(QUuid id, std::function<void(bool)> reply) override
        {
            asked << id;
            reply(isKnown);
        }

        void reopenClosed(std::function<void(bool)> reply) override { reply(false); }

        bool isCountingDown() const override { return false; }

        void cancelCountdown() override {}

        bool ensureScreenAccess() override { return true; }

        void cancelAim() override {}
    };

    Testing::FakeCaptureServices fake;
    Reopening captures;
    CaptureResult result{.id = QUuid::createUuid(), .image = Testing::pattern({400, 300}), .pixelScale = 1};
    std::optional<PinController> pins;

    void SetUp() override
    {
        Motion::shared().setReduced(true);
        fake.ports.captures.offer(captures);
        pins.emplace(PinServices{fake.loop, fake.workers, fake.desktop.displays(), fake.desktop.pointer(),
                                 fake.desktop.panelShapes(), fake.ports});
    }

    void TearDown() override { Motion::shared().setReduced(false); }

    void work()
    {
        fake.loop.runPosted();
        fake.workers.runAll();
        fake.loop.runPosted();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void pin()
    {
        pins->pin(result);
        work();
        fake.takeLog();
    }

    static QList<PinPanel*> panels()
    {
        QList<PinPanel*> found;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<PinPanel*>(widget); panel && panel->isVisible())
                found << panel;
        return found;
    }
};

} // namespace

TEST_F(PinControllerTest, ACaptureIsPinnedOnceAndWithoutADisplayNotAtAll)
{
    pins->pin(result);
    pins->pin(result);
    work();
    ASSERT_EQ(panels().size(), 1);
    EXPECT_EQ(panels().first()->windowFlags() & Qt::WindowDoesNotAcceptFocus, Qt::WindowDoesNotAcceptFocus);
    pin();
    EXPECT_EQ(panels().size(), 1);
    fake.desktop.displays().change({});
    result.id = QUuid::createUuid();
    pin();
    EXPECT_EQ(panels().size(), 1);
}

TEST_F(PinControllerTest, WhatComesLateFindsNobody)
{
    using enum Testing::FakeAnswers::Manner;
    fake.desktop.pointer().answers.manner = never;
    pin();
    EXPECT_TRUE(panels().isEmpty());
    fake.desktop.pointer().answers.manner = late;
    pin();
    result.id = QUuid::createUuid();
    result.pixelScale = 0.5; // a picture that is made smaller, elsewhere
    fake.desktop.pointer().answers.catchUp();
    fake.loop.runPosted();
    pins->perform(PinQuickAction::save, result.id);
    fake.desktop.pointer().answers.manner = soon;
    pins->pin(result);
    fake.loop.runPosted();
    pins.reset();
    work();
    EXPECT_TRUE(panels().isEmpty());
}

TEST_F(PinControllerTest, UnpinBringsTheCardBackAndCloseDoesNot)
{
    struct Case {
        PinQuickAction action;
        bool isKnown;
        qsizetype cards;
        qsizetype asked;
    };

    for (const Case& c : {Case{PinQuickAction::unpin, true, 0, 1}, Case{PinQuickAction::unpin, false, 1, 1},
                          Case{PinQuickAction::close, false, 0, 0}}) {
        captures.isKnown = c.isKnown;
        captures.asked.clear();
        fake.cardsShown.clear();
        pin();
        pins->perform(c.action, result.id);
        work();
        EXPECT_TRUE(panels().isEmpty());
        EXPECT_EQ(qsizetype(fake.cardsShown.size()), c.cards);
        EXPECT_EQ(captures.asked.size(), c.asked);
        pins->perform(c.action, result.id); // it has gone
    }
}

TEST_F(PinControllerTest, OnlyWhatCanBeDoneIsInTheMenu)
{
    const auto titles = [&](bool isSaved) {
        QWidget parent;
        QStringList all;
        const PinMenu menu(parent, [&](PinQuickAction action) { return pins->canPerform(action); }, isSaved);
        for (const QAction* action : menu.actions())
            if (!action->isSeparator())
                all << (action->isEnabled() ? action->text() : '(' + action->text() + ')');
        return all;
    };
    EXPECT_EQ(titles(false), (QStringList{"Edit", "Copy Image", "Save", "Actual Size", "Unpin", "Close"}));
    EXPECT_EQ(titles(true)[2], "(Saved)");
    fake.ports.editors = {};
    fake.ports.cards = {};
    EXPECT_EQ(titles(false), (QStringList{"Copy Image", "Save", "Actual Size", "Close"}));
}

TEST_F(PinControllerTest, TheCaptureIsCopiedSavedAndEdited)
{
    pin();
    pins->perform(PinQuickAction::copyImage, result.id);
    EXPECT_TRUE(fake.logged("copy"));
    pins->perform(PinQuickAction::edit, result.id);
    work();
    EXPECT_TRUE(fake.logged("editor"));
    fake.takeLog();
    pins->perform(PinQuickAction::save, result.id);
    work();
    EXPECT_EQ(fake.takeLog(), (Log{"save", "ledger: /saved.png", "toast: saved /saved.png"}));
    fake.saveError = "the disk is full";
    pins->perform(PinQuickAction::save, result.id);
    work();
    EXPECT_EQ(fake.lastToast.subtitle, "the disk is full");
}

TEST_F(PinControllerTest, WhatIsEditedLooksSoInThePin)
{
    pin();
    pins->start();
    EXPECT_EQ(panels().first()->size(), QSize(460, 360)) << "with its shadow";
    fake.historyPicture = Testing::pattern({600, 400}); // of two pixels for each point
    fake.pictureChanged.notify(result.id);
    fake.pictureChanged.notify(QUuid::createUuid());
    work();
    EXPECT_EQ(panels().first()->size(), QSize(360, 260));
    fake.historyPicture = {};
    fake.pictureChanged.notify(result.id);
    work();
    EXPECT_EQ(panels().first()->size(), QSize(360, 260)) << "a picture that can't be read changes nothing";
}

TEST_F(PinControllerTest, TheWheelLetsShineThroughWithinLimits)
{
    pin();
    PinPanel* panel = panels().first();
    const auto wheel = [&](int notches) {
        QWheelEvent event({}, {}, {}, {0, 120 * notches}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(panel, &event);
        return qRound(panel->windowOpacity() * 100);
    };
    EXPECT_EQ(wheel(-2), 90);
    EXPECT_EQ(wheel(-50), 20);
    EXPECT_EQ(wheel(4), 40);
    EXPECT_EQ(wheel(50), 100);
}

TEST_F(PinControllerTest, ItsButtonsAndNothingElseStepAsideForACapture)
{
    EXPECT_FALSE(pins->setHiddenForCapture(true));
    EXPECT_FALSE(pins->setHiddenForCapture(false));
    pin();
    EXPECT_FALSE(pins->setHiddenForCapture(true)) << "nothing changes while the pointer is elsewhere";
    pins->setHiddenForCapture(false);
    QEnterEvent enter({50, 50}, {}, {});
    QCoreApplication::sendEvent(panels().first(), &enter);
    EXPECT_TRUE(pins->setHiddenForCapture(true));
    EXPECT_EQ(panels().size(), 1);
    EXPECT_FALSE(pins->setHiddenForCapture(false));
    EXPECT_FALSE(pins->setHiddenForCapture(true)) << "they wait for the pointer to move";
    pins->setHiddenForCapture(false);
    QMouseEvent move(QEvent::MouseMove, QPointF(50, 50), QPointF(), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(panels().first(), &move);
    EXPECT_TRUE(pins->setHiddenForCapture(true));
}

TEST_F(PinControllerTest, AButtonThatIsNotSeenTakesNoClicks)
{
    pin();
    PinPanel* panel = panels().first();
    const QPointF close = fake.desktop.panelShapes().inputs[panel->winId()].boundingRect().topLeft() + QPointF(21, 21);
    const auto send = [&](QEvent::Type type) {
        QMouseEvent event(type, close, close, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(panel, &event);
    };
    const auto click = [&] {
        send(QEvent::MouseButtonPress);
        send(QEvent::MouseButtonRelease);
    };
    click();
    EXPECT_EQ(panels().size(), 1) << "after a capture it comes with the next move";
    send(QEvent::MouseMove);
    click();
    EXPECT_EQ(panels().size(), 0);
}

// A compositor that hears only of changes that reach beyond those it has not shown yet would go on showing the buttons.
TEST_F(PinControllerTest, MoreIsPaintedWhenTheButtonsGoThanWhenTheyCame)
{
    struct PaintWatch : QObject {
        QRect painted;

        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                painted |= static_cast<QPaintEvent*>(event)->rect();
            return false;
        }
    };

    pin();
    QWidget* panel = panels().first();
    QApplication::processEvents();
    PaintWatch watch;
    panel->installEventFilter(&watch);
    QEnterEvent enter({50, 50}, {}, {});
    QCoreApplication::sendEvent(panel, &enter);
    QApplication::processEvents();
    const QRect came = std::exchange(watch.painted, {});
    EXPECT_FALSE(came.isEmpty());
    pins->setHiddenForCapture(true);
    EXPECT_EQ(watch.painted, panel->rect());
    EXPECT_LT(came.height(), panel->height() / 2);
}

TEST_F(PinControllerTest, TheEndOfTheProgramClosesPinsFirst)
{
    pin();
    QApplication::closeAllWindows();
    work();
    EXPECT_TRUE(panels().isEmpty());
    fake.desktop.displays().change(fake.desktop.displays().all());
    pins->perform(PinQuickAction::actualSize, result.id);
    pins.reset();
}

} // namespace Kovrel
