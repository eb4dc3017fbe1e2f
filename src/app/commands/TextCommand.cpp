#include "app/commands/TextCommand.h"

#include "app/commands/CodesCommand.h"

#include "platform/Guarded.h"
#include "platform/ImageCodec.h"
#include "recognition/RecognitionJson.h"

#include <nlohmann/json.hpp>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

Json json(const OCRLine& line)
{
    return {{"text", line.text.toStdString()},
            {"confidence", RecognitionJson::confidence(line.confidence)},
            {"box", RecognitionJson::box(line.boundingBox)},
            {"quad", line.quad ? RecognitionJson::quad(*line.quad) : Json()}};
}

QString json(const OCRResult& result, const std::vector<QRCode>& codes)
{
    Json lines = Json::array();
    for (const OCRLine& line : result.lines)
        lines.push_back(json(line));
    const Json object{{"fullText", result.fullText.toStdString()},
                      {"isOriented", result.isOriented},
                      {"lines", lines},
                      {"codes", CodesCommand::json(codes)}};
    return QString::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace)) + '\n';
}

QString plain(const OCRResult& result, const std::vector<QRCode>& codes)
{
    return (result.fullText.isEmpty() ? QString() : result.fullText + '\n') + CodesCommand::plain(codes);
}

CommandAnswer failure(const QString& message)
{
    return {.exitCode = CommandLine::failed, .error = message};
}

// What was found counts, and what could not be looked for is told beside it.
CommandAnswer answer(const OCROutcome& text, const QRCodeDetector::Outcome& codes, const Command& command)
{
    const OCRResult result = text.value_or(OCRResult());
    const std::vector<QRCode> found = codes.value_or(std::vector<QRCode>());
    const QString reason = !text ? text.error().message : !codes ? codes.error() : QString();
    const bool isEmpty = result.fullText.isEmpty() && found.empty();
    if (isEmpty && !reason.isEmpty())
        return failure(reason);
    CommandAnswer answer{.output = command.has("json") ? json(result, found) : plain(result, found), .error = reason};
    if (isEmpty) {
        answer.exitCode = CommandLine::nothingThere;
        answer.error = "there is no text in " + QString::fromStdString(command.operands.front());
    }
    return answer;
}

} // namespace

TextCommand::TextCommand(MainLoop& loop, Workers& workers, VisionOCREngine& engine, QRCodeDetector& codes,
                         std::function<void(double)> progress)
    : m_engine(engine), m_codes(codes), m_progress(std::move(progress)), m_scope(loop, workers)
{
}

void TextCommand::run(const Command& command, quint64 requestID, Reply<CommandAnswer> reply)
{
    Scope::start(answer(command, requestID, std::move(reply)), "reading text");
}

void TextCommand::cancel(quint64 requestID)
{
    if (const auto running = m_running.find(requestID); running != m_running.end())
        running->second.request_stop();
}

QCoro::Task<> TextCommand::answer(Command command, quint64 requestID, Reply<CommandAnswer> reply)
{
    const std::stop_source stop;
    m_running.insert_or_assign(requestID, stop);
    CommandAnswer result;
    try {
        result = co_await m_scope.join(read(command, stop.get_token()));
    } catch (const std::exception&) {
        result = failure(Guarded::reason());
    }
    m_running.erase(requestID);
    if (m_progress)
        m_progress(1);
    reply(result);
}

QCoro::Task<CommandAnswer> TextCommand::read(Command command, std::stop_token stop)
{
    const QString path = QString::fromStdString(command.operands.front());
    const auto decode = Guarded::orReason([path] { return ImageCodec::decodeFile(path); });
    const auto image = co_await m_scope.onWorker(Lane::utility, decode);
    if (!image)
        co_return failure(image.error().message);
    auto codesRead = m_scope.join(m_codes.detectCodes(*image)); // at the same time as the text
    const OCROutcome text = co_await m_scope.join(
        m_engine.recognize(*image, QualityOfService::userInitiated, !command.has("raw"), stop, m_progress));
    const QRCodeDetector::Outcome codes = co_await codesRead;
    co_return Kovrel::answer(text, codes, command);
}

} // namespace Kovrel
