#pragma once

#include "model/Geometry.h"

#include <QString>

#include <optional>

namespace Kovrel {

// How large texts of labels are. Each thread remembers those that it asked for last: a label's place is asked for many
// times for one drawing, and laying its text out takes longer than all the rest.
namespace LabelSizes {

// As LabelText's size().
Size of(const QString& text, double fontSize, std::optional<double> wrapWidth);

} // namespace LabelSizes

} // namespace Kovrel
