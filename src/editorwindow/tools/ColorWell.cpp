#include "editorwindow/tools/ColorWell.h"

#include "model/HexColor.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr int side = 34;
constexpr double wellSide = 20;

struct Named {
    const char* hex;
    const char* name;
};

constexpr Named usual[] = {
    {"#FF3B30", QT_TRANSLATE_NOOP("ColorWell", "Red")},    {"#FF9500", QT_TRANSLATE_NOOP("ColorWell", "Orange")},
    {"#FFDC2C", QT_TRANSLATE_NOOP("ColorWell", "Yellow")}, {"#34C759", QT_TRANSLATE_NOOP("ColorWell", "Green")},
    {"#00C7BE", QT_TRANSLATE_NOOP("ColorWell", "Teal")},   {"#2F6BFF", QT_TRANSLATE_NOOP("ColorWell", "Blue")},
    {"#AF52DE", QT_TRANSLATE_NOOP("ColorWell", "Purple")}, {"#FF2D87", QT_TRANSLATE_NOOP("ColorWell", "Pink")},
    {"#FFFFFF", QT_TRANSLATE_NOOP("ColorWell", "White")},  {"#1C1C1E", QT_TRANSLATE_NOOP("ColorWell", "Black")},
};

QColor colorOf(const QString& hex)
{
    return HexColor::parse(hex).value_or(QColor(Qt::black));
}

void paintWell(QPainter& painter, const QRectF& box, const QColor& color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::current().cardEdge, Stroke::hairline));
    painter.setBrush(color);
    painter.drawEllipse(box);
}

QIcon iconOf(const QString& hex)
{
    QPixmap pixmap(32, 32);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintWell(painter, {1, 1, 14, 14}, colorOf(hex));
    return pixmap;
}

} // namespace

ColorWell::ColorWell(std::function<QStringList()> swatches) : Button(QString()), m_swatches(std::move(swatches))
{
    setToolTip(tr("Colour"));
    setAccessibleName(toolTip());
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &ColorWell::offer);
}

void ColorWell::setColor(const std::optional<QString>& hex)
{
    m_hex = hex;
    setAccessibleDescription(hex.value_or(tr("several")));
    update();
}

QSize ColorWell::sizeHint() const
{
    return {side, side};
}

void ColorWell::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    paintGround(painter, ofState(Qt::transparent, theme.hoverGround, theme.pressedGround), theme.focusRing);
    QRectF box(0, 0, wellSide, wellSide);
    box.moveCenter(QRectF(rect()).center());
    if (m_hex)
        return paintWell(painter, box, colorOf(*m_hex));
    paintWell(painter, box, theme.card);
    for (int part = 0; part < 4; ++part) {
        painter.setBrush(colorOf(usual[2 * part].hex));
        painter.drawPie(box, 90 * 16 * part, 90 * 16);
    }
}

void ColorWell::offer()
{
    QMenu menu(this);
    const auto add = [&](const QString& hex, const QString& name) {
        menu.addAction(iconOf(hex), name, this, [this, hex] { Q_EMIT colorChosen(hex); });
    };
    for (const Named& color : usual)
        add(color.hex, tr(color.name));
    const QStringList swatches = m_swatches();
    menu.addSeparator();
    for (const QString& hex : swatches)
        add(hex, hex);
    if (m_hex)
        menu.addAction(swatches.contains(*m_hex) ? tr("Forget %1").arg(*m_hex) : tr("Keep %1").arg(*m_hex), this,
                       [this, hex = *m_hex] { Q_EMIT swatchToggled(hex); });
    menu.addAction(tr("Other Colour…"), this, [this] {
        auto* const dialog = new QColorDialog(colorOf(m_hex.value_or(usual[0].hex)), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, &QColorDialog::colorSelected, this,
                [this](const QColor& color) { Q_EMIT colorChosen(color.name().toUpper()); });
        dialog->open();
    });
    menu.exec(mapToGlobal(QPoint(0, height())));
}

} // namespace Kovrel
