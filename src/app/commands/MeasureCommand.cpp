#include "app/commands/MeasureCommand.h"

#include "app/commands/PixelPlace.h"
#include "imaging/MeasureSampler.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

namespace {

using Axis = MeasureSampler::Axis;

std::optional<int> numberOf(const Command& command, const char* option)
{
    const auto given = command.options.find(option);
    return given == command.options.end() ? std::nullopt : std::optional(std::stoi(given->second));
}

Axis axisOf(const Command& command)
{
    const auto given = command.options.find("axis");
    return given != command.options.end() && given->second == "vertical" ? Axis::vertical : Axis::horizontal;
}

} // namespace

CommandAnswer MeasureCommand::run(const Command& command)
{
    const PixelPlace place = PixelPlace::of(command);
    const auto image = ImageCodec::decodeFile(place.file);
    if (!image)
        return {.exitCode = CommandLine::failed, .error = image.error().message};
    const int tolerance = numberOf(command, "tolerance").value_or(MeasureSampler::usualTolerance);
    const auto run =
        MeasureSampler(*image).span(place.x, place.y, axisOf(command), tolerance, numberOf(command, "edge-floor"));
    if (!run)
        return place.outside(*image);
    return {.output = QString("%1 %2 %3\n").arg(run->lower).arg(run->upper).arg(run->length())};
}

} // namespace Kovrel
