#pragma once

#include "ports/Ongoing.h"

#include <QString>

#include <expected>
#include <optional>

namespace Kovrel {

// Why nothing was written where it should go, in one line, and where it is kept instead.
struct SaveProblem {
    QString message;
    std::optional<QString> keptAs = {};
};

// The path written.
using SaveOutcome = std::expected<QString, SaveProblem>;

// A save in flight, for the card, the command line, quitting.
using CaptureSave = Ongoing<SaveOutcome>;

} // namespace Kovrel
