// editor_keys: from the key of a tool to the frame that shows it, with a 3840 x 2160 capture and 100 marks, on a real X
// server. Ends with 1 when a frame takes longer than 16 ms.
//
//     Xvfb :77 -screen 0 3840x2160x24 & DISPLAY=:77 bench_editor_keys
#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "bench/editor/EditorRig.h"
#include "editorwindow/tools/ToolKeys.h"
#include "platform/desktop/ThreadWorkers.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestKeyboard.h"

#include <QApplication>
#include <QKeyEvent>

#include <cstdio>
#include <map>

using namespace Kovrel;

namespace {

constexpr double mostMilliseconds = 16;
constexpr int rounds = 9;

// Where the letters are on a US keyboard.
xcb_keycode_t placeOf(char letter)
{
    static const std::map<char, xcb_keycode_t> places{{'V', 55}, {'C', 54}, {'A', 38}, {'L', 46}, {'P', 33}, {'H', 43},
                                                      {'R', 27}, {'F', 41}, {'O', 32}, {'N', 57}, {'T', 28}, {'B', 56},
                                                      {'X', 53}, {'K', 45}, {'S', 39}, {'M', 58}};
    return places.at(letter);
}

// Until the server has all that was drawn.
void finishDrawing()
{
    auto* const connection = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    xcb_get_input_focus_reply_t* const reply =
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr);
    std::free(reply);
}

// Whether the window was painted since it was last asked.
struct FrameWatch : QObject {
    bool hasPainted = false;

    bool eventFilter(QObject*, QEvent* event) override
    {
        hasPainted |= event->type() == QEvent::Paint;
        return false;
    }
};

double keyToFrame(EditorWindow& window, Testing::TestKeyboard& keyboard, FrameWatch& watch, EditorTool tool)
{
    Bench::EditorRig::settleFor(60);
    watch.hasPainted = false;
    const double took = Bench::milliseconds([&] {
        keyboard.press(placeOf(ToolKeys::letterOf(tool)));
        while (window.session().tool() != tool || !watch.hasPainted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 500);
        finishDrawing();
    });
    keyboard.release(placeOf(ToolKeys::letterOf(tool)));
    return took;
}

EditorDocument hundredMarks()
{
    EditorDocument document;
    for (int index = 0; index < 100; ++index) {
        const double x = 100 + 350 * (index % 10);
        const double y = 100 + 200 * double(index / 10);
        const auto kind = Annotation::Kind(2 + index % 5);
        document.marks.push_back({.kind = kind, .points = {{x, y}, {x + 200, y + 120}}, .colorHex = "#FF3B30"});
        document.marks.back().lineWidth = 4;
        document.marks.back().text = "Label";
    }
    return document;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const Testing::TempFolder folder;
    ThreadWorkers workers;
    Bench::EditorRig rig(folder.path(), workers);
    const auto window = rig.window(Bench::pictures().front().image, 1, hundredMarks());
    window->resize(3840, 2160);
    window->activateWindow();
    Bench::EditorRig::settleFor(500);
    Testing::TestKeyboard keyboard(qgetenv("DISPLAY"));
    FrameWatch watch;
    qApp->installEventFilter(&watch);
    bool holds = true;
    std::printf("%-16s %10s %10s\n", "tool", "median, ms", "best, ms");
    for (const auto& [tool, name] : RawStrings<EditorTool>::table) {
        Bench::Samples samples;
        for (int round = 0; round < rounds; ++round) {
            window->session().setTool(tool == EditorTool::select ? EditorTool::pen : EditorTool::select);
            samples.add(keyToFrame(*window, keyboard, watch, tool));
        }
        const bool isLate = samples.median() > mostMilliseconds;
        holds &= !isLate;
        std::printf("%-16s %10.1f %10.1f%s\n", name, samples.median(), samples.best(), isLate ? "  MISSED" : "");
    }
    return holds ? 0 : 1;
}
