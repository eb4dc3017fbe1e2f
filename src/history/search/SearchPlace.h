#pragma once

#include <cstdint>

namespace Kovrel {

// Where a term was found in a capture: the first of these.
struct SearchPlace {
    enum class Where : std::uint32_t {
        text,
        fields,    // in what it has besides its text
        scattered, // nowhere as a whole, but its characters stand in a field in their order
    };

    Where where = Where::text;
    std::uint32_t offset = 0; // in the text: bytes before its first place

    bool operator==(const SearchPlace&) const = default;
};

} // namespace Kovrel
