#include "ui/controls/ColorWell.h"

#include "model/HexColor.h"
#include "ui/MenuPlace.h"
#include "ui/tokens/CanvasTokens.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>
#include <QPointer>

namespace Kovrel {

namespace {

constexpr int side = 34;
constexpr double wellSide = 20;

constexpr std::array names{
    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Red"),    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Orange"),
    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Yellow"), QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Green"),
    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Teal"),   QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Blue"),
    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Purple"), QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Pink"),
    QT_TRANSLATE_NOOP("Kovrel::ColorWell", "White"),  QT_TRANSLATE_NOOP("Kovrel::ColorWell", "Black"),
};
static_assert(names.size() == CanvasTokens::markColors.size());

QColor colorOf(const QString& hex)
{
    return HexColor::parse(hex).value_or(Theme::current().text);
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

ColorWell::ColorWell(std::function<QStringList()> swatches, ColorPick pick)
    : Button(QString()), m_swatches(std::move(swatches)), m_pick(std::move(pick))
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
        painter.setBrush(colorOf(CanvasTokens::markColors[size_t(2 * part)]));
        painter.drawPie(box, 90 * 16 * part, 90 * 16);
    }
}

void ColorWell::offer()
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& hex, const QString& name) {
        menu->addAction(iconOf(hex), name, this, [this, hex] { Q_EMIT colorChosen(hex); });
    };
    for (size_t index = 0; index < names.size(); ++index)
        add(CanvasTokens::markColors[index], tr(names[index]));
    const QStringList swatches = m_swatches ? m_swatches() : QStringList();
    menu->addSeparator();
    for (const QString& hex : swatches)
        add(hex, hex);
    if (m_hex && m_swatches)
        menu->addAction(swatches.contains(*m_hex) ? tr("Forget %1").arg(*m_hex) : tr("Keep %1").arg(*m_hex), this,
                        [this, hex = *m_hex] { Q_EMIT swatchToggled(hex); });
    if (m_pick)
        menu->addAction(tr("Pick from Screen"), this, &ColorWell::pickFromScreen);
    menu->addAction(tr("Other Colour…"), this, [this] {
        auto* const dialog = new QColorDialog(colorOf(m_hex.value_or(CanvasTokens::markColors[0])), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, &QColorDialog::colorSelected, this,
                [this](const QColor& color) { Q_EMIT colorChosen(color.name().toUpper()); });
        dialog->open();
    });
    MenuPlace::open(*menu, MenuPlace::below(*this));
}

void ColorWell::pickFromScreen()
{
    m_pick([well = QPointer(this)](const PickedColor& hex) {
        if (well && hex)
            Q_EMIT well->colorChosen(*hex);
    });
}

} // namespace Kovrel
