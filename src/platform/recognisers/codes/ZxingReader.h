#pragma once

#include "platform/CodeReader.h"

namespace Kovrel {

// ZXing-C++.
namespace ZxingReader {

std::vector<CodeReader::Code> read(const QImage& grey);

} // namespace ZxingReader

} // namespace Kovrel
