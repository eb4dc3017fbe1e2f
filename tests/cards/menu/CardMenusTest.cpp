#include "cards/menu/CardMenus.h"
#include "tests/support/FakeCaptureServices.h"
#include "tests/support/TestPictures.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct NoViews : CardViews {
    void show(const std::vector<CardLook>&) override {}

    void expectCard(quint32) override {}

    bool setHidden(bool) override { return false; }
};

struct CardMenusTest : testing::Test {
    Testing::FakeCaptureServices fake;
    NoViews views;
    QuickAccessController controller{
        {fake.loop, fake.workers, fake.preferences, fake.desktop.displays(), fake.ports, fake.folder / "tmp"}, views};
    CardMenus menus{controller, fake.desktop.programs(), [](auto) { return std::nullopt; }};
    const QUuid card = QUuid::createUuid();

    CardMenusTest()
    {
        controller.present({.result = {.id = card, .image = Testing::testPicture({40, 30}, Testing::Texture::flat)}});
        settle();
    }

    void settle()
    {
        do
            fake.loop.runPosted();
        while (fake.workers.runAll() > 0);
        fake.loop.runPosted();
    }

    void choose(const QString& title)
    {
        menus.open(card, {});
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        for (QAction* action : menu->actions())
            if (action->text().section('\t', 0, 0) == title)
                action->trigger();
        menu->close();
        settle();
    }
};

} // namespace

TEST_F(CardMenusTest, WhatIsChosenIsDone)
{
    choose("Copy");
    EXPECT_TRUE(fake.logged("copy"));
    choose("Preview");
    const QStringList& handedOver = fake.desktop.programs().handedOver;
    ASSERT_EQ(handedOver.size(), 1);
    EXPECT_TRUE(handedOver[0].startsWith("preferred: " + (fake.folder / "tmp"))) << qPrintable(handedOver[0]);
    EXPECT_EQ(QImage(handedOver[0].section(": ", 1)).size(), QSize(40, 30));
    choose("Temporarily Hide");
    EXPECT_TRUE(controller.isTemporarilyHidden());
    choose("Close All");
    EXPECT_FALSE(controller.hasCards());
}

TEST_F(CardMenusTest, AnOpenMenuHoldsTheCountdown)
{
    menus.open(card, {});
    fake.loop.advance(std::chrono::hours(1));
    EXPECT_TRUE(controller.hasCards());
    QApplication::activePopupWidget()->close();
    fake.loop.advance(std::chrono::seconds(5));
    EXPECT_FALSE(controller.hasCards());
}

} // namespace Kovrel
