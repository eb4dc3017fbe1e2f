#pragma once

#include "editor/canvas/CanvasPicture.h"
#include "editor/session/EditorPointing.h"
#include "editor/session/LabelEditing.h"
#include "tests/editor/RandomMarks.h"
#include "tests/support/TempFolder.h"

#include <optional>

namespace Kovrel::Testing {

// Somebody who does anything to a capture, in any order: an editor without its window. The same seed does the same.
class EditorWalk {
public:
    // The capture has so many pixels to an image point.
    EditorWalk(unsigned seed, double scale);

    const EditorCapture& capture() const { return m_capture; }

    EditorSession& session() { return *m_session; }

    // One gesture with the pointer, some keys, or a command. Nothing is left half done.
    void step();
    // Closes the editor and opens another one with this document.
    void reopen(EditorDocument document);

private:
    using Action = void (EditorWalk::*)();

    bool oneIn(int count) { return m_random.below(count) == 0; }

    CanvasPointer pointer();
    void chooseTool();
    void drag();
    void click();
    void write(QUuid label);
    void writeSomething(LabelEditing& writing);
    void restyle();
    void nudge();
    void remove();
    void duplicate();
    void reorder();
    void selectSome();
    void paste();
    void changeBackdrop();
    void changeOutputSize();
    void undoSome();
    void redoSome();

    RandomMarks m_random;
    EditorCapture m_capture;
    TempFolder m_folder;
    UserDefaults m_defaults{m_folder / "kovrel.conf"};
    Preferences m_preferences{m_defaults};
    std::unique_ptr<EditorSession> m_session;
    std::unique_ptr<EditorPointing> m_pointing;
};

} // namespace Kovrel::Testing
