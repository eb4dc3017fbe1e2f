#include "editorwindow/EditorWindow.h"

#include "editor/marks/RedactionSources.h"
#include "editorwindow/EditorClipboard.h"
#include "editorwindow/tools/StylePanel.h"
#include "editorwindow/tools/ToolKeys.h"
#include "editorwindow/tools/ToolPalette.h"
#include "platform/FilePanel.h"
#include "platform/Guarded.h"
#include "platform/Workers.h"
#include "ports/CaptureDelivery.h"
#include "ports/Toasts.h"
#include "ui/PrimaryButton.h"
#include "ui/Symbols.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize smallest(900, 560);
constexpr double screenShare = 0.85;

bool needsRedactions(const EditorSession& session)
{
    const EditorTool tool = session.tool();
    return tool == EditorTool::blur || tool == EditorTool::pixelate ||
           std::ranges::any_of(session.document().marks, [](const Annotation& mark) {
               return mark.kind == Annotation::Kind::blur || mark.kind == Annotation::Kind::pixelate;
           });
}

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

EditorWindow::EditorWindow(EditorServices& services, EditedCaptures::Opened opened, Kind kind, const QString& title)
    : m_services(services),
      m_kind(kind),
      m_session(std::move(opened.capture), std::move(opened.document), services.preferences),
      m_keeping(services, m_session, std::move(opened.savedPath), kind == Kind::capture),
      m_lines(services, m_session.capture()),
      m_canvas(new AnnotationCanvasView(m_session, services.preferences.get(Settings::measureUnit))),
      m_tools(new ToolPalette),
      m_style(new StylePanel(services.preferences)),
      m_scope(services.loop, services.workers)
{
    setWindowTitle(title);
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    setMinimumSize(smallest);
    auto* const middle = new QHBoxLayout;
    middle->setContentsMargins(0, 0, 0, 0);
    middle->setSpacing(0);
    middle->addWidget(m_tools);
    middle->addWidget(m_canvas, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeTopBar());
    layout->addLayout(middle, 1);
    addCommands();
    connect(m_tools, &ToolPalette::toolChosen, this, [this](EditorTool tool) {
        m_canvas->stopWriting();
        m_session.setTool(tool);
        m_canvas->setFocus();
    });
    connect(m_style, &StylePanel::styleChosen, this, [this](const MarkStyle& style) { m_session.setStyle(style); });
    connect(m_canvas, &AnnotationCanvasView::zoomChanged, this,
            [this] { m_zoom->setText(QString("%1 %").arg(qRound(m_canvas->zoomPercent()))); });
    connect(m_canvas, &AnnotationCanvasView::contextMenuWanted, this, &EditorWindow::showMenu);
    m_canvas->pointing().setLineHeightAt([this](Point at) {
        const bool isWanted = m_services.preferences.get(Settings::highlighterAutoSize);
        return isWanted ? m_lines.heightAt(at) : std::nullopt;
    });
    m_changes = m_session.onChange([this] { follow(); });
    follow();
    resize((QSizeF(screen()->availableSize()) * screenShare).toSize());
    m_canvas->setFocus();
}

// --- What there is

SymbolButton* EditorWindow::makeButton(const QString& symbol, const QString& name, void (EditorWindow::*action)())
{
    auto* const button = new SymbolButton(symbol, name);
    connect(button, &SymbolButton::clicked, this, action);
    return button;
}

QWidget* EditorWindow::makeTopBar()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    layout->setSpacing(Spacing::tight);
    m_undo = makeButton("arrow.uturn.backward", tr("Undo (Ctrl+Z)"), &EditorWindow::undo);
    m_redo = makeButton("arrow.uturn.forward", tr("Redo (Ctrl+Shift+Z)"), &EditorWindow::redo);
    m_zoom = new QLabel;
    m_zoom->setAccessibleName(tr("Zoom"));
    layout->addWidget(m_undo);
    layout->addWidget(m_redo);
    layout->addSpacing(Spacing::large);
    layout->addWidget(m_style);
    layout->addStretch(1);
    layout->addWidget(m_zoom);
    layout->addSpacing(Spacing::medium);
    layout->addWidget(makeButton("doc.on.doc", tr("Copy (Ctrl+C)"), &EditorWindow::copy));
    layout->addWidget(makeButton("square.and.arrow.down", tr("Save (Ctrl+S)"), &EditorWindow::save));
    layout->addSpacing(Spacing::small);
    auto* const done = new PrimaryButton(tr("Done"));
    connect(done, &QPushButton::clicked, this, &EditorWindow::close);
    layout->addWidget(done);
    return bar;
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
    add(QKeySequence::Paste, [this] { paste(); });
    add(QKeySequence::SelectAll, [this] { m_session.selectAll(); });
    add(QKeySequence::Save, [this] { save(); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { saveAs(); });
    add(QKeySequence::Close, [this] { close(); });
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
    m_style->setStyle(m_session.style(), possibleStyle(m_session));
    m_undo->setEnabled(m_session.canUndo());
    m_redo->setEnabled(m_session.canRedo());
    if (m_session.tool() == EditorTool::highlighter && m_services.preferences.get(Settings::highlighterAutoSize))
        m_lines.expect();
    if (!m_hasRedactions && needsRedactions(m_session)) {
        m_hasRedactions = true;
        Scope::start(prepareRedactions(), "preparing redactions");
    }
}

QCoro::Task<> EditorWindow::prepareRedactions()
{
    const auto job = [capture = m_session.capture()] {
        return CanvasPicture::Redactions{RedactionSources::blurred(capture.image, capture.scale),
                                         RedactionSources::pixelated(capture.image, capture.scale)};
    };
    const auto made = co_await m_scope.onWorker(Lane::editorSave, Guarded::orElse(job, CanvasPicture::Redactions()));
    m_canvas->setRedactions(made);
}

// --- Keys

void EditorWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        return escape();
    if (const auto tool = ToolKeys::toolOf(*event); tool && !m_canvas->isWriting())
        return m_session.setTool(*tool);
    AppWindow::keyPressEvent(event);
}

// Text, a crop, what is selected; then the result is copied and the window closes.
void EditorWindow::escape()
{
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
        EditorClipboard::shared().set(m_session.selectedMarks());
        return;
    }
    m_canvas->stopWriting();
    m_keeping.copy([this] {
        m_services.ports.toasts.tell(&Toasts::present, ToastContent{.message = tr("Copied"), .copied = true},
                                     std::nullopt, true);
    });
}

void EditorWindow::paste()
{
    m_session.paste(EditorClipboard::shared().marks(), {12, -12});
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
    const auto& toasts = m_services.ports.toasts;
    if (outcome)
        toasts.tell(&Toasts::showSaved, *outcome, std::nullopt);
    else
        toasts.tell(&Toasts::present,
                    ToastContent{.message = tr("Not saved"),
                                 .subtitle = outcome.error().message,
                                 .icon = "exclamationmark.triangle"},
                    std::nullopt, false);
}

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
    add(tr("Paste"), QKeySequence::Paste, [this] { paste(); })->setEnabled(true);
    add(tr("Duplicate"), Qt::CTRL | Qt::Key_D, [this] { m_session.duplicateSelected(); });
    add(tr("Delete"), QKeySequence::Delete, [this] { m_session.removeSelected(); });
    menu->addSeparator();
    add(tr("Bring to Front"), Qt::CTRL | Qt::SHIFT | Qt::Key_BracketRight, [this] { m_session.bring(Layer::front); });
    add(tr("Bring Forward"), Qt::CTRL | Qt::Key_BracketRight, [this] { m_session.bring(Layer::forward); });
    add(tr("Send Backward"), Qt::CTRL | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::backward); });
    add(tr("Send to Back"), Qt::CTRL | Qt::SHIFT | Qt::Key_BracketLeft, [this] { m_session.bring(Layer::back); });
    menu->popup(globalPosition);
}

// --- The end

bool EditorWindow::isKeptInHistory() const
{
    const auto& edits = m_services.ports.edits;
    return m_kind == Kind::capture && edits && edits->has(m_session.capture().id);
}

// A file is written only when its user says so.
void EditorWindow::closeEvent(QCloseEvent* event)
{
    m_canvas->stopWriting();
    if (!isKeptInHistory() && m_keeping.isChanged()) {
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
    box->setInformativeText(tr("The file is written with its marks in the picture; they can't be changed later."));
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
    hide();
    Q_EMIT closed();
}

} // namespace Kovrel
