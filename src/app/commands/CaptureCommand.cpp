#include "app/commands/CaptureCommand.h"

#include "commandline/OptionValues.h"

#include "model/text/PrintableText.h"

#include <nlohmann/json.hpp>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

Json orNull(const std::optional<QString>& text)
{
    return text ? Json(text->toStdString()) : Json();
}

QString json(const CaptureOutcome& outcome)
{
    const CaptureResult& result = *outcome.result;
    Json object{
        {"id", result.id.toString(QUuid::WithoutBraces).toUpper().toStdString()},
        {"mode", rawString(result.mode).toStdString()},
        {"path", orNull(outcome.path)},
        {"historyPath", orNull(outcome.historyPath)},
        {"width", outcome.pixelSize.width()},
        {"height", outcome.pixelSize.height()},
        {"pixelScale", result.pixelScale},
        {"sourceApp", result.sourceApp ? Json(result.sourceApp->name.toStdString()) : Json()},
    };
    if (outcome.text)
        object["text"] = outcome.text->toStdString();
    return QString::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace)) + '\n';
}

QString plain(const CaptureOutcome& outcome, bool waited)
{
    if (outcome.text)
        return PrintableText::of(*outcome.text) + '\n';
    if (!waited)
        return {};
    const std::optional<QString>& place = outcome.path ? outcome.path : outcome.historyPath;
    return place ? *place + '\n' : QString();
}

CommandAnswer finished(const CaptureOutcome& outcome, bool waited, bool asJson)
{
    const bool isWithoutText = outcome.text && outcome.text->isEmpty();
    CommandAnswer answer{.error = outcome.message};
    if (asJson)
        answer.output = json(outcome);
    else if (!isWithoutText)
        answer.output = plain(outcome, waited);
    if (isWithoutText) {
        answer.exitCode = CommandLine::nothingThere;
        answer.error = "there is no text in the area";
    }
    return answer;
}

Rect rectOf(const std::string& text)
{
    const auto numbers = OptionValues::numbers(text, 4).value_or(std::vector<double>(4));
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

CaptureOptions optionsOf(const Command& command)
{
    CaptureOptions options;
    if (command.has("rect"))
        options.rect = rectOf(command.options.at("rect"));
    if (command.has("output"))
        options.outputPath = QString::fromStdString(command.options.at("output"));
    options.save = command.has("save");
    options.copy = command.has("copy");
    options.waitsForFiles = command.has("wait") || command.has("output");
    return options;
}

} // namespace

CaptureRequest CaptureCommand::request(const Command& command, Reply<CommandAnswer> reply, const QString& obstacle)
{
    const CaptureOptions options = optionsOf(command);
    const auto answerTo = [reply = std::move(reply), obstacle, waited = options.waitsForFiles,
                           asJson = command.has("json")](CaptureOutcome outcome) {
        if (outcome.kind == CaptureOutcome::Kind::refused)
            outcome.message = obstacle;
        reply(answer(outcome, waited, asJson));
    };
    return {
        .mode = *fromRawString<CaptureMode>(QString::fromStdString(command.operands.front())),
        .options = options,
        .reply = CaptureReply(answerTo),
    };
}

CommandAnswer CaptureCommand::answer(const CaptureOutcome& outcome, bool waited, bool asJson)
{
    switch (outcome.kind) {
    case CaptureOutcome::Kind::finished:
        return finished(outcome, waited, asJson);
    case CaptureOutcome::Kind::cancelled:
        return {.exitCode = CommandLine::nothingThere, .error = "the capture was cancelled"};
    case CaptureOutcome::Kind::ignored:
        return {.exitCode = CommandLine::nothingThere, .error = "a capture is already starting"};
    case CaptureOutcome::Kind::overwritten:
        return {.exitCode = CommandLine::nothingThere, .error = "a later capture took this one's place"};
    case CaptureOutcome::Kind::refused:
        return {.exitCode = CommandLine::refused,
                .error = outcome.message.isEmpty() ? "not signed in; run: kovrel sign-in --local" : outcome.message};
    case CaptureOutcome::Kind::misused:
        return {.exitCode = CommandLine::usageError, .error = outcome.message};
    case CaptureOutcome::Kind::failed:
        return {.exitCode = CommandLine::failed, .error = outcome.message};
    }
    return {.exitCode = CommandLine::failed};
}

} // namespace Kovrel
