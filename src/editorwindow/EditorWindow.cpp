#include "editorwindow/EditorWindow.h"

#include "editorwindow/DefaultEditorOffer.h"
#include "editorwindow/EditorClipboard.h"
#include "editorwindow/EditorToasts.h"
#include "editorwindow/EditorTopBar.h"
#include "editorwindow/backdrop/BackdropPanel.h"
#include "editorwindow/crop/CropBar.h"
#include "editorwindow/find/FindBar.h"
#include "editorwindow/tools/ToolKeys.h"
#include "editorwindow/tools/ToolPalette.h"
#include "platform/Clipboard.h"
#include "platform/FilePanel.h"
#include "ports/CaptureDelivery.h"
#include "ports/ColorPicking.h"
#include "ports/Toasts.h"
#include "ui/controls/AccessibleRole.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize smallest(900, 450);
constexpr double screenShare = 0.85;

QString flattened()
{
    return EditorWindow::tr("The file is written with its marks in the picture; they can't be changed later.");
}

QString kept()
{
    return EditorWindow::tr("The file is written with its marks in the picture; here they can still be changed later.");
}

} // namespace

EditorWindow::EditorWindow(EditorServices& services, EditedCaptures::Opened opened, Kind kind, const QString& title)
    : m_services(services),
      m_kind(kind),
      m_session(std::move(opened.capture), std::move(opened.document), services.preferences),
      m_keeping(services, m_session, std::move(opened.savedPath), kind),
      m_canvas(new AnnotationCanvasView(m_session, services.preferences.get(Settings::measureUnit))),
      m_text(services, m_session, *m_canvas),
      m_sources(services, m_session, *m_canvas),
      m_intake(services, m_session, *m_canvas),
      m_handout(services, m_session, m_keeping),
      m_top(new EditorTopBar(m_session, services.preferences, ColorPicking::offeredBy(services.ports.colorPicking))),
      m_tools(new ToolPalette),
      m_middle(new QHBoxLayout),
      m_crop(new CropBar(m_session, services.preferences, services.loop, services.workers))
{
    setWindowTitle(title);
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    setMinimumSize(smallest);
    AccessibleRole::set(*m_canvas, QAccessible::Canvas);
    arrange();
    addCommands();
    connectParts();
    connectText();
    m_changes.push_back(m_session.onChange([this] { follow(); }));
    follow();
    rememberSize(services.preferences, Settings::editorWindowSize,
                 (QSizeF(screen()->availableSize()) * screenShare).toSize());
    m_canvas->setFocus();
}

// --- What there is

void EditorWindow::arrange()
{
    m_middle->setContentsMargins(0, 0, 0, 0);
    m_middle->setSpacing(0);
    m_middle->addWidget(m_tools);
    auto* const column = new QVBoxLayout;
    column->setSpacing(0);
    if (m_kind == Kind::file && m_services.programs)
        column->addWidget(new DefaultEditorOffer(*m_services.programs, m_services.preferences));
    column->addWidget(&m_text.bar());
    column->addWidget(m_canvas, 1);
    column->addWidget(m_crop);
    m_crop->hide();
    m_middle->addLayout(column, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_top);
    layout->addLayout(m_middle, 1);
}

void EditorWindow::connectParts()
{
    connect(m_top, &EditorTopBar::undoWanted, this, &EditorWindow::undo);
    connect(m_top, &EditorTopBar::redoWanted, this, &EditorWindow::redo);
    connect(m_top, &EditorTopBar::backdropWanted, this, &EditorWindow::toggleBackdrop);
    connect(m_top, &EditorTopBar::copyWanted, this, &EditorWindow::copy);
    connect(m_top, &EditorTopBar::handlePressed, this, [this] {
        m_canvas->stopWriting();
        m_handout.prepareDrag();
    });
    connect(m_top, &EditorTopBar::handleDragged, this, [this](QWidget& handle) { m_handout.drag(handle); });
    connect(m_top, &EditorTopBar::saveWanted, this, &EditorWindow::save);
    connect(m_top, &EditorTopBar::doneWanted, this, &EditorWindow::close);
    connect(m_tools, &ToolPalette::toolChosen, this, [this](EditorTool tool) {
        m_canvas->stopWriting();
        m_session.setTool(tool);
        m_canvas->setFocus();
    });
    connect(m_canvas, &AnnotationCanvasView::zoomChanged, this, [this] { m_top->setZoom(m_canvas->zoomPercent()); });
    connect(m_crop, &CropBar::aspectChosen, this,
            [this](std::optional<double> aspect) { m_canvas->pointing().setCropAspect(aspect); });
    connect(m_canvas, &AnnotationCanvasView::contextMenuWanted, this, &EditorWindow::showMenu);
    connect(m_canvas, &AnnotationCanvasView::textWanted, this, [this] { m_intake.paste(); });
    connect(m_canvas, &AnnotationCanvasView::textCopied, this,
            [this](const QString& text) { m_services.clipboard.putText(text); });
}

void EditorWindow::addKeys(const QKeySequence& keys, std::function<void()> action)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, std::move(action));
}

void EditorWindow::addCommands()
{
    using Layer = EditorSession::Layer;
    const auto add = [this](const auto& keys, auto action) { addKeys(QKeySequence(keys), action); };
    add(QKeySequence::Undo, [this] { undo(); });
    add(QKeySequence::Redo, [this] { redo(); });
    add(Qt::CTRL | Qt::Key_Y, [this] { redo(); });
    add(QKeySequence::Copy, [this] { copy(); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { copyAsFile(); });
    add(QKeySequence::Paste, [this] { m_intake.paste(); });
    add(QKeySequence::SelectAll, [this] { m_session.selectAll(); });
    add(QKeySequence::Print, [this] { print(); });
    add(QKeySequence::Save, [this] { save(); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { saveAs(); });
    add(QKeySequence::Close, [this] { close(); });
    add(Qt::CTRL | Qt::Key_B, [this] { toggleBackdrop(); });
    add(QKeySequence::Find, [this] { m_text.openFind(); });
    add(Qt::CTRL | Qt::Key_T, [this] { toggleSelectingText(); });
    add(Qt::Key_F3, [this] { m_text.bar().go(1); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { m_text.bar().go(-1); });
    add(Qt::CTRL | Qt::Key_D, [this] { m_session.duplicateSelected(); });
    add(QKeySequence::ZoomIn, [this] { m_canvas->zoomIn(); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { m_canvas->zoomIn(); });
    add(QKeySequence::ZoomOut, [this] { m_canvas->zoomOut(); });
    add(Qt::CTRL | Qt::Key_0, [this] { m_canvas->fit(); });
    add(Qt::CTRL | Qt::Key_1, [this] { m_canvas->setZoomPercent(100); });
    add(Qt::CTRL | Qt::Key_BracketRight, [this] { m_session.bring(Layer::forward); });
    add(Qt::CTRL | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::backward); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_BracketRight, [this] { m_session.bring(Layer::front); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::back); });
}

void EditorWindow::follow()
{
    m_tools->setTool(m_session.tool());
    m_top->follow();
    m_sources.follow();
    m_text.follow();
    m_crop->setVisible(m_session.tool() == EditorTool::crop);
}

// --- Keys

void EditorWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        return escape();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && m_session.tool() == EditorTool::crop)
        return m_session.setTool(EditorTool::select);
    if (const auto tool = ToolKeys::toolOf(*event); tool && !m_canvas->isWriting())
        return m_session.setTool(*tool);
    AppWindow::keyPressEvent(event);
}

// Out of the panel, then the text of the capture, what is written, a crop, what is selected; then the result is copied
// and the window closes.
void EditorWindow::escape()
{
    if (m_backdrop && m_backdrop->isAncestorOf(focusWidget()))
        return m_canvas->setFocus();
    if (m_text.isSelecting())
        return m_text.setSelecting(false);
    if (m_canvas->escape())
        return;
    if (m_session.tool() == EditorTool::crop)
        return m_session.setTool(EditorTool::select);
    if (m_services.preferences.get(Settings::escCopiesAndCloses))
        m_keeping.copy([this] { close(); });
    else
        close();
}

// --- Commands

void EditorWindow::undo()
{
    m_canvas->stopWriting();
    m_session.undo();
}

void EditorWindow::redo()
{
    m_session.redo();
}

// Marks that are selected, to be pasted here or elsewhere, else the picture.
void EditorWindow::copy()
{
    if (!m_session.selection().empty()) {
        EditorClipboard::shared().copy(m_session.selectedMarks(), m_services.clipboard);
        return;
    }
    m_canvas->stopWriting();
    m_keeping.copy([this] { EditorToasts::sayCopied(m_services.ports, tr("Copied")); });
}

void EditorWindow::copyAsFile()
{
    m_canvas->stopWriting();
    m_handout.copyAsFile();
}

void EditorWindow::print()
{
    m_canvas->stopWriting();
    m_handout.print(windowTitle(), windowHandle());
}

void EditorWindow::save()
{
    m_canvas->stopWriting();
    m_keeping.save({}, [this](const SaveOutcome& outcome) { tellSaved(outcome); });
}

void EditorWindow::saveAs()
{
    m_canvas->stopWriting();
    const QString suggestion = m_keeping.savedPath().value_or(windowTitle() + ".png");
    const auto answered = [this, self = QPointer(this)](const std::optional<QString>& path) {
        if (self && path)
            m_keeping.save(path, [this](const SaveOutcome& outcome) { tellSaved(outcome); });
    };
    m_services.filePanel.ask(suggestion, windowHandle(), answered);
}

void EditorWindow::tellSaved(const SaveOutcome& outcome)
{
    if (!outcome)
        EditorToasts::warn(m_services.ports, tr("Not saved"), outcome.error().message);
    else if (isFlattened())
        EditorToasts::warn(m_services.ports, tr("Saved"), flattened());
    else
        m_services.ports.toasts.tell(&Toasts::showSaved, *outcome, std::nullopt);
}

// What was made of a file is only in its picture once its editor is closed.
bool EditorWindow::isFlattened() const
{
    return m_kind == Kind::file && !m_keeping.isKept() && !m_session.document().marks.empty();
}

void EditorWindow::toggleBackdrop()
{
    if (!m_backdrop) {
        m_backdrop = new BackdropPanel(m_session, m_services.preferences, m_services.loop, m_services.workers,
                                       ColorPicking::offeredBy(m_services.ports.colorPicking));
        m_backdrop->hide();
        m_middle->addWidget(m_backdrop);
    }
    m_backdrop->setVisible(m_backdrop->isHidden());
    m_top->setBackdropShown(!m_backdrop->isHidden());
}

// --- Text

void EditorWindow::connectText()
{
    connect(&m_text, &EditorText::selectingChanged, this, [this] { m_top->setSelectingText(m_text.isSelecting()); });
    connect(m_top, &EditorTopBar::findWanted, this, [this] { m_text.openFind(); });
    connect(m_top, &EditorTopBar::textWanted, this, &EditorWindow::toggleSelectingText);
}

void EditorWindow::toggleSelectingText()
{
    m_text.setSelecting(!m_text.isSelecting());
}

// --- The menu

void EditorWindow::showMenu(QPoint globalPosition)
{
    using Layer = EditorSession::Layer;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool hasSelection = !m_session.selection().empty();
    const auto add = [&](const QString& title, const auto& keys, auto action) {
        QAction* const entry = menu->addAction(title, this, action);
        entry->setShortcut(QKeySequence(keys));
        entry->setEnabled(hasSelection);
        return entry;
    };
    add(tr("Copy"), QKeySequence::Copy, [this] { copy(); })->setEnabled(true);
    add(tr("Copy as File"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { copyAsFile(); })->setEnabled(true);
    add(tr("Paste"), QKeySequence::Paste, [this] { m_intake.paste(); })->setEnabled(true);
    add(tr("Duplicate"), Qt::CTRL | Qt::Key_D, [this] { m_session.duplicateSelected(); });
    add(tr("Delete"), QKeySequence::Delete, [this] { m_session.removeSelected(); });
    menu->addSeparator();
    add(tr("Bring to Front"), Qt::CTRL | Qt::SHIFT | Qt::Key_BracketRight, [this] { m_session.bring(Layer::front); });
    add(tr("Bring Forward"), Qt::CTRL | Qt::Key_BracketRight, [this] { m_session.bring(Layer::forward); });
    add(tr("Send Backward"), Qt::CTRL | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::backward); });
    add(tr("Send to Back"), Qt::CTRL | Qt::SHIFT | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::back); });
    menu->addSeparator();
    add(tr("Find…"), QKeySequence::Find, [this] { m_text.openFind(); })->setEnabled(true);
    add(tr("Select Text"), Qt::CTRL | Qt::Key_T, [this] { toggleSelectingText(); })->setEnabled(true);
    add(tr("Output Size…"), QKeySequence(), [this, globalPosition] {
        m_crop->offerSizes(globalPosition);
    })->setEnabled(true);
    menu->addSeparator();
    add(tr("Print…"), QKeySequence::Print, [this] { print(); })->setEnabled(true);
    menu->popup(globalPosition);
}

// --- The end

// A file is written only when its user says so.
void EditorWindow::closeEvent(QCloseEvent* event)
{
    m_canvas->stopWriting();
    if (m_keeping.isChanged() && (m_kind == Kind::file || !m_keeping.isKept())) {
        event->ignore();
        askToSave();
        return;
    }
    event->accept();
    Q_EMIT closed();
}

void EditorWindow::askToSave()
{
    auto* const box = new QMessageBox(QMessageBox::Question, windowTitle(), tr("Save the changes?"),
                                      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(m_keeping.isKept() ? kept() : flattened());
    connect(box, &QMessageBox::buttonClicked, this, [this, box](QAbstractButton* button) {
        const auto answer = box->standardButton(button);
        if (answer == QMessageBox::Discard)
            discard();
        else if (answer == QMessageBox::Save)
            m_keeping.save({}, [this](const SaveOutcome& outcome) {
                tellSaved(outcome);
                if (outcome)
                    close();
            });
    });
    box->open();
}

void EditorWindow::discard()
{
    m_keeping.revert();
    hide();
    Q_EMIT closed();
}

} // namespace Kovrel
