#include "editorwindow/backdrop/AlignmentPad.h"

#include "editorwindow/tools/TabStop.h"
#include "ui/Button.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QGridLayout>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize placeSize(30, 26);
constexpr double dotRadius = 2.5;
constexpr QSizeF chosenSize(18, 13);

constexpr std::array names{
    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Top Left"),     QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Top"),
    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Top Right"),    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Left"),
    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Middle"),       QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Right"),
    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Bottom Left"),  QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Bottom"),
    QT_TRANSLATE_NOOP("Kovrel::AlignmentPad", "Bottom Right"),
};
static_assert(names.size() == RawStrings<CardAlignment>::table.size());

// A dot; where the capture stands, a card.
class Place : public Button {
public:
    explicit Place(const QString& name) : Button(QString())
    {
        setFixedSize(placeSize);
        setAccessibleName(name);
        setToolTip(name);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
    }

    QSize sizeHint() const override { return placeSize; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = Theme::current();
        QPainter painter(this);
        paintGround(painter, ofState(Qt::transparent, theme.hoverGround, theme.pressedGround), theme.focusRing);
        const QPointF middle = QRectF(rect()).center();
        painter.setPen(Qt::NoPen);
        painter.setBrush(!isEnabled() ? theme.disabledText : isChecked() ? theme.accent : theme.secondaryText);
        QRectF card(QPointF(), isChecked() ? chosenSize : QSizeF(2 * dotRadius, 2 * dotRadius));
        card.moveCenter(middle);
        painter.drawRoundedRect(card, dotRadius, dotRadius);
    }
};

} // namespace

AlignmentPad::AlignmentPad()
{
    setAccessibleName(tr("Position"));
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Spacing::tight);
    for (const auto& [alignment, name] : RawStrings<CardAlignment>::table) {
        auto* const place = new Place(tr(names[size_t(alignment)]));
        grid->addWidget(place, row(alignment), column(alignment));
        connect(place, &QPushButton::clicked, this, [this, alignment] { Q_EMIT alignmentChosen(alignment); });
        m_places.push_back(place);
    }
}

void AlignmentPad::setAlignment(CardAlignment alignment)
{
    m_places[size_t(alignment)]->setChecked(true);
    TabStop::setOnly(m_places[size_t(alignment)], m_places);
}

} // namespace Kovrel
