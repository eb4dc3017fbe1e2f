#include "history/text/ByteSearch.h"

namespace Kovrel {

namespace {

constexpr size_t block = 64;

// Whether the needle's first and last byte stand anywhere in a block as far apart as in the needle. A loop without an
// exit runs on many bytes at once.
bool mayBegin(const char* text, std::string_view needle)
{
    const char* const ends = text + needle.size() - 1;
    const char first = needle.front();
    const char last = needle.back();
    unsigned char any = 0;
    for (size_t at = 0; at < block; ++at)
        any |= static_cast<unsigned char>((text[at] == first) & (ends[at] == last));
    return any != 0;
}

std::optional<size_t> found(size_t place)
{
    return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

} // namespace

std::optional<size_t> ByteSearch::find(std::string_view text, std::string_view needle, size_t from)
{
    if (needle.size() == 1)
        return found(text.find(needle.front(), from));
    const size_t reach = block + needle.size() - 1;
    for (; from + reach <= text.size(); from += block) {
        if (!mayBegin(text.data() + from, needle))
            continue;
        if (const size_t place = text.substr(from, reach).find(needle); place != std::string_view::npos)
            return from + place;
    }
    return from > text.size() ? std::nullopt : found(text.find(needle, from));
}

} // namespace Kovrel
