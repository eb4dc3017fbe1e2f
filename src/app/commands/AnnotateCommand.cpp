#include "app/commands/AnnotateCommand.h"

#include "editor/AnnotationFlattener.h"
#include "editor/OwnBackdropPicture.h"
#include "editor/json/AnnotationJson.h"
#include "platform/ImageCodec.h"
#include "platform/files/RegularFile.h"
#include "saving/SaveService.h"

namespace Kovrel {

namespace {

using Input = AnnotationFlattener::Input;
using Failure = std::unexpected<QString>;

constexpr qint64 mostJsonBytes = 1'000'000'000;

QString option(const Command& command, const char* name)
{
    return QString::fromStdString(command.options.at(name));
}

// Damage is told, so that no picture goes out without a redaction that was meant for it; `isLenient` does without.
std::expected<std::vector<Annotation>, QString> annotations(const QString& path, bool isLenient)
{
    const auto json = RegularFile::read(path, mostJsonBytes);
    if (!json)
        return Failure(json.error());
    auto reading = AnnotationJson::read(*json);
    if (!reading)
        return Failure(path + " is no list of annotations");
    if (!isLenient && !reading->damaged.isEmpty())
        return Failure(path + " has damaged annotations: " + reading->damaged.join(", ") +
                       "; nothing is written without --lenient");
    return std::move(reading->annotations);
}

std::expected<EditorBackdrop, QString> backdrop(const QString& path)
{
    const auto json = RegularFile::read(path, mostJsonBytes);
    if (!json)
        return Failure(json.error());
    const auto decoded = EditorBackdrop::decode(*json);
    if (!decoded)
        return Failure(path + " is no backdrop");
    return *decoded;
}

CaptureSubject subject(const QString& text)
{
    const QStringList numbers = text.split(',');
    const auto number = [&](qsizetype index) { return numbers[index].toDouble(); };
    return {{number(0), number(1), number(2), number(3)}, number(4)};
}

std::expected<Input, QString> input(const Command& command, const AnnotateCommand::Settings& settings)
{
    const auto image = ImageCodec::decodeFile(QString::fromStdString(command.operands.front()));
    if (!image)
        return Failure(image.error().message);
    Input input{.base = *image, .measureUnit = settings.measureUnit};
    if (command.has("scale"))
        input.exportScale = option(command, "scale").toDouble();
    if (command.has("subject"))
        input.subject = subject(option(command, "subject"));
    if (command.has("annotations")) {
        auto marks = annotations(option(command, "annotations"), command.has("lenient"));
        if (!marks)
            return Failure(marks.error());
        input.annotations = std::move(*marks);
    }
    if (command.has("backdrop")) {
        const auto read = backdrop(option(command, "backdrop"));
        if (!read)
            return Failure(read.error());
        input.backdrop = *read;
        if (read->autoBalance)
            input.margins = BackdropMargins::measured(input.base);
    }
    return input;
}

CommandAnswer failure(const QString& message)
{
    return {.exitCode = CommandLine::failed, .error = message};
}

} // namespace

AnnotateCommand::Settings AnnotateCommand::settings(const Preferences& preferences)
{
    return {.quality = preferences.get(Kovrel::Settings::jpegQuality),
            .measureUnit = preferences.get(Kovrel::Settings::measureUnit)};
}

CommandAnswer AnnotateCommand::run(const Command& command, const Settings& settings)
{
    const auto parts = input(command, settings);
    if (!parts)
        return failure(parts.error());
    EditorBackdropRenderer renderer;
    if (const auto own = OwnBackdropPicture::read(parts->backdrop.fill)) {
        if (!*own)
            return failure(own->error().message);
        renderer.setPicture(parts->backdrop.fill.value, **own);
    }
    const QImage picture = AnnotationFlattener::render(*parts, renderer);
    if (picture.isNull())
        return failure("the picture is too large to be drawn");
    const auto saved = SaveService::saveTo(picture, option(command, "output"), settings.quality);
    return saved ? CommandAnswer{} : failure(saved.error().message);
}

} // namespace Kovrel
