#pragma once

#include "model/EditorTool.h"

#include <QWidget>

#include <vector>

namespace Kovrel {

class SymbolButton;

// The tools of the editor, one below the other, or two in a row where that is too high. The arrow keys go from one to
// the next. Main thread.
class ToolPalette : public QWidget {
    Q_OBJECT

public:
    ToolPalette();

    void setTool(EditorTool tool);

    QSize sizeHint() const override { return {sizeOf(m_columns).width(), sizeOf(1).height()}; }

    QSize minimumSizeHint() const override { return {sizeOf(m_columns).width(), sizeOf(2).height()}; }

Q_SIGNALS:
    void toolChosen(EditorTool tool);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeButton(EditorTool tool);
    // Where a tool's button lies when so many are in a row, read from the left.
    QRect place(EditorTool tool, int columns) const;
    QSize sizeOf(int columns) const;

    std::vector<SymbolButton*> m_buttons; // in the order of the tools
    int m_columns = 1;
};

} // namespace Kovrel
