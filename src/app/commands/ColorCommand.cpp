#include "app/commands/ColorCommand.h"

#include "app/commands/PixelPlace.h"
#include "picking/ColorLoupeSampler.h"
#include "picking/ColorText.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

CommandAnswer ColorCommand::run(const Command& command)
{
    const PixelPlace place = PixelPlace::of(command);
    const auto image = ImageCodec::decodeFile(place.file);
    if (!image)
        return {.exitCode = CommandLine::failed, .error = image.error().message};
    const auto hex = ColorLoupeSampler::hex(*image, place.x, place.y);
    return hex ? answer(command, *hex) : place.outside(*image);
}

CommandAnswer ColorCommand::answer(const Command& command, const PickedColor& hex)
{
    if (!hex && hex.error().isEmpty())
        return {.exitCode = CommandLine::nothingThere, .error = "no colour was picked"};
    if (!hex)
        return {.exitCode = CommandLine::failed, .error = "no colour can be picked: " + hex.error()};
    const auto format = command.options.find("format");
    const auto notation = format == command.options.end()
                              ? std::nullopt
                              : fromRawString<ColorNotation>(QString::fromStdString(format->second));
    return {.output = ColorText::of(*hex, notation.value_or(ColorNotation::hex)) + '\n'};
}

} // namespace Kovrel
