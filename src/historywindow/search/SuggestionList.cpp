#include "historywindow/search/SuggestionList.h"

#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int padding = 6;
constexpr int rowPadding = 5;
constexpr int dotSide = 8;
constexpr int widest = 420;

int lineHeight(TextStyle style)
{
    return QFontMetrics(Typography::font(style)).height();
}

} // namespace

SuggestionList::SuggestionList(QWidget* window) : QWidget(window)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void SuggestionList::show(std::vector<SearchSuggestion> rows, const QRect& below)
{
    m_rows = std::move(rows);
    if (m_rows.empty()) {
        hide();
        return;
    }
    const int height = places().back().row.bottom() + 1 + padding;
    setGeometry(below.left(), below.bottom() + 1 + Spacing::tight, std::min(below.width(), widest), height);
    raise();
    QWidget::show();
    update();
}

std::vector<SuggestionList::Place> SuggestionList::places() const
{
    const int rowHeight = lineHeight(TextStyle::control) + 2 * rowPadding;
    const int headerHeight = lineHeight(TextStyle::caption) + rowPadding;
    std::vector<Place> places;
    int y = padding;
    const QString* section = nullptr;
    for (const SearchSuggestion& row : m_rows) {
        Place place;
        if (!section || *section != row.section) {
            place.header = {padding, y, width() - 2 * padding, headerHeight};
            y += headerHeight;
        }
        section = &row.section;
        place.row = {padding, y, width() - 2 * padding, rowHeight};
        y += rowHeight;
        places.push_back(place);
    }
    return places;
}

int SuggestionList::rowAt(QPoint point) const
{
    const auto all = places();
    const auto found = std::ranges::find_if(all, [&](const Place& place) { return place.row.contains(point); });
    return found == all.end() ? -1 : int(found - all.begin());
}

void SuggestionList::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Ground{theme.card, theme.cardEdge, Radius::group}.paint(painter, rect());
    const auto all = places();
    for (size_t index = 0; index < m_rows.size(); ++index) {
        painter.setFont(Typography::font(TextStyle::caption));
        painter.setPen(theme.secondaryText);
        painter.drawText(all[index].header.adjusted(Spacing::small, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         all[index].header.isNull() ? QString() : m_rows[index].section);
        paintRow(painter, all[index].row, m_rows[index]);
    }
}

void SuggestionList::paintRow(QPainter& painter, const QRect& place, const SearchSuggestion& row) const
{
    const Theme& theme = Theme::current();
    if (row.isHighlighted) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accentGround);
        painter.drawRoundedRect(place, Radius::control, Radius::control);
    }
    const auto mirrored = [&](const QRect& part) { return QStyle::visualRect(layoutDirection(), place, part); };
    QRect line = place.adjusted(Spacing::small, 0, -Spacing::small, 0);
    if (row.color) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(*row.color);
        painter.drawEllipse(mirrored({line.left(), line.center().y() - dotSide / 2 + 1, dotSide, dotSide}));
        line.setLeft(line.left() + dotSide + Spacing::small);
    }
    const QString count = QLocale().toString(row.count);
    painter.setFont(Typography::font(TextStyle::caption));
    painter.setPen(theme.secondaryText);
    painter.drawText(mirrored(line), Qt::AlignRight | Qt::AlignVCenter, count);
    line.setRight(line.right() - painter.fontMetrics().horizontalAdvance(count) - Spacing::small);
    painter.setFont(Typography::font(TextStyle::control));
    painter.setPen(theme.text);
    ReadingSide::drawLine(painter, mirrored(line), row.title, Qt::ElideMiddle);
}

void SuggestionList::mouseMoveEvent(QMouseEvent* event)
{
    if (const int row = rowAt(event->position().toPoint()); row >= 0)
        Q_EMIT hovered(row);
}

void SuggestionList::mouseReleaseEvent(QMouseEvent* event)
{
    if (const int row = rowAt(event->position().toPoint()); row >= 0 && event->button() == Qt::LeftButton)
        Q_EMIT chosen(row);
}

} // namespace Kovrel
