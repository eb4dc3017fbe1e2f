#pragma once

#include "model/HistoryEntry.h"

#include <string>

namespace Kovrel {

// What is searched of a capture besides its text. Stateless; any thread.
namespace SearchFields {

constexpr char separator = '\n';

// Its application's name and identifier, its file's name and what its kind is called, as far as it has them, as
// `TextFolding::comparable` makes them: UTF-8, a separator behind each.
std::string of(const HistoryEntry& entry);

} // namespace SearchFields

} // namespace Kovrel
