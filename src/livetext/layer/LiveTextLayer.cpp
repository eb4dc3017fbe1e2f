#include "livetext/layer/LiveTextLayer.h"

#include "preferences/Settings.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/OverlayTokens.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPathStroker>
#include <QStyleHints>

namespace Kovrel {

namespace {

constexpr float selectionOpacity = 0.35F;
constexpr double shadeGap = 3;   // around what can be selected
constexpr double pillMargin = 8; // to the sides of the widget, and within the pill

bool isNear(QPointF one, QPointF other)
{
    return (one - other).manhattanLength() < QApplication::startDragDistance();
}

} // namespace

LiveTextLayer::LiveTextLayer(QWidget& picture, Preferences& preferences, Doors doors)
    : QWidget(&picture), m_preferences(preferences), m_doors(std::move(doors))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Text in the picture"));
    setGeometry(picture.rect());
    picture.installEventFilter(this);
    hide();
}

void LiveTextLayer::setReading(const OCRResult& text, const std::vector<QRCode>& codes, QSize picture)
{
    std::vector<OCRLine> lines;
    std::vector<QRCode> all = codes;
    for (const OCRLine& line : text.lines) {
        if (line.isQRCode)
            all.push_back({line.text, line.boundingBox});
        else
            lines.push_back(line);
    }
    clear();
    m_text = SelectableText(lines, picture);
    m_links = TextLinks(m_text, all, picture);
    setAccessibleDescription(m_text.text(m_text.all()));
    setVisible(!m_text.isEmpty() || !m_links.all().empty());
}

void LiveTextLayer::clear()
{
    m_press.reset();
    m_hovered = nullptr;
    m_anchor = m_end = {};
    m_text = {};
    m_links = {};
    hide();
}

void LiveTextLayer::setShaded(bool isShaded)
{
    m_isShaded = isShaded;
    update();
}

void LiveTextLayer::setPlacement(const QTransform& placement)
{
    m_toWidget = placement;
    m_fromWidget = placement.inverted();
    update();
}

// --- The selection

void LiveTextLayer::select(SelectableText::Range range)
{
    m_anchor = range.from;
    m_end = range.to;
    update();
}

void LiveTextLayer::selectAll()
{
    select(m_text.all());
}

bool LiveTextLayer::selectNone()
{
    const bool hadSome = !selection().isEmpty();
    m_anchor = m_end;
    update();
    return hadSome;
}

// --- The pointer

void LiveTextLayer::mousePressEvent(QMouseEvent* event)
{
    const QPointF at = inPicture(event->position());
    const TextLinks::Link* const link = m_links.at(at);
    const bool isOnText = !m_text.isEmpty() && m_text.covers(at);
    if (event->button() != Qt::LeftButton || (!link && !isOnText)) {
        selectNone();
        event->ignore();
        return;
    }
    m_press = Press{event->position(), link, isOnText};
    if (!isOnText)
        return;
    if (m_sinceDoubleClick.isValid() &&
        m_sinceDoubleClick.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval()) {
        select(m_text.lineAt(at));
        m_press.reset();
        return;
    }
    const auto place = m_text.placeAt(at);
    select({event->modifiers().testFlag(Qt::ShiftModifier) ? m_anchor : place, place});
}

void LiveTextLayer::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_press) {
        hover(event->position());
        event->ignore();
        return;
    }
    m_press->hasMoved |= !isNear(event->position(), m_press->at);
    if (m_press->hasMoved && m_press->isOnText) {
        m_end = m_text.placeAt(inPicture(event->position()));
        update();
    }
}

// A click that did not become a selection follows the link it was on.
void LiveTextLayer::mouseReleaseEvent(QMouseEvent* event)
{
    const auto press = std::exchange(m_press, std::nullopt);
    if (!press) {
        event->ignore();
        return;
    }
    if (press->link && !press->hasMoved && press->link == m_links.at(inPicture(event->position())))
        follow(*press->link);
}

void LiveTextLayer::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPointF at = inPicture(event->position());
    if (event->button() != Qt::LeftButton || m_text.isEmpty() || !m_text.covers(at)) {
        event->ignore();
        return;
    }
    select(m_text.wordAt(at));
    m_sinceDoubleClick.start();
}

void LiveTextLayer::hover(QPointF point)
{
    const QPointF at = inPicture(point);
    setHovered(m_links.at(at));
    const bool isOnText = !m_text.isEmpty() && m_text.covers(at);
    if (m_hovered)
        setCursor(Qt::PointingHandCursor);
    else if (isOnText)
        setCursor(Qt::IBeamCursor);
    else
        unsetCursor();
    if (isOnText)
        tellOnce();
}

void LiveTextLayer::setHovered(const TextLinks::Link* link)
{
    if (std::exchange(m_hovered, link) != link)
        update();
}

void LiveTextLayer::leaveEvent(QEvent*)
{
    setHovered(nullptr);
    m_isHintShown = false;
}

void LiveTextLayer::follow(const TextLinks::Link& link)
{
    if (link.target)
        m_doors.open(*link.target);
    else
        m_doors.copy(link.text);
}

void LiveTextLayer::tellOnce()
{
    if (m_preferences.get(Settings::liveTextHintSeen))
        return;
    m_preferences.set(Settings::liveTextHintSeen, true);
    m_isHintShown = true;
    update();
}

// --- Keys

bool LiveTextLayer::isOurs(const QKeyEvent& event) const
{
    const bool isOfSelection = event.matches(QKeySequence::Copy) || event.key() == Qt::Key_Escape;
    return event.matches(QKeySequence::SelectAll) || (isOfSelection && !selection().isEmpty());
}

// Before the window takes them for itself.
bool LiveTextLayer::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isOurs(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void LiveTextLayer::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy) && !selection().isEmpty())
        m_doors.copy(selectedText());
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (event->matches(QKeySequence::SelectNextChar) && !m_text.isEmpty())
        m_end = m_text.next(m_end);
    else if (event->matches(QKeySequence::SelectPreviousChar) && !m_text.isEmpty())
        m_end = m_text.previous(m_end);
    else if (event->key() != Qt::Key_Escape || !selectNone())
        event->ignore();
    update();
}

// --- The menu

void LiveTextLayer::contextMenuEvent(QContextMenuEvent* event)
{
    const TextLinks::Link* const link = m_links.at(inPicture(event->pos()));
    if (!link && selection().isEmpty()) {
        event->ignore();
        return;
    }
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setPalette(Theme::current().palette());
    addActions(*menu, link);
    menu->popup(event->globalPos());
}

// Of the link only values: it may be another reading's by the time that something is chosen.
void LiveTextLayer::addActions(QMenu& menu, const TextLinks::Link* link)
{
    if (link && link->target)
        menu.addAction(tr("Open %1").arg(link->target->toDisplayString()), this,
                       [this, target = *link->target] { m_doors.open(target); });
    if (link)
        menu.addAction(link->isCode ? tr("Copy Text of the Code") : tr("Copy Address"), this,
                       [this, text = link->text] { m_doors.copy(text); });
    menu.addSeparator();
    if (!selection().isEmpty())
        menu.addAction(tr("Copy"), this, [this, text = selectedText()] { m_doors.copy(text); });
    menu.addAction(tr("Select All"), this, &LiveTextLayer::selectAll);
}

// --- Painting

bool LiveTextLayer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(static_cast<QWidget*>(watched)->rect());
    return false;
}

void LiveTextLayer::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (m_isShaded)
        paintShade(painter);
    QColor fill = theme.accent;
    fill.setAlphaF(selectionOpacity);
    painter.setBrush(fill);
    for (const QPolygonF& shape : m_text.shapes(selection()))
        painter.drawPolygon(m_toWidget.map(shape));
    if (m_hovered) {
        painter.setPen(QPen(theme.accent, Stroke::focusRing));
        painter.setBrush(Qt::NoBrush);
        for (const QPolygonF& shape : m_hovered->shapes)
            painter.drawPolygon(m_toWidget.map(shape));
    }
    if (const QString text = pillText(); !text.isEmpty())
        paintPill(painter, text);
}

void LiveTextLayer::paintShade(QPainter& painter) const
{
    QPainterPath readable;
    for (const QPolygonF& shape : m_text.shapes(m_text.all()))
        readable.addPolygon(m_toWidget.map(shape));
    for (const TextLinks::Link& link : m_links.all())
        for (const QPolygonF& shape : link.shapes)
            readable.addPolygon(m_toWidget.map(shape));
    readable.setFillRule(Qt::WindingFill);
    QPainterPathStroker around;
    around.setWidth(2 * shadeGap);
    around.setJoinStyle(Qt::RoundJoin);
    QPainterPath shade;
    shade.addRect(rect());
    painter.fillPath(shade.subtracted(readable.united(around.createStroke(readable))), OverlayTokens::shade);
}

QString LiveTextLayer::pillText() const
{
    if (m_hovered)
        return m_hovered->target ? m_hovered->target->toDisplayString() : m_hovered->text.simplified();
    return m_isHintShown ? tr("Text in pictures can be selected") : QString();
}

// At the lower edge, as browsers tell where a link leads.
void LiveTextLayer::paintPill(QPainter& painter, const QString& text) const
{
    const Theme& theme = Theme::current();
    painter.setFont(Typography::font(TextStyle::caption));
    const QFontMetricsF metrics(painter.font());
    const QString shown = metrics.elidedText(text, Qt::ElideMiddle, width() - 4 * pillMargin);
    QRectF pill(0, 0, metrics.horizontalAdvance(shown) + 2 * pillMargin, metrics.height() + pillMargin);
    pill.moveBottomLeft({pillMargin, height() - pillMargin});
    painter.setPen(QPen(theme.cardEdge, 1));
    painter.setBrush(theme.card);
    painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
    painter.setPen(theme.text);
    painter.drawText(pill, Qt::AlignCenter, shown);
}

} // namespace Kovrel
