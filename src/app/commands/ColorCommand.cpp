#include "app/commands/ColorCommand.h"

#include "picking/ColorLoupeSampler.h"
#include "picking/ColorText.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

CommandAnswer ColorCommand::run(const Command& command)
{
    const QString file = QString::fromStdString(command.operands[0]);
    const auto image = ImageCodec::decodeFile(file);
    if (!image)
        return {.exitCode = CommandLine::failed, .error = image.error().message};
    const auto hex = ColorLoupeSampler::hex(*image, std::stoi(command.operands[1]), std::stoi(command.operands[2]));
    CommandAnswer answer = ColorCommand::answer(command, hex);
    if (!hex)
        answer.error =
            QString("%1 has %2 x %3 pixels, counted from 0").arg(file).arg(image->width()).arg(image->height());
    return answer;
}

CommandAnswer ColorCommand::answer(const Command& command, const std::optional<QString>& hex)
{
    if (!hex)
        return {.exitCode = CommandLine::nothingThere};
    const auto format = command.options.find("format");
    const auto notation = format == command.options.end()
                              ? std::nullopt
                              : fromRawString<ColorNotation>(QString::fromStdString(format->second));
    return {.output = ColorText::of(*hex, notation.value_or(ColorNotation::hex)) + '\n'};
}

} // namespace Kovrel
