#include "editorwindow/backdrop/SwatchButton.h"

#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace Kovrel {

namespace {

constexpr QSize swatchSize(60, 42);
constexpr double symbolSide = 14;
constexpr double ringGap = 3; // between the ring of what is chosen and its picture
constexpr double cornerRadius = 7;

} // namespace

SwatchButton::SwatchButton(const QString& name, Picture picture, const QString& symbol)
    : Button(QString()), m_picture(std::move(picture)), m_symbol(symbol)
{
    setToolTip(name);
    setAccessibleName(name);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(swatchSize);
}

SwatchButton::SwatchButton(const QString& name, Picture picture) : SwatchButton(name, std::move(picture), QString()) {}

SwatchButton::SwatchButton(const QString& name, const QString& symbol) : SwatchButton(name, Picture(), symbol) {}

void SwatchButton::setPicture(Picture picture)
{
    m_picture = std::move(picture);
    update();
}

QSize SwatchButton::sizeHint() const
{
    return swatchSize;
}

void SwatchButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = QRectF(rect()).adjusted(1, 1, -1, -1);
    const QRectF box = outer.adjusted(ringGap, ringGap, -ringGap, -ringGap);
    QPainterPath outline;
    outline.addRoundedRect(box, cornerRadius, cornerRadius);
    painter.fillPath(outline, ofState(theme.window, theme.hoverGround, theme.pressedGround));
    if (const QImage picture = m_picture ? m_picture((box.size() * devicePixelRatioF()).toSize()) : QImage();
        !picture.isNull()) {
        painter.setClipPath(outline);
        painter.drawImage(box, picture);
        painter.setClipping(false);
    }
    painter.setPen(QPen(theme.cardEdge, Stroke::hairline));
    painter.drawPath(outline);
    if (!m_symbol.isEmpty()) {
        QRectF place(0, 0, symbolSide, symbolSide);
        place.moveCenter(box.center());
        Symbols::paint(painter, m_symbol, place, theme.secondaryText);
    }
    if (!isChecked() && !hasFocus() && !underMouse())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(isChecked() || hasFocus() ? QPen(hasFocus() ? theme.focusRing : theme.accent, Stroke::focusRing)
                                             : QPen(theme.separator, Stroke::focusRing));
    painter.drawRoundedRect(outer, cornerRadius + ringGap, cornerRadius + ringGap);
}

} // namespace Kovrel
