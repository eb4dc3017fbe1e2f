#pragma once

#include <nlohmann/json.hpp>

#include <cmath>

namespace Kovrel {

// A number as other JSON encoders write it: a whole one without a point.
inline nlohmann::ordered_json jsonNumber(double value)
{
    constexpr double firstInexact = 9007199254740992; // 2^53
    if (std::trunc(value) == value && std::abs(value) < firstInexact)
        return std::int64_t(value);
    return value;
}

} // namespace Kovrel
