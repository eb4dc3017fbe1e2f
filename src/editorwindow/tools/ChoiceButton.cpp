#include "editorwindow/tools/ChoiceButton.h"

#include "ui/MenuPlace.h"
#include "ui/controls/ChevronLine.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize padding(10, 6);

} // namespace

ChoiceButton::ChoiceButton(const QString& name, QStringList choices) : Button(QString()), m_choices(std::move(choices))
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QPushButton::clicked, this, &ChoiceButton::offer);
}

void ChoiceButton::setChoice(int index)
{
    m_choice = index;
    setText(m_choices.value(index, tr("Custom")));
    setAccessibleDescription(text());
    update();
}

QSize ChoiceButton::sizeHint() const
{
    const QFontMetrics metrics(Typography::font(TextStyle::body));
    int width = metrics.horizontalAdvance(text());
    for (const QString& choice : m_choices)
        width = std::max(width, metrics.horizontalAdvance(choice));
    return QSize(width + Spacing::small + ChevronLine::chevronSide, metrics.height()) + 2 * padding;
}

void ChoiceButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    paintGround(painter, ofState(theme.hoverGround, theme.pressedGround, theme.pressedGround), theme.focusRing);
    const QColor color = isEnabled() ? theme.text : theme.disabledText;
    const QRect line = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    painter.setFont(Typography::font(TextStyle::body));
    ChevronLine::paint(painter, line, text(), color, "chevron.down", color, layoutDirection());
}

void ChoiceButton::offer()
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int index = 0; index < m_choices.size(); ++index) {
        QAction* const action = menu->addAction(m_choices[index], this, [this, index] { Q_EMIT chosen(index); });
        action->setCheckable(true);
        action->setChecked(index == m_choice);
    }
    MenuPlace::open(*menu, MenuPlace::below(*this));
}

} // namespace Kovrel
