#include "screenshottool/ToolOptions.h"

namespace Kovrel {

namespace {

std::optional<Rect> rectFrom(const QString& text)
{
    const QStringList parts = text.split(',');
    if (parts.size() != 4)
        return {};
    int values[4];
    for (int index = 0; index < 4; ++index) {
        bool isNumber = false;
        values[index] = parts[index].toInt(&isNumber);
        if (!isNumber)
            return {};
    }
    const Rect rect{double(values[0]), double(values[1]), double(values[2]), double(values[3])};
    return rect.isEmpty() ? std::nullopt : std::optional(rect);
}

std::optional<quint32> windowFrom(const QString& text)
{
    bool isNumber = false;
    const quint32 window = text.toUInt(&isNumber);
    return isNumber && window != 0 ? std::optional(window) : std::nullopt;
}

// False when the value makes no sense.
bool setValue(ToolOptions& options, const QString& option, const QString& value)
{
    if (option == u"-R")
        return (options.rect = rectFrom(value)).has_value();
    if (option == u"-l")
        return (options.window = windowFrom(value)).has_value();
    const auto format = imageFormatForExtension(value);
    options.format = format.value_or(options.format);
    return format.has_value();
}

bool setSwitch(ToolOptions& options, const QString& option)
{
    if (option == u"-C")
        options.drawsPointer = true;
    else if (option == u"-w")
        options.picksWindow = true;
    else
        return option == u"-x" || option == u"-o";
    return true;
}

} // namespace

std::expected<ToolOptions, QString> ToolOptions::parse(const QStringList& arguments)
{
    static const QStringList withValue{"-R", "-l", "-t"};
    ToolOptions options;
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString& argument = arguments[index];
        if (withValue.contains(argument)) {
            if (!setValue(options, argument, arguments.value(++index)))
                return std::unexpected("bad value for " + argument + ": " + arguments.value(index));
        } else if (argument.startsWith('-')) {
            if (!setSwitch(options, argument))
                return std::unexpected("unknown option " + argument);
        } else if (index + 1 < arguments.size()) {
            return std::unexpected("the output file comes last");
        } else {
            options.path = argument;
        }
    }
    if (options.path.isEmpty())
        return std::unexpected(QStringLiteral("no output file"));
    if (options.rect.has_value() + options.window.has_value() + options.picksWindow > 1)
        return std::unexpected(QStringLiteral("-R, -l and -w exclude each other"));
    return options;
}

} // namespace Kovrel
