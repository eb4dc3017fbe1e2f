#pragma once

#include "livetext/SelectableText.h"
#include "model/QRCode.h"

#include <QUrl>

#include <optional>

namespace Kovrel {

// What of a picture's text and codes can be followed: addresses of web pages, and codes, whatever is in them.
class TextLinks {
public:
    struct Link {
        QString text;               // as it is written, or in the code
        std::optional<QUrl> target; // http or https; nothing: it can only be copied
        bool isCode = false;
        std::vector<QPolygonF> shapes; // pixels of the picture, origin top-left
    };

    TextLinks() = default;
    TextLinks(const SelectableText& text, const std::vector<QRCode>& codes, QSize picture);

    const std::vector<Link>& all() const { return m_links; }

    // Nothing where there is none. It lives as long as this does.
    const Link* at(QPointF point) const;

private:
    void addFrom(const SelectableText& text, size_t line);

    std::vector<Link> m_links;
};

} // namespace Kovrel
