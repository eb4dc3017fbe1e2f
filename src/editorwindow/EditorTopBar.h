#pragma once

#include "editor/session/EditorSession.h"
#include "model/ColorPick.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace Kovrel {

class StylePanel;
class SymbolButton;

// What stands above the canvas of an editor: undo and redo, the style of marks, and what is done with the whole.
// Main thread.
class EditorTopBar : public QWidget {
    Q_OBJECT

public:
    // Both outlive it.
    EditorTopBar(EditorSession& session, Preferences& preferences, ColorPick pick);

    // Shows what can be done and chosen now.
    void follow();
    void setZoom(double percent);
    // Whether the panel is open that the button opens.
    void setBackdropShown(bool isShown);
    // Whether the text of the capture can be selected.
    void setSelectingText(bool isSelecting);

Q_SIGNALS:
    void undoWanted();
    void redoWanted();
    void findWanted();
    void textWanted();
    void backdropWanted();
    void copyWanted();
    // The handle is pressed, and then dragged.
    void handlePressed();
    void handleDragged(QWidget& handle);
    void saveWanted();
    void doneWanted();

private:
    void addHandle();
    SymbolButton* addButton(const QString& symbol, const QString& name, void (EditorTopBar::*wanted)());

    EditorSession& m_session;
    QHBoxLayout* m_layout;
    SymbolButton* m_undo;
    SymbolButton* m_redo;
    StylePanel* m_style;
    QLabel* m_zoom;
    SymbolButton* m_text;
    SymbolButton* m_backdrop;
};

} // namespace Kovrel
