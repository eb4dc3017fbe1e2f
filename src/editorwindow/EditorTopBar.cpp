#include "editorwindow/EditorTopBar.h"

#include "editorwindow/tools/DragHandle.h"
#include "editorwindow/tools/StylePanel.h"
#include "ui/PrimaryButton.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>
#include <QLabel>

namespace Kovrel {

namespace {

// What there is to choose for the marks that are selected, or that the tool makes.
MarkStyle possibleStyle(const EditorSession& session)
{
    const MarkStyle all{.colorHex = "",
                        .lineWidth = 1,
                        .fillStyle = AnnotationFillStyle{},
                        .textStyle = AnnotationTextStyle{},
                        .rounded = false,
                        .dimLevel = 0,
                        .tipScale = 1};
    MarkStyle possible;
    if (session.selection().empty()) {
        const auto kind = kindOf(session.tool());
        return kind ? MarkStyle::onlyOf(*kind, all) : possible;
    }
    for (const Annotation& mark : session.selectedMarks())
        possible = possible.united(MarkStyle::onlyOf(mark.kind, all));
    return possible;
}

} // namespace

EditorTopBar::EditorTopBar(EditorSession& session, Preferences& preferences, ColorPick pick)
    : m_session(session),
      m_layout(new QHBoxLayout(this)),
      m_style(new StylePanel(preferences, std::move(pick))),
      m_zoom(new QLabel)
{
    m_layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    m_layout->setSpacing(Spacing::tight);
    m_undo = addButton("arrow.uturn.backward", tr("Undo (Ctrl+Z)"), &EditorTopBar::undoWanted);
    m_redo = addButton("arrow.uturn.forward", tr("Redo (Ctrl+Shift+Z)"), &EditorTopBar::redoWanted);
    m_layout->addSpacing(Spacing::large);
    m_layout->addWidget(m_style);
    m_layout->addStretch(1);
    m_zoom->setAccessibleName(tr("Zoom"));
    m_layout->addWidget(m_zoom);
    m_layout->addSpacing(Spacing::medium);
    addButton("magnifyingglass", tr("Find Text (Ctrl+F)"), &EditorTopBar::findWanted);
    m_text = addButton("text.viewfinder", tr("Select Text (Ctrl+T)"), &EditorTopBar::textWanted);
    m_text->setCheckable(true);
    m_backdrop = addButton("rectangle.inset.filled", tr("Backdrop (Ctrl+B)"), &EditorTopBar::backdropWanted);
    m_backdrop->setCheckable(true);
    m_layout->addSpacing(Spacing::medium);
    addButton("doc.on.doc", tr("Copy (Ctrl+C)"), &EditorTopBar::copyWanted);
    addHandle();
    addButton("square.and.arrow.down", tr("Save (Ctrl+S)"), &EditorTopBar::saveWanted);
    m_layout->addSpacing(Spacing::small);
    auto* const done = new PrimaryButton(tr("Done"));
    connect(done, &QPushButton::clicked, this, &EditorTopBar::doneWanted);
    m_layout->addWidget(done);
    connect(m_style, &StylePanel::styleChosen, this, [this](const MarkStyle& style) { m_session.setStyle(style); });
}

SymbolButton* EditorTopBar::addButton(const QString& symbol, const QString& name, void (EditorTopBar::*wanted)())
{
    auto* const button = new SymbolButton(symbol, name);
    connect(button, &SymbolButton::clicked, this, wanted);
    m_layout->addWidget(button);
    return button;
}

void EditorTopBar::addHandle()
{
    auto* const handle = new DragHandle("square.and.arrow.up.right", tr("Drag the Picture Out"));
    connect(handle, &DragHandle::pressed, this, &EditorTopBar::handlePressed);
    connect(handle, &DragHandle::dragged, this, [this, handle] { Q_EMIT handleDragged(*handle); });
    m_layout->addWidget(handle);
}

void EditorTopBar::follow()
{
    m_style->setStyle(m_session.style(), possibleStyle(m_session));
    m_undo->setEnabled(m_session.canUndo());
    m_redo->setEnabled(m_session.canRedo());
}

void EditorTopBar::setZoom(double percent)
{
    m_zoom->setText(QString("%1 %").arg(qRound(percent)));
}

void EditorTopBar::setSelectingText(bool isSelecting)
{
    m_text->setChecked(isSelecting);
}

void EditorTopBar::setBackdropShown(bool isShown)
{
    m_backdrop->setChecked(isShown);
}

} // namespace Kovrel
