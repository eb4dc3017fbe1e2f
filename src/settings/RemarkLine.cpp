#include "settings/RemarkLine.h"

#include "ui/LookChanges.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

int symbolSide()
{
    return int(13 * Typography::scale());
}

} // namespace

RemarkLine::RemarkLine() : Label(TextStyle::body)
{
    hide();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &RemarkLine::takeLook);
}

void RemarkLine::setRemark(const SettingRemark& remark)
{
    m_isWarning = remark.isWarning;
    setText(remark.text);
    setVisible(!remark.text.isEmpty());
    takeLook();
}

void RemarkLine::takeLook()
{
    const Theme& theme = Theme::current();
    QPalette colors = theme.palette();
    colors.setColor(QPalette::WindowText, m_isWarning ? theme.warning : theme.secondaryText);
    setPalette(colors);
    setContentsMargins(ReadingSide::margins({m_isWarning ? symbolSide() + Spacing::small : 0, 0, 0, 0}));
}

void RemarkLine::paintEvent(QPaintEvent* event)
{
    if (m_isWarning) {
        const double side = symbolSide();
        const double top = (QFontMetricsF(font()).height() - side) / 2; // of the first line
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        Symbols::paint(painter, Symbols::warning, ReadingSide::placed({0, top, side, side}, rect()),
                       Theme::current().warning);
    }
    Label::paintEvent(event);
}

} // namespace Kovrel
