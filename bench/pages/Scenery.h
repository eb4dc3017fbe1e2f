#pragma once

#include "bench/pages/RandomText.h"

#include <QPainter>

namespace Kovrel::Bench {

// Pictures without any text in them.
namespace Scenery {

enum class Kind { drawing, photograph };

void draw(QPainter& painter, const QRect& frame, Kind kind, RandomText& random);

} // namespace Scenery

} // namespace Kovrel::Bench
