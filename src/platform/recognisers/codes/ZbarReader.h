#pragma once

#include "platform/CodeReader.h"

namespace Kovrel {

// ZBar.
namespace ZbarReader {

std::vector<CodeReader::Code> read(const QImage& grey);

} // namespace ZbarReader

} // namespace Kovrel
