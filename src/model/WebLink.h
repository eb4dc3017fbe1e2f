#pragma once

#include <QUrl>

#include <optional>

namespace Kovrel {

// Addresses that may be opened because somebody scanned or typed them. Stateless; any thread.
namespace WebLink {

// The http or https address that a text is; nothing for any other text, also for other kinds of addresses, which can
// make programs do things.
inline std::optional<QUrl> of(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool isForBrowsers = url.scheme() == "http" || url.scheme() == "https";
    return url.isValid() && isForBrowsers ? std::optional(url) : std::nullopt;
}

} // namespace WebLink

} // namespace Kovrel
