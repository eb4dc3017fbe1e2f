#pragma once

#include <cstdint>

namespace Kovrel {

// Where a term was found in a capture.
struct SearchPlace {
    enum class Where : std::uint32_t {
        fields, // in what it has besides its text; where it stands in that was not looked for
        text,
        scattered, // nowhere as a whole, but its characters stand in a field in their order
    };

    Where where = Where::fields;
    std::uint32_t offset = 0; // in the text: bytes before its first place

    bool operator==(const SearchPlace&) const = default;
};

} // namespace Kovrel
