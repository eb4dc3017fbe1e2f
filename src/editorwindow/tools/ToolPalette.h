#pragma once

#include "model/EditorTool.h"

#include <QWidget>

#include <vector>

namespace Kovrel {

class SymbolButton;

// The tools of the editor, one below the other. The arrow keys go from one to the next. Main thread.
class ToolPalette : public QWidget {
    Q_OBJECT

public:
    ToolPalette();

    void setTool(EditorTool tool);

Q_SIGNALS:
    void toolChosen(EditorTool tool);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SymbolButton* makeButton(EditorTool tool);

    std::vector<SymbolButton*> m_buttons; // in the order of the tools
};

} // namespace Kovrel
