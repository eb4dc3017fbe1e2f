#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Kovrel {

// Which three bytes in a row the words of a text have, kept in a fifth of its size, so that most texts without a term
// need not be read for it. Stateless; any thread.
namespace TextGrams {

using Gram = std::uint32_t; // mixed already, so that neighbours lie far apart

// Those of a term, which has no spaces; none of one that has less than three bytes.
std::vector<Gram> of(std::string_view term);

std::string signature(std::string_view text);

// Where a signature that is not empty says whether a text has one.
inline size_t bitOf(Gram gram, std::string_view signature)
{
    return size_t((std::uint64_t(gram) * (signature.size() * 8)) >> 32);
}

// False: the text has not all of them.
bool mayHave(std::string_view signature, std::span<const Gram> grams);

} // namespace TextGrams

} // namespace Kovrel
