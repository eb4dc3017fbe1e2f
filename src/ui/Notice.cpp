#include "ui/Notice.h"

#include "ui/Ground.h"
#include "ui/LookChanges.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int padding = Spacing::medium;
constexpr int gap = 10;

int symbolSize()
{
    return int(16 * Typography::scale());
}

} // namespace

Notice::Notice() : Label(TextStyle::body)
{
    makeRoom();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &Notice::makeRoom);
}

void Notice::makeRoom()
{
    setContentsMargins(ReadingSide::margins({padding + symbolSize() + gap, padding, padding, padding}));
}

void Notice::show(Kind kind, const QString& text)
{
    m_kind = kind;
    setText(text);
    QWidget::show();
    update();
}

void Notice::paintEvent(QPaintEvent* event)
{
    const Theme& theme = Theme::current();
    const bool isWarning = m_kind == Kind::warning;
    QPainter painter(this);
    const QColor color = isWarning ? theme.warningGround : theme.accentGround;
    Ground{.color = color, .edge = theme.cardEdge, .radius = Radius::group}.paint(painter, rect());
    const double middle = padding + QFontMetricsF(font()).height() / 2; // of the first line
    const double size = symbolSize();
    Symbols::paint(painter, isWarning ? Symbols::warning : Symbols::information,
                   ReadingSide::placed({padding, middle - size / 2, size, size}, rect()),
                   isWarning ? theme.warning : theme.accentText);
    painter.end();
    Label::paintEvent(event);
}

} // namespace Kovrel
