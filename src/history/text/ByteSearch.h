#pragma once

#include <optional>
#include <string_view>

namespace Kovrel {

// Finds bytes among bytes, many at a time. Stateless; any thread.
namespace ByteSearch {

// Of a needle of two bytes and more.
std::optional<size_t> findSeveral(std::string_view text, std::string_view needle, size_t from, std::string_view next);

// The first place at or behind `from` where the text has the needle, which is not empty. `next`: a text that is
// searched after it, or empty; it is fetched from memory as far as this one is read.
inline std::optional<size_t> find(std::string_view text, std::string_view needle, size_t from = 0,
                                  std::string_view next = {})
{
    if (needle.size() > 1)
        return findSeveral(text, needle, from, next);
    const size_t place = text.find(needle.front(), from);
    return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

} // namespace ByteSearch

} // namespace Kovrel
