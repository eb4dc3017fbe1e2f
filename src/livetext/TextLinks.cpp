#include "livetext/TextLinks.h"

#include "model/text/WebLink.h"

#include <QRegularExpression>

#include <algorithm>

namespace Kovrel {

namespace {

const QRegularExpression& address()
{
    static const QRegularExpression expression(R"re(https?://[^\s<>"{}|\\^`“”„«»‘’]+)re",
                                               QRegularExpression::CaseInsensitiveOption);
    return expression;
}

// Marks behind an address belong to the sentence, brackets only if they were opened within it.
QStringView withoutEnd(QStringView text)
{
    const auto isSurplus = [&](QChar last) {
        if (last == u')' || last == u']')
            return text.count(last) > text.count(last == u')' ? u'(' : u'[');
        return QStringView(u".,;:!?'…").contains(last);
    };
    while (!text.isEmpty() && isSurplus(text.back()))
        text.chop(1);
    return text;
}

QPolygonF inPicture(const Rect& box, QSize picture)
{
    const QRectF rect(box.x * picture.width(), (1 - box.maxY()) * picture.height(), box.width * picture.width(),
                      box.height * picture.height());
    return QPolygonF({rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()});
}

} // namespace

TextLinks::TextLinks(const SelectableText& text, const std::vector<QRCode>& codes, QSize picture)
{
    for (size_t line = 0; line < text.lineCount(); ++line)
        addFrom(text, line);
    for (const QRCode& code : codes)
        m_links.push_back({code.payload, WebLink::of(code.payload), true, {inPicture(code.boundingBox, picture)}});
}

void TextLinks::addFrom(const SelectableText& text, size_t line)
{
    auto matches = address().globalMatch(text.lineText(line));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QString written = withoutEnd(match.capturedView()).toString();
        const qsizetype start = match.capturedStart();
        if (const auto target = WebLink::of(written))
            m_links.push_back({written, target, false, text.shapes(text.part(line, start, start + written.size()))});
    }
}

const TextLinks::Link* TextLinks::at(QPointF point) const
{
    const auto isThere = [&](const QPolygonF& shape) { return shape.containsPoint(point, Qt::OddEvenFill); };
    const auto link =
        std::ranges::find_if(m_links, [&](const Link& each) { return std::ranges::any_of(each.shapes, isThere); });
    return link == m_links.end() ? nullptr : &*link;
}

} // namespace Kovrel
