#include "cards/PileLayout.h"

#include <algorithm>

namespace Kovrel {

namespace {

// Fills columns from the corner, which is at 0,0, up to where no further column is allowed.
class Columns {
public:
    explicit Columns(QSizeF room) : m_room(room) {}

    // The distance of the card's nearest corner from the pile's; the last place again when all are taken.
    QPointF add(QSizeF card)
    {
        const bool isColumnFull = m_next.y() > 0 && m_next.y() + card.height() > m_room.height();
        if (isColumnFull)
            beginColumn(card.width());
        if (m_isFull)
            return m_last;
        m_last = m_next;
        m_columnWidth = std::max(m_columnWidth, card.width());
        m_next.ry() += card.height() + PileLayout::gap;
        return m_last;
    }

    bool isFull() const { return m_isFull; }

private:
    void beginColumn(double width)
    {
        const double left = m_next.x() + m_columnWidth + PileLayout::gap;
        m_isFull = left + width > m_room.width() / 2;
        if (m_isFull)
            return;
        m_next = {left, 0};
        m_columnWidth = 0;
    }

    QSizeF m_room;
    QPointF m_next;
    QPointF m_last;
    double m_columnWidth = 0;
    bool m_isFull = false;
};

QRectF within(const QRectF& area)
{
    return area.adjusted(PileLayout::margin, PileLayout::margin, -PileLayout::margin, -PileLayout::margin);
}

bool isAtRight(PreviewPosition position)
{
    return position == PreviewPosition::topRight || position == PreviewPosition::bottomRight;
}

bool isAtBottom(PreviewPosition position)
{
    return position == PreviewPosition::bottomLeft || position == PreviewPosition::bottomRight;
}

} // namespace

std::vector<QRectF> PileLayout::places(const QRectF& area, PreviewPosition position, const std::vector<QSizeF>& cards)
{
    const QRectF room = within(area);
    Columns columns(room.size());
    std::vector<QRectF> places;
    places.reserve(cards.size());
    for (const QSizeF& card : cards) {
        const QPointF away = columns.add(card);
        const double x = isAtRight(position) ? room.right() - away.x() - card.width() : room.left() + away.x();
        const double y = isAtBottom(position) ? room.bottom() - away.y() - card.height() : room.top() + away.y();
        places.emplace_back(QPointF(x, y), card);
    }
    return places;
}

size_t PileLayout::fitting(const QRectF& area, const std::vector<QSizeF>& cards)
{
    Columns columns(within(area).size());
    const auto first = std::ranges::find_if(cards, [&](const QSizeF& card) {
        columns.add(card);
        return columns.isFull();
    });
    return size_t(first - cards.begin());
}

} // namespace Kovrel
