#include "pins/PinPanel.h"

#include "pins/PinFace.h"
#include "ui/ScreenChrome.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace Kovrel {

namespace {

using PinGeometry::Button;
using PinGeometry::Zone;

constexpr double faintest = 0.2;
constexpr double opacityStep = 0.05; // for each notch of the wheel
constexpr double notch = 120;        // as the toolkit counts the wheel

Qt::CursorShape cursorOf(Zone zone)
{
    switch (zone) {
    case Zone::left:
    case Zone::right:
        return Qt::SizeHorCursor;
    case Zone::top:
    case Zone::bottom:
        return Qt::SizeVerCursor;
    case Zone::topLeft:
    case Zone::bottomRight:
        return Qt::SizeFDiagCursor;
    case Zone::topRight:
    case Zone::bottomLeft:
        return Qt::SizeBDiagCursor;
    case Zone::none:
        break;
    }
    return Qt::ArrowCursor;
}

} // namespace

PinPanel::PinPanel(QImage picture, double scale, Displays& displays, PanelShapes& shapes, Resample resample)
    : FloatingPanel(shapes, displays.isComposited(), Desktops::every),
      m_picture(std::move(picture)),
      m_measure{.size = PinGeometry::pointSize(m_picture.size(), scale)},
      m_displays(displays),
      m_resample(std::move(resample))
{
    setMouseTracking(true);
    setAccessibleName(tr("Pinned capture"));
}

void PinPanel::setButtons(bool hasUnpin, bool hasEdit)
{
    m_buttons = {Button::close};
    if (hasUnpin)
        m_buttons.push_back(Button::unpin);
    if (hasEdit)
        m_buttons.push_back(Button::edit);
    update();
}

// --- Where it stands

void PinPanel::spawnOn(const Display& display, int pinsBefore)
{
    const Rect usable = ScreenChrome::anchor(display);
    m_measure.spawnZoom = PinGeometry::spawnZoom(m_measure.size, {usable.width, usable.height});
    stand(PinPlacement::spawn(display, m_measure, pinsBefore));
    keep();
    popIn();
}

void PinPanel::stand(PinPlacement::Standing standing)
{
    m_standing = std::move(standing);
    m_measure.scale = m_standing.display.scale;
    const QRectF& frame = m_standing.frame.pixels;
    place(m_standing.display, QRect(frame.topLeft().toPoint(), frame.size().toSize()));
}

void PinPanel::keep()
{
    m_place = PinPlacement::kept(m_standing);
    fit();
}

// The picture as large as it is shown is made elsewhere; until then the painter does what it can.
void PinPanel::fit()
{
    const QSize size = pictureSize();
    if (m_fitted.size() == size)
        return;
    m_fitted = {};
    m_resample(m_picture, size, [panel = QPointer(this), size](QImage fitted) {
        if (!panel || panel->pictureSize() != size)
            return;
        panel->m_fitted = std::move(fitted);
        panel->update();
    });
}

QSize PinPanel::pictureSize() const
{
    return (m_measure.size * m_standing.frame.zoom * m_measure.scale).toSize();
}

void PinPanel::setPicture(QImage picture, double scale)
{
    m_drag.reset();
    m_picture = std::move(picture);
    m_fitted = {};
    m_measure.size = PinGeometry::pointSize(m_picture.size(), scale);
    stand({m_standing.display, PinGeometry::zoomed(m_standing.frame, m_standing.frame.zoom, m_measure)});
    keep();
}

// Its place is kept: it goes back there when its display comes back.
void PinPanel::relocate()
{
    m_drag.reset();
    auto standing = PinPlacement::restored(m_displays.all(), m_place, m_measure);
    if (!standing)
        return;
    stand(std::move(*standing));
    fit();
}

void PinPanel::actualSize()
{
    stand({m_standing.display, PinGeometry::zoomed(m_standing.frame, 1, m_measure)});
    keep();
}

// --- How it looks

double PinPanel::cornerRadius() const
{
    return PinFace::cornerRadius;
}

void PinPanel::paintContent(QPainter& painter, const QRectF& card)
{
    const bool isComposited = testAttribute(Qt::WA_TranslucentBackground);
    PinFace::paintPicture(painter, card, m_fitted.isNull() ? m_picture : m_fitted,
                          PinGeometry::pictureWithin(card.size(), m_measure.size, m_standing.frame.zoom),
                          isComposited ? cornerRadius() : 0);
    if (!showsChrome())
        return;
    for (const Button button : m_buttons)
        PinFace::paintButton(painter, card, button, button == m_hovered);
}

bool PinPanel::showsChrome() const
{
    return m_isPointerInside && !m_isChromeHidden;
}

// The buttons come back with the next move of the pointer: hidden again at once, they would only flicker.
bool PinPanel::setChromeHidden(bool isHidden)
{
    const bool wasShown = showsChrome();
    m_isChromeHidden = isHidden;
    m_isPointerInside = false;
    if (wasShown)
        repaint();
    return wasShown;
}

// --- What the pointer does

Button PinPanel::buttonAt(QPointF point) const
{
    const Button button = PinGeometry::buttonAt(card().size(), point - card().topLeft());
    return std::ranges::find(m_buttons, button) != m_buttons.end() ? button : Button::none;
}

// Only where they are. A compositor may hear of two changes of the same place only once, and show the first; when the
// buttons go, all of the pin is painted, of which it hears.
void PinPanel::updateButtons()
{
    for (const Button button : m_buttons)
        update(PinGeometry::buttonSquare(card().size(), button).translated(card().topLeft()).toAlignedRect());
}

void PinPanel::hover(QPointF point)
{
    if (!std::exchange(m_isPointerInside, true))
        updateButtons();
    const Button button = buttonAt(point);
    const Zone zone = PinGeometry::zoneAt(card().size(), point - card().topLeft());
    setCursor(button == Button::none ? cursorOf(zone) : Qt::ArrowCursor);
    if (std::exchange(m_hovered, button) != button)
        updateButtons();
}

bool PinPanel::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        m_isPointerInside = event->type() == QEvent::Enter;
        m_hovered = Button::none;
        updateButtons();
    }
    return FloatingPanel::event(event);
}

void PinPanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    raise();
    // What nobody could see nobody meant to click.
    m_pressed = showsChrome() ? buttonAt(event->position()) : Button::none;
    if (m_pressed == Button::none)
        m_drag = Drag{PinGeometry::zoneAt(card().size(), event->position() - card().topLeft()), m_standing.frame,
                      rootPixel(event->globalPosition())};
}

void PinPanel::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag)
        dragTo(rootPixel(event->globalPosition()));
    else
        hover(event->position());
}

void PinPanel::dragTo(QPointF pointer)
{
    const auto frame = PinGeometry::dragged(m_drag->start, m_drag->zone, pointer - m_drag->pointer, m_measure);
    const auto display = PinPlacement::displayOf(m_displays.all(), frame.pixels);
    if (!display)
        return;
    const double scale = m_measure.scale;
    m_fitted = frame.zoom == m_standing.frame.zoom ? m_fitted : QImage();
    stand({*display, frame});
    m_measure.scale = scale; // until it is dropped
}

void PinPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (std::exchange(m_drag, {})) {
        stand(
            PinPlacement::settled(m_standing.display, m_standing.frame, m_measure, rootPixel(event->globalPosition())));
        keep();
    }
    const Button pressed = std::exchange(m_pressed, Button::none);
    if (pressed != Button::none && pressed == buttonAt(event->position()))
        Q_EMIT clicked(pressed);
}

void PinPanel::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuWanted(event->globalPos());
}

void PinPanel::wheelEvent(QWheelEvent* event)
{
    const double change = event->angleDelta().y() / notch * opacityStep;
    setWindowOpacity(std::clamp(windowOpacity() + change, faintest, 1.0));
}

} // namespace Kovrel
