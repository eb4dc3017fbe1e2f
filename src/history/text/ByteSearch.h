#pragma once

#include <optional>
#include <string_view>

namespace Kovrel {

// Finds bytes among bytes, many at a time. Stateless; any thread.
namespace ByteSearch {

// The first place at or behind `from` where the text has the needle, which is not empty.
std::optional<size_t> find(std::string_view text, std::string_view needle, size_t from = 0);

} // namespace ByteSearch

} // namespace Kovrel
