#include "cards/panels/CardPanel.h"

#include "cards/CardFace.h"
#include "cards/panels/CardPainting.h"
#include "cards/panels/CodePill.h"
#include "ui/MenuPlace.h"
#include "ui/tokens/CardTokens.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Kovrel {

CardPanel::CardPanel(PanelShapes& shapes, const MainLoop& loop, Style style)
    : FloatingPanel(shapes, style.isComposited, Desktops::every), m_loop(loop), m_style(std::move(style))
{
    setAccessibleName(tr("Capture"));
    setMouseTracking(true);
    m_chrome = new CardChrome(m_style.offer, this);
    m_chrome->hide();
    connect(m_chrome, &CardChrome::performed, this, &CardPanel::performed);
    connect(m_chrome, &CardChrome::freezeWanted, this, &CardPanel::freezeWanted);
    connect(m_chrome, &CardChrome::menuWanted, this, &CardPanel::menuWanted);
}

// --- What it shows

void CardPanel::setLook(const CardLook& look)
{
    if (look == m_look)
        return;
    const bool isOnlyElsewhere = [&] {
        CardLook moved = m_look;
        moved.place = look.place;
        return moved == look;
    }();
    const auto before = std::exchange(m_look, look).code;
    if (isOnlyElsewhere)
        return;
    m_chrome->setLook(look);
    if (look.code != before)
        setCode(look.code);
    arrange();
    update();
}

void CardPanel::setCode(const std::optional<CardCode>& code)
{
    delete std::exchange(m_pill, nullptr);
    if (!code)
        return;
    m_pill = new CodePill(*code, this);
    m_pill->show();
    connect(m_pill, &CodePill::clicked, this, [this] { Q_EMIT codeClicked(MenuPlace::below(*m_pill)); });
}

void CardPanel::setHovered(bool isHovered)
{
    m_chrome->setVisible(isHovered);
    arrange();
    update();
}

bool CardPanel::isHovered() const
{
    return m_chrome->isVisibleTo(this);
}

void CardPanel::turnRing()
{
    update(ringPlace().toAlignedRect());
}

// --- Where things are

QRectF CardPanel::pictureRoom() const
{
    const double frame = CardFace::frame;
    return card().adjusted(frame, frame, -frame, -frame);
}

double CardPanel::pictureRadius() const
{
    return m_style.isComposited ? Radius::card - CardFace::frame : 0;
}

QRectF CardPanel::ringPlace() const
{
    const QPointF inset(CardTokens::inset, CardTokens::inset);
    const QRectF room = pictureRoom();
    return ReadingSide::placed({room.topLeft() + inset, QSizeF(CardTokens::badge, CardTokens::badge)}, room);
}

void CardPanel::arrange()
{
    const QRect room = pictureRoom().toAlignedRect();
    m_chrome->setPlace(room, pictureRadius());
    if (!m_pill)
        return;
    const int inset = int(CardTokens::inset);
    const int bar = isHovered() ? int(CardTokens::button + CardTokens::buttonGap) : 0;
    const int width = std::min(m_pill->sizeHint().width(), room.width() - 2 * inset);
    const int height = m_pill->sizeHint().height();
    const QRectF pill(room.left() + inset, room.bottom() + 1 - inset - bar - height, width, height);
    m_pill->setGeometry(ReadingSide::placed(pill, QRectF(room)).toRect());
    m_pill->raise();
}

void CardPanel::resizeEvent(QResizeEvent* event)
{
    FloatingPanel::resizeEvent(event);
    arrange();
}

void CardPanel::paintContent(QPainter& painter, const QRectF&)
{
    CardPainting::picture(painter, pictureRoom(), m_look.face, m_style.display.scale, pictureRadius());
    paintBadges(painter);
}

void CardPanel::paintBadges(QPainter& painter) const
{
    const bool hasChrome = isHovered();
    const QRectF room = pictureRoom();
    const double inset = CardTokens::inset;
    if (!hasChrome && m_look.isFrozen)
        CardPainting::disc(painter, ringPlace(), CardTokens::glass, "snowflake", CardTokens::done);
    else if (!hasChrome && m_look.countdown.isShown())
        CardPainting::ring(painter, ringPlace(), m_look.countdown.remaining(m_loop.now()));
    const QString saying = m_look.isCopied ? tr("Copied") : QString();
    if (!saying.isEmpty()) {
        QRectF pill(QPointF(), CardPainting::pillSize(saying));
        pill.moveCenter(room.center());
        CardPainting::pill(painter, pill, CardTokens::glass, "checkmark", CardTokens::done, saying);
    } else if (!hasChrome && m_look.isSaved) {
        const double size = CardTokens::badge;
        const QRectF badge(room.right() - inset - size, room.bottom() - inset - size, size, size);
        CardPainting::disc(painter, ReadingSide::placed(badge, room), CardTokens::glass, "checkmark", CardTokens::done);
    }
}

// --- What is done to it

void CardPanel::enterEvent(QEnterEvent*)
{
    enter();
}

void CardPanel::leaveEvent(QEvent*)
{
    leave();
}

void CardPanel::enter()
{
    setHovered(true);
    Q_EMIT entered();
}

void CardPanel::leave()
{
    setHovered(false);
    Q_EMIT left();
}

void CardPanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_press = Press{.from = event->globalPosition()};
}

void CardPanel::mouseMoveEvent(QMouseEvent* event)
{
    if (!isHovered())
        enter();
    if (!m_press)
        return;
    const QPointF way = event->globalPosition() - m_press->from;
    if (m_press->kind == CardGesture::Kind::none)
        m_press->kind = CardGesture::of(way, m_style.position);
    if (m_press->kind == CardGesture::Kind::flick) {
        Q_EMIT slid(CardGesture::slide(way, m_style.position));
    } else if (m_press->kind == CardGesture::Kind::dragOut && m_look.dragFile) {
        m_press.reset();
        Q_EMIT draggedOut();
    }
}

void CardPanel::mouseReleaseEvent(QMouseEvent* event)
{
    const auto press = std::exchange(m_press, std::nullopt);
    if (press && press->kind == CardGesture::Kind::flick)
        Q_EMIT released(CardGesture::slide(event->globalPosition() - press->from, m_style.position));
}

void CardPanel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT opened();
}

void CardPanel::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuWanted(event->globalPos());
}

} // namespace Kovrel
