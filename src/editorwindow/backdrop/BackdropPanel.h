#pragma once

#include "editorwindow/backdrop/BackdropEditing.h"
#include "editorwindow/backdrop/BackdropSwatches.h"
#include "model/ColorPick.h"

#include <QWidget>

namespace Kovrel {

class BackdropControls;
class BackdropFills;

// The side panel of the editor that sets a capture on a backdrop. It is there at once; its swatches come as they are
// drawn. Main thread.
class BackdropPanel : public QWidget {
    Q_OBJECT

public:
    // All of them outlive it.
    BackdropPanel(EditorSession& session, Preferences& preferences, MainLoop& loop, Workers& workers,
                  ColorPick pick = {});

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void refresh();

    EditorSession& m_session;
    BackdropEditing m_editing;
    BackdropSwatches m_swatches;
    BackdropFills* m_fills;
    BackdropControls* m_controls;
    EditorBackdrop m_shown;
    Subscription m_changes;
};

} // namespace Kovrel
