#pragma once

#include <QColor>
#include <QString>

#include <optional>

namespace Kovrel {

// Colours as they are persisted: "#RRGGBB", with two more digits of alpha where they are not opaque.
namespace HexColor {

// Also without "#" and in small letters. Nothing for anything else.
std::optional<QColor> parse(QStringView text);

QString text(const QColor& color);

} // namespace HexColor

} // namespace Kovrel
