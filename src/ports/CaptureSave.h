#pragma once

#include "ports/Ongoing.h"

#include <QString>

#include <expected>

namespace Kovrel {

// The path written, or why nothing was.
using SaveOutcome = std::expected<QString, QString>;

// A save in flight, for the card, the command line, quitting.
using CaptureSave = Ongoing<SaveOutcome>;

} // namespace Kovrel
