#pragma once

#include <string_view>

namespace Kovrel {

// A recognised text as it is searched: UTF-8 as `TextFolding::comparable` makes it, and which bytes stand together in
// it (`TextGrams::signature`). Belongs to somebody else.
struct SearchableText {
    std::string_view folded;
    std::string_view signature;
};

} // namespace Kovrel
