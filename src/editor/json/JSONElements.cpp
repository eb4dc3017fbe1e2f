#include "editor/json/JSONElements.h"

namespace Kovrel {

std::optional<std::string_view> JSONElements::next()
{
    int depth = 0;
    bool isInText = false;
    for (size_t at = 0; at < m_rest.size(); ++at) {
        const char c = m_rest[at];
        if (isInText && c == '\\')
            ++at;
        else if (c == '"')
            isInText = !isInText;
        else if (!isInText && depth == 0 && (c == ',' || c == ']'))
            return take(at, c == ']');
        else if (!isInText && (c == '[' || c == '{'))
            ++depth;
        else if (!isInText && (c == ']' || c == '}'))
            --depth;
    }
    return std::nullopt;
}

bool JSONElements::isBlank(std::string_view element)
{
    return element.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::optional<std::string_view> JSONElements::inArray(std::string_view json)
{
    const size_t start = json.find_first_not_of("\xef\xbb\xbf \t\r\n");
    if (start == std::string_view::npos || json[start] != '[')
        return std::nullopt;
    return json.substr(start + 1);
}

std::string_view JSONElements::take(size_t length, bool isLast)
{
    const std::string_view element = m_rest.substr(0, length);
    m_rest = isLast ? std::string_view() : m_rest.substr(length + 1);
    return element;
}

} // namespace Kovrel
