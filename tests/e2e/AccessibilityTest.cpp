#include "tests/e2e/ScreenReader.h"
#include "tests/e2e/UserSession.h"
#include "tests/support/Patterns.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

namespace Kovrel {

using Testing::ScreenReader;
using Testing::UserSession;

namespace {

using Items = std::vector<ScreenReader::Item>;

struct Walk {
    const char* name;
    QString title;       // of the window
    QStringList command; // that opens it
    bool isFirst = false;
    QStringList keys = {}; // that lead to what is walked
};

std::vector<Walk> walks()
{
    std::vector<Walk> walks{
        {"Home", "Kovrel", {}},
        {"Greeting", "Welcome to Kovrel", {}, true},
        {"AccountPage", "Welcome to Kovrel", {}, true, {"Return"}},
        {"RecentCaptures", "Recent Captures", {"recent"}},
        {"Feedback", "Kovrel Feedback", {"feedback"}},
        {"Editor", "shot.png", {"open", "shot.png"}},
    };
    for (const char* tab :
         {"general", "capture", "after", "saving", "editor", "shortcuts", "history", "text", "sounds"})
        walks.push_back({tab, "Kovrel Settings", {"settings", tab}});
    return walks;
}

// Every window as a screen reader and the tabulator meet it, in the real program.
struct AccessibilityTest : testing::TestWithParam<Walk> {
    Testing::VirtualDisplay display{{1400, 1000}};
    UserSession session{&display};
    ScreenReader reader{session};

    void start(const Walk& walk)
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        session.setVariable("KOVREL_REDUCED_MOTION", "1");
        if (walk.isFirst) {
            session.startKovrel({});
            return;
        }
        session.prepare();
        Testing::pattern({320, 200}).save(session.path("home/shot.png"));
        session.kovrel({"capture", "area", "--rect", "0,0,90,90", "--wait"});
        session.kovrel(walk.command);
    }

    ScreenReader::Item window(const QString& title)
    {
        std::optional<ScreenReader::Item> window;
        UserSession::eventually([&] {
            window = reader.window(title);
            return window && reader.is(*window, ScreenReader::active) && focused(*window);
        });
        return window.value_or(ScreenReader::Item());
    }

    void type(const QString& key) { session.run("xdotool", {"key", key}); }

    std::optional<ScreenReader::Item> focused(const ScreenReader::Item& window) const
    {
        const Items controls = reader.controls(window);
        // The current item of a list calls itself focused, wherever the keyboard is.
        const auto found = std::ranges::find_if(controls, [this](const auto& control) {
            return control.role != "list item" && reader.is(control, ScreenReader::focused);
        });
        return found == controls.end() ? std::nullopt : std::optional(*found);
    }

    // What the tabulator visits until it is somewhere for the second time, which comes last.
    Items tabChain(const ScreenReader::Item& window)
    {
        Items chain;
        for (auto focus = focused(window); focus; focus = focused(window)) {
            const bool isRound = std::ranges::find(chain, *focus) != chain.end();
            chain.push_back(*focus);
            if (isRound)
                break;
            type("Tab");
            if (reader.controls(window).size() > 1)
                UserSession::eventually([&] { return focused(window) != focus; });
        }
        return chain;
    }

    // Of a group of which one is chosen, and of a list, the tabulator visits one place.
    static bool isReached(const ScreenReader::Item& control, const Items& chain)
    {
        return std::ranges::any_of(chain, [&](const ScreenReader::Item& visited) {
            const bool isGroup = control.role == "radio button" || control.role == "list item";
            return visited.path == control.path || visited.parent == control.path ||
                   (isGroup && (visited.parent == control.parent || visited.path == control.parent));
        });
    }
};

} // namespace

TEST_P(AccessibilityTest, EveryControlHasANameAndIsReachedByTheTabulator)
{
    start(GetParam());
    const ScreenReader::Item shown = window(GetParam().title);
    for (const QString& key : GetParam().keys)
        type(key);
    // Some rows come later: what is installed is found out on a worker.
    Items chain;
    Items controls;
    do {
        controls = reader.controls(shown);
        chain = tabChain(shown);
    } while (reader.controls(shown).size() != controls.size());
    ASSERT_FALSE(chain.empty());
    EXPECT_EQ(chain.front(), chain.back()) << "the tabulator comes round";
    ASSERT_FALSE(controls.empty());
    for (const ScreenReader::Item& control : controls) {
        const std::string what = QString(control.role + ": " + control.name).toStdString();
        EXPECT_FALSE(control.name.isEmpty()) << what;
        EXPECT_FALSE(QStringList({"", "unknown", "invalid", "filler", "panel"}).contains(control.role)) << what;
        if (control.role == "combo box")
            EXPECT_TRUE(control.name.contains(": ")) << what << ", for what?";
        if (control.role != "label") // a text, of which the pointer takes parts
            EXPECT_TRUE(isReached(control, chain)) << what;
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityTest, testing::ValuesIn(walks()),
                         [](const auto& info) { return info.param.name; });

} // namespace Kovrel
