#pragma once

#include "model/OCRResult.h"
#include "platform/TextRecogniser.h"

#include <QSize>

namespace Kovrel {

// What a recogniser observed in a picture, as lines in reading order. Knows no recogniser; stateless; any thread.
namespace TextObservations {

// `pixels`: the size of the picture. Observations without text are left out.
OCRResult result(const std::vector<TextRecogniser::Observation>& observations, QSize pixels);

} // namespace TextObservations

} // namespace Kovrel
