#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"
#include "model/MeasureUnit.h"
#include "preferences/Preferences.h"

namespace Kovrel {

// `kovrel annotate IMAGE … --output FILE`. Decodes, draws and encodes: any thread but that of an instance's windows.
namespace AnnotateCommand {

struct Settings {
    double quality = 0.9; // of lossy formats, 0 to 1
    MeasureUnit measureUnit = MeasureUnit::pixels;
};

Settings settings(const Preferences& preferences);

CommandAnswer run(const Command& command, const Settings& settings);

} // namespace AnnotateCommand

} // namespace Kovrel
