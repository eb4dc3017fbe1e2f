#pragma once

#include "screenshottool/ToolOptions.h"

#include <QByteArray>

namespace Kovrel {

// One run of the screenshot tool, from its options to its file.
namespace ScreenshotTool {

enum class Exit { done = 0, cancelled = 1, usage = 2, failed = 4 };

struct Outcome {
    Exit exit = Exit::done;
    QString message; // one line for people unless done
};

// Takes the pixels from an X server (an empty name stands for the environment's) whose displays have the scales of
// `scales`, as DisplayScales writes them. A file is there only when it is whole, and only for its owner.
Outcome run(const ToolOptions& options, const QByteArray& displayName, const QString& scales);

} // namespace ScreenshotTool

} // namespace Kovrel
