#include "recognition/OCRFile.h"

#include "recognition/RecognitionJson.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr double centreSteps = 10000;

Rect boxFrom(const Json& list)
{
    const auto values = list.get<std::vector<double>>();
    return values.size() == 4 ? Rect{values[0], values[1], values[2], values[3]} : Rect{};
}

Json toJson(const OCRLine& line)
{
    Json object{{"t", line.text.toStdString()},
                {"c", RecognitionJson::confidence(line.confidence)},
                {"b", RecognitionJson::box(line.boundingBox)}};
    if (line.quad)
        object["q"] = RecognitionJson::quad(*line.quad);
    if (!line.characterCenters.empty()) {
        Json& centres = object["cc"] = Json::array();
        for (const double centre : line.characterCenters)
            centres.push_back(std::lround(centre * centreSteps));
    }
    return object;
}

// Throws for 1e300 as for "1", neither of which fits.
qint64 whole(const Json& value)
{
    return value.get_ref<const Json::number_integer_t&>();
}

OCRLine lineFrom(const Json& object)
{
    OCRLine line{.text = QString::fromStdString(object.at("t").get<std::string>()),
                 .confidence = object.at("c").get<float>(),
                 .boundingBox = boxFrom(object.at("b"))};
    if (const auto list = object.find("q"); list != object.end() && !list->is_null()) {
        const auto q = list->get<std::vector<double>>();
        if (q.size() == 6)
            line.quad = OCRQuad{{q[0], q[1]}, {q[2], q[3]}, {q[4], q[5]}};
    }
    if (const auto list = object.find("cc"); list != object.end() && !list->is_null())
        for (const Json& centre : *list)
            line.characterCenters.push_back(double(whole(centre)) / centreSteps);
    return line;
}

Json toJson(const OCRFile::TextPart& part)
{
    Json lines = Json::array();
    for (const OCRLine& line : part.result.lines)
        lines.push_back(toJson(line));
    return {{"w", part.pixels.width()},           {"h", part.pixels.height()},
            {"corrected", part.corrected},        {"full", part.result.fullText.toStdString()},
            {"oriented", part.result.isOriented}, {"lines", lines}};
}

OCRFile::TextPart textPartFrom(const Json& object)
{
    OCRFile::TextPart part{.pixels = {int(whole(object.at("w"))), int(whole(object.at("h")))},
                           .corrected = object.at("corrected").get<bool>()};
    part.result.fullText = QString::fromStdString(object.at("full").get<std::string>());
    part.result.isOriented = object.at("oriented").get<bool>();
    for (const Json& line : object.at("lines"))
        part.result.lines.push_back(lineFrom(line));
    return part;
}

Json toJson(const OCRFile::QRPart& part)
{
    Json codes = Json::array();
    for (const QRCode& code : part.codes)
        codes.push_back({{"p", code.payload.toStdString()}, {"b", RecognitionJson::box(code.boundingBox)}});
    return {{"codes", codes}, {"complete", part.complete}};
}

OCRFile::QRPart qrPartFrom(const Json& object)
{
    OCRFile::QRPart part{.complete = object.at("complete").get<bool>()};
    for (const Json& code : object.at("codes"))
        part.codes.push_back({QString::fromStdString(code.at("p").get<std::string>()), boxFrom(code.at("b"))});
    return part;
}

} // namespace

OCRResult OCRFile::textWithCodes() const
{
    OCRResult result = text ? text->result : OCRResult();
    for (const QRCode& code : qr ? qr->codes : std::vector<QRCode>())
        result.lines.push_back(
            {.text = code.payload, .confidence = 1, .boundingBox = code.boundingBox, .isQRCode = true});
    return result;
}

QByteArray OCRFile::encoded() const
{
    Json object{{"v", version}};
    if (text)
        object["text"] = toJson(*text);
    if (qr)
        object["qr"] = toJson(*qr);
    return QByteArray::fromStdString(object.dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::optional<OCRFile> OCRFile::decoded(const QByteArray& json)
{
    try {
        const Json object = Json::parse(json.begin(), json.end());
        OCRFile file{.version = int(whole(object.at("v")))};
        if (const auto part = object.find("text"); part != object.end() && !part->is_null())
            file.text = textPartFrom(*part);
        if (const auto part = object.find("qr"); part != object.end() && !part->is_null())
            file.qr = qrPartFrom(*part);
        return file;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace Kovrel
