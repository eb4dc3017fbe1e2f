#include "history/text/ByteSearch.h"

#include <array>
#include <cstring>

namespace Kovrel {

namespace {

constexpr size_t block = 64;

// Marks where in a block the needle's first two bytes stand, and its last one as far behind them as in the needle. A
// loop without an exit runs on many bytes at once.
bool mark(const char* text, std::string_view needle, std::array<char, block>& marks)
{
    const char* const ends = text + needle.size() - 1;
    const char first = needle[0];
    const char second = needle[1];
    const char last = needle.back();
    char any = 0;
    for (size_t at = 0; at < block; ++at) {
        const char isPlace = static_cast<char>((text[at] == first) & (text[at + 1] == second) & (ends[at] == last));
        marks[at] = isPlace;
        any = static_cast<char>(any | isPlace);
    }
    return any != 0;
}

std::optional<size_t> findInBlock(const char* text, std::string_view needle)
{
    std::array<char, block> marks;
    if (!mark(text, needle, marks))
        return std::nullopt;
    const std::string_view places(marks.data(), block);
    for (size_t at = places.find(1); at != std::string_view::npos; at = places.find(1, at + 1))
        if (std::memcmp(text + at, needle.data(), needle.size()) == 0)
            return at;
    return std::nullopt;
}

} // namespace

// Texts lie apart in memory, so that the processor does not guess which one comes next.
std::optional<size_t> ByteSearch::findSeveral(std::string_view text, std::string_view needle, size_t from,
                                              std::string_view next)
{
    const size_t reach = block + needle.size() - 1;
    for (; from + reach <= text.size(); from += block) {
        if (from < next.size())
            __builtin_prefetch(next.data() + from);
        if (const auto place = findInBlock(text.data() + from, needle))
            return from + *place;
    }
    const size_t place = text.find(needle, from);
    return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

} // namespace Kovrel
