#include "app/commands/CodesCommand.h"

#include "model/text/PrintableText.h"
#include "platform/ImageCodec.h"
#include "platform/plugins/PluginCodeReader.h"
#include "recognition/RecognitionJson.h"
#include "recognition/codes/QRCodeDetector.h"

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

CommandAnswer failure(const QString& message)
{
    return {.exitCode = CommandLine::failed, .error = message};
}

} // namespace

CommandAnswer CodesCommand::run(const Command& command)
{
    const QString file = QString::fromStdString(command.operands.front());
    const auto image = ImageCodec::decodeFile(file);
    if (!image)
        return failure(image.error().message);
    const auto codes = QRCodeDetector::detectCodesSync(*image, true, true, std::nullopt, PluginCodeReader());
    if (!codes)
        return failure(codes.error());
    CommandAnswer answer;
    answer.output = command.has("json") ? QString::fromStdString(json(*codes).dump()) + '\n' : plain(*codes);
    if (codes->empty()) {
        answer.exitCode = CommandLine::nothingThere;
        answer.error = "there is no code in " + file;
    }
    return answer;
}

QString CodesCommand::plain(const std::vector<QRCode>& codes)
{
    QString text;
    for (const QRCode& code : codes)
        text += PrintableText::of(code.payload) + '\n';
    return text;
}

nlohmann::ordered_json CodesCommand::json(const std::vector<QRCode>& codes)
{
    Json list = Json::array();
    for (const QRCode& code : codes)
        list.push_back({{"payload", code.payload.toStdString()}, {"box", RecognitionJson::box(code.boundingBox)}});
    return list;
}

} // namespace Kovrel
