#include "app/commands/PixelPlace.h"

namespace Kovrel {

PixelPlace PixelPlace::of(const Command& command)
{
    return {.file = QString::fromStdString(command.operands[0]),
            .x = std::stoi(command.operands[1]),
            .y = std::stoi(command.operands[2])};
}

CommandAnswer PixelPlace::outside(const QImage& picture) const
{
    return {.exitCode = CommandLine::nothingThere,
            .error =
                QString("%1 has %2 x %3 pixels, counted from 0").arg(file).arg(picture.width()).arg(picture.height())};
}

} // namespace Kovrel
