#include "platform/DisplayScales.h"
#include "screenshottool/ScreenshotTool.h"

#include <QCoreApplication>

#include <cstdio>
#include <sys/stat.h>

int main(int argc, char** argv)
{
    using namespace Kovrel;
    const QCoreApplication application(argc, argv);
    umask(077); // what others must not read is never readable to them, not for a moment
    const auto options = ToolOptions::parse(QCoreApplication::arguments().mid(1));
    const auto outcome = options ? ScreenshotTool::run(*options, {}, qEnvironmentVariable(DisplayScales::variable))
                                 : ScreenshotTool::Outcome{ScreenshotTool::Exit::usage, options.error()};
    if (outcome.exit != ScreenshotTool::Exit::done)
        std::fprintf(stderr, "kovrel-screencapture: %s\n", qUtf8Printable(outcome.message));
    return int(outcome.exit);
}
