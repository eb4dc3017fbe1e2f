#pragma once

#include <QColor>
#include <QString>

#include <optional>

namespace Kovrel {

// Colours as texts: "#RRGGBB", or "#RRGGBBAA" where something shines through.
namespace ColorHex {

// Also in small letters and without the "#"; nothing for any other text.
std::optional<QColor> color(QStringView hex);
QString hex(const QColor& color);

} // namespace ColorHex

} // namespace Kovrel
