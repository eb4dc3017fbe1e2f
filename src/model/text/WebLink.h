#pragma once

#include <QUrl>

#include <optional>

namespace Kovrel {

// Addresses that may be opened because somebody scanned or typed them. Stateless; any thread.
namespace WebLink {

// The http or https address that a text is; nothing for any other text, also for other kinds of addresses, which can
// make programs do things.
std::optional<QUrl> of(const QString& text);

} // namespace WebLink

} // namespace Kovrel
