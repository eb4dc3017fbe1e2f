#pragma once

#include <QByteArray>
#include <nlohmann/json.hpp>

namespace Kovrel {

// JSON from files that anybody may have written: what is nested deeper than `mostDepth` is left out, and what is no
// JSON or has more bytes than `mostBytes` is a null value.
inline nlohmann::ordered_json boundedJSON(const QByteArray& json, qsizetype mostBytes, int mostDepth)
{
    using Json = nlohmann::ordered_json;
    if (json.size() > mostBytes)
        return nullptr;
    const auto isShallow = [mostDepth](int depth, Json::parse_event_t, const Json&) { return depth < mostDepth; };
    const Json value = Json::parse(json.begin(), json.end(), isShallow, false);
    return value.is_discarded() ? Json() : value;
}

} // namespace Kovrel
