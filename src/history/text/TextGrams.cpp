#include "history/text/TextGrams.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr size_t length = 3;
constexpr size_t share = 5; // of the text's bytes

// Multiplicative hashing: its upper bits are the mixed ones.
TextGrams::Gram gramAt(const char* place)
{
    const auto byte = [place](size_t index) { return std::uint32_t(static_cast<unsigned char>(place[index])); };
    return (byte(0) | byte(1) << 8 | byte(2) << 16) * 2654435761u;
}

} // namespace

std::vector<TextGrams::Gram> TextGrams::of(std::string_view term)
{
    std::vector<Gram> grams;
    for (size_t place = 0; place + length <= term.size(); ++place)
        grams.push_back(gramAt(term.data() + place));
    return grams;
}

std::string TextGrams::signature(std::string_view text)
{
    std::string bits(text.size() < length ? 0 : text.size() / share + 1, '\0');
    for (size_t place = 0; place + length <= text.size(); ++place) {
        if (text.substr(place, length).contains(' '))
            continue;
        const size_t bit = bitOf(gramAt(text.data() + place), bits);
        bits[bit / 8] = char(bits[bit / 8] | 1 << bit % 8);
    }
    return bits;
}

bool TextGrams::mayHave(std::string_view signature, std::span<const Gram> grams)
{
    return std::ranges::all_of(grams, [signature](Gram gram) {
        const size_t bit = bitOf(gram, signature);
        return !signature.empty() && (signature[bit / 8] >> bit % 8 & 1) != 0;
    });
}

} // namespace Kovrel
