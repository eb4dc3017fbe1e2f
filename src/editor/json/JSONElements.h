#pragma once

#include <optional>
#include <string_view>

namespace Kovrel {

// Takes the elements of an array one by one off the front of a text, without looking into them: what is wrong with one
// does no harm to the others. The text begins behind the array's bracket, and outlives this.
class JSONElements {
public:
    explicit JSONElements(std::string_view array) : m_rest(array) {}

    // Nothing at the end of the array, and where it is cut off.
    std::optional<std::string_view> next();

    // What is left of an array that is cut off.
    std::string_view rest() const { return m_rest; }

    // As an array without elements has it.
    static bool isBlank(std::string_view element);

    // What stands behind the bracket of an array; nothing where a text is none.
    static std::optional<std::string_view> inArray(std::string_view json);

private:
    std::string_view take(size_t length, bool isLast);

    std::string_view m_rest;
};

} // namespace Kovrel
