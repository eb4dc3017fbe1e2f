#include "settings/controls/CornerField.h"

#include "ui/controls/ExclusiveFocus.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QGridLayout>
#include <QPainter>
#include <QRadioButton>

namespace Kovrel {

namespace {

constexpr QSize screenSize(132, 84);
constexpr QSize cornerSize(52, 34);
constexpr QSizeF cardSize(24, 15);
constexpr int screenInset = 6;
constexpr int cardInset = 5; // from the corner

} // namespace

// A corner of the screen, with a card in it when it is the one.
class CornerField::Corner : public QRadioButton {
public:
    explicit Corner(Qt::Alignment place) : m_place(place)
    {
        setAttribute(Qt::WA_Hover);
        setFixedSize(cornerSize);
    }

protected:
    bool hitButton(const QPoint& point) const override { return rect().contains(point); }

    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = Theme::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QRectF card(QPointF(cardInset, cardInset), cardSize);
        if (m_place & Qt::AlignRight)
            card.moveRight(width() - cardInset);
        if (m_place & Qt::AlignBottom)
            card.moveBottom(height() - cardInset);
        painter.setPen(QPen(isChecked() ? theme.accent : theme.secondaryText, Stroke::hairline));
        painter.setBrush(isChecked() ? theme.accent : underMouse() ? theme.hoverGround : theme.card);
        painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        if (!hasFocus())
            return;
        painter.setPen(QPen(theme.focusRing, Stroke::focusRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(card.adjusted(-3, -3, 3, 3), 5, 5);
    }

private:
    Qt::Alignment m_place;
};

CornerField::CornerField()
{
    setFixedSize(screenSize);
    delete layout();
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(screenInset, screenInset, screenInset, screenInset);
    grid->setSpacing(0);
    auto* const group = new QButtonGroup(this);
    ExclusiveFocus::follow(*group);
    const auto add = [&](PreviewPosition position, const QString& name, Qt::Alignment place) {
        auto* const corner = new Corner(place);
        corner->setToolTip(name);
        group->addButton(corner);
        grid->addWidget(corner, place & Qt::AlignBottom ? 1 : 0, place & Qt::AlignRight ? 1 : 0, place);
        connect(corner, &QAbstractButton::clicked, this, [this, position] { Q_EMIT changed(rawString(position)); });
        m_corners[position] = corner;
    };
    add(PreviewPosition::topLeft, tr("Top left"), Qt::AlignTop | Qt::AlignLeft);
    add(PreviewPosition::topRight, tr("Top right"), Qt::AlignTop | Qt::AlignRight);
    add(PreviewPosition::bottomLeft, tr("Bottom left"), Qt::AlignBottom | Qt::AlignLeft);
    add(PreviewPosition::bottomRight, tr("Bottom right"), Qt::AlignBottom | Qt::AlignRight);
}

// Corners are where they are on the screen, however texts run.
void CornerField::setValue(const QVariant& value)
{
    setLayoutDirection(Qt::LeftToRight);
    const auto position = fromRawString<PreviewPosition>(value.toString()).value_or(PreviewPosition::bottomRight);
    m_corners.at(position)->setChecked(true);
    setMain(m_corners.at(position));
}

void CornerField::setTexts(const QString& name, const QString& description)
{
    for (const auto& [position, corner] : m_corners) {
        corner->setAccessibleName(name + ": " + corner->toolTip());
        corner->setAccessibleDescription(description);
    }
}

void CornerField::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.secondaryText, 1.5));
    painter.setBrush(theme.window);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Radius::control, Radius::control);
}

} // namespace Kovrel
