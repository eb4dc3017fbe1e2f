#pragma once

#include <QByteArray>
#include <nlohmann/json.hpp>

namespace Kovrel {

// JSON from a file that anybody may have written: a null value for what is no JSON or has more bytes than that. Nothing
// is too deep for it, but the answer must be read without recursion, and not be copied. Its keys are sorted: finding
// the duplicates among ordered ones takes time that grows with the square of their number.
inline nlohmann::json boundedJSON(const QByteArray& json, qsizetype mostBytes)
{
    if (json.size() > mostBytes)
        return nullptr;
    // No callback: with one the time grows with the square of a list's length.
    auto value = nlohmann::json::parse(json.begin(), json.end(), nullptr, false);
    if (value.is_discarded())
        return nullptr;
    return value;
}

} // namespace Kovrel
