#include "model/text/WebLink.h"

namespace Kovrel {

std::optional<QUrl> WebLink::of(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool isForBrowsers = url.scheme() == "http" || url.scheme() == "https";
    return url.isValid() && isForBrowsers ? std::optional(url) : std::nullopt;
}

} // namespace Kovrel
