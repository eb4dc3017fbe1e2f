#pragma once

#include "model/OCRResult.h"

#include <nlohmann/json_fwd.hpp>

namespace Kovrel {

// The numbers of recognised text and codes as JSON, the same in files and in what commands print. Stateless; any
// thread.
namespace RecognitionJson {

// x, y, width and height, with five decimals.
nlohmann::ordered_json box(const Rect& box);

// The x and y of origin, xEnd and yEnd, with five decimals.
nlohmann::ordered_json quad(const OCRQuad& quad);

// The fewest decimals that read back as the same 32-bit number.
nlohmann::ordered_json confidence(float value);

} // namespace RecognitionJson

} // namespace Kovrel
