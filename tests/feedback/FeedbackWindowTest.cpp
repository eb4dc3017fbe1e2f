#include "feedback/FeedbackWindow.h"

#include "tests/support/WindowWalk.h"
#include "ui/controls/PlainButton.h"
#include "ui/controls/TextArea.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace WindowWalk = Testing::WindowWalk;

namespace {

struct FeedbackWindowTest : testing::Test {
    QStringList handedOn;
    std::optional<FeedbackWindow> window;

    void open(bool hasMail)
    {
        FeedbackWindow::Services services{
            .save = [this](const QString& text, QWindow*) { handedOn << "save: " + text; },
            .copy = [this](const QString& text) { handedOn << "copy: " + text; },
            .mail = {}};
        if (hasMail)
            services.mail = [this](const QString& text) { handedOn << "mail: " + text; };
        window.emplace(services);
        window->present("Kovrel 1.2\n");
        QApplication::setActiveWindow(&*window);
    }

    TextArea& area(int index) { return *window->findChildren<TextArea*>().at(index); }
};

} // namespace

TEST_F(FeedbackWindowTest, ExactlyWhatIsReadIsHandedOn)
{
    open(true);
    area(0).setText("It is broken.\n");
    area(1).setText("Kovrel, some version\n");
    for (auto* button : window->findChildren<PlainButton*>())
        button->click();
    const QString text = "It is broken.\n\nKovrel, some version\n";
    EXPECT_EQ(handedOn, QStringList({"mail: " + text, "copy: " + text, "save: " + text}));
}

TEST_F(FeedbackWindowTest, WordsStayAndTheReportIsNewWhenItIsOpenedAgain)
{
    open(false);
    EXPECT_EQ(window->findChildren<PlainButton*>().size(), 2) << "nobody is asked to mail";
    area(0).setText("Half of a");
    area(1).setText("changed");
    window->present("Kovrel 1.3\n");
    EXPECT_EQ(window->text(), "Half of a\n\nchanged") << "what is open keeps what was changed in it";
    WindowWalk::press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    window->present("Kovrel 1.3\n");
    EXPECT_EQ(window->text(), "Half of a\n\nKovrel 1.3\n");
}

TEST_F(FeedbackWindowTest, TheKeyboardReachesEveryControlAndEachHasAName)
{
    open(true);
    const QWidgetList chain = WindowWalk::tabChain();
    EXPECT_EQ(chain.size(), 5);
    for (QWidget* control : chain)
        EXPECT_FALSE(WindowWalk::text(control, QAccessible::Name).isEmpty()) << control->metaObject()->className();
}

} // namespace Kovrel
