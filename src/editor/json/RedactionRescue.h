#pragma once

#include "editor/marks/Annotation.h"

#include <optional>
#include <string_view>

namespace Kovrel {

// A redaction hides its place whatever else is wrong with it. Any thread.
namespace RedactionRescue {

// What can be understood of an entry that could not be read: its kind, if that is a redaction, and its first and last
// point. Nothing where it is no redaction, or names no place.
std::optional<Annotation> rescued(std::string_view json);

// The kind that an entry names, as it stands; empty where none can be seen.
QString kindName(std::string_view json);

// Points beyond everything that is drawn go to its edge: what lies between them stays hidden.
void keepWithinReach(Annotation& mark);

} // namespace RedactionRescue

} // namespace Kovrel
