#include "editor/json/AnnotationJson.h"

#include "editor/json/JSONElements.h"
#include "editor/json/JSONNumber.h"
#include "editor/json/RedactionRescue.h"
#include "platform/ImageCodec.h"

#include <QBuffer>
#include <QImageReader>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

// What nests deeper was not written by any version of us.
constexpr int deepest = 32;
// Larger entries are no annotations of anybody.
constexpr size_t longestEntry = 400'000'000;
// With the four fields that are required. Millions of others are passed over without being parsed.
constexpr size_t shortestEntry = 50;
// With a kind and two points.
constexpr size_t shortestRedaction = 30;

constexpr std::array keys{"kind",     "points",       "colorHex",        "lineWidth",         "text",
                          "fontSize", "stepNumber",   "fillStyle",       "rounded",           "dimLevel",
                          "sticker",  "curveControl", "highlightOnDark", "highlightPageLuma", "tipScale",
                          "rotation", "textStyle",    "wrapCap"};

struct NotAnAnnotation {};

// --- Writing

Json toJson(Point point)
{
    return Json::array({jsonNumber(point.x), jsonNumber(point.y)});
}

Json toJson(const std::vector<Point>& points)
{
    Json list = Json::array();
    for (const Point& point : points)
        list.push_back(toJson(point));
    return list;
}

template <class Enum>
std::string raw(Enum value)
{
    return rawString(value).toStdString();
}

Json toJson(const Annotation& mark, AnnotationJson::StickerPngs& pngs)
{
    Json object{{"kind", raw(mark.kind)},
                {"points", toJson(mark.points)},
                {"colorHex", mark.colorHex.toStdString()},
                {"lineWidth", jsonNumber(mark.lineWidth)},
                {"text", mark.text.toStdString()},
                {"fontSize", jsonNumber(mark.fontSize)},
                {"stepNumber", mark.stepNumber},
                {"fillStyle", raw(mark.fillStyle)},
                {"textStyle", raw(mark.textStyle)},
                {"rounded", mark.rounded},
                {"dimLevel", jsonNumber(mark.dimLevel)}};
    if (mark.curveControl)
        object["curveControl"] = toJson(*mark.curveControl);
    object["highlightOnDark"] = mark.highlightOnDark;
    object["highlightPageLuma"] = jsonNumber(mark.highlightPageLuma);
    object["tipScale"] = jsonNumber(mark.tipScale);
    object["rotation"] = jsonNumber(mark.rotation);
    if (mark.wrapCap)
        object["wrapCap"] = jsonNumber(*mark.wrapCap);
    if (mark.image)
        if (const auto& png = pngs.of(*mark.image))
            object["sticker"] = *png;
    return object;
}

// --- Reading

double toNumber(const Json& value)
{
    if (!value.is_number())
        throw NotAnAnnotation();
    return value.get<double>();
}

Point toPoint(const Json& value)
{
    if (!value.is_array() || value.size() < 2)
        throw NotAnAnnotation();
    return {toNumber(value[0]), toNumber(value[1])};
}

QString toText(const Json& value)
{
    if (!value.is_string())
        throw NotAnAnnotation();
    return QString::fromStdString(value.get_ref<const std::string&>());
}

bool toBool(const Json& value)
{
    if (!value.is_boolean())
        throw NotAnAnnotation();
    return value.get<bool>();
}

qint64 toInteger(const Json& value)
{
    if (value.is_number_integer() && value <= std::numeric_limits<qint64>::max())
        return value.get<qint64>();
    const double number = toNumber(value);
    constexpr double mostExact = 1e15;
    if (!(std::abs(number) < mostExact) || number != std::trunc(number))
        throw NotAnAnnotation();
    return qint64(number);
}

template <class Enum>
Enum toCase(const Json& value)
{
    const auto found = fromRawString<Enum>(toText(value));
    if (!found)
        throw NotAnAnnotation();
    return *found;
}

// Longer names of the bubble were written once.
AnnotationTextStyle toTextStyle(const Json& value)
{
    const QString text = toText(value);
    const auto other = text.startsWith("bubble") ? AnnotationTextStyle::bubble : AnnotationTextStyle::plain;
    return fromRawString<AnnotationTextStyle>(text).value_or(other);
}

std::optional<QImage> toImage(const Json& value, qint64& pixels)
{
    QByteArray data = QByteArray::fromBase64(toText(value).toLatin1());
    QBuffer buffer(&data);
    const QSize size = QImageReader(&buffer).size();
    const qint64 area = qint64(size.width()) * size.height();
    if (!size.isValid() || area > pixels)
        return std::nullopt;
    auto image = ImageCodec::decode(data);
    if (!image)
        return std::nullopt;
    pixels -= area;
    return std::move(*image);
}

// The JSON of an annotation without what nobody reads, and its points beside it: as JSON they would take ten times as
// much memory.
class Entry {
public:
    explicit Entry(std::string_view json)
    {
        const auto filter = [this](int depth, Json::parse_event_t event, Json& value) {
            return keeps(depth, event, value);
        };
        m_object = Json::parse(json.begin(), json.end(), filter, false); // what is no JSON is no object
        // All that is left in the list is no point.
        if (const Json& points = require("points"); !points.is_array() || !points.empty())
            throw NotAnAnnotation();
    }

    const std::vector<Point>& points() const { return m_points; }

    const Json& require(const char* key) const
    {
        const Json* const value = find(key);
        if (!value)
            throw NotAnAnnotation();
        return *value;
    }

    // Sets what is there, by `read`; the rest keeps its default.
    template <class Value, class Read>
    void ifPresent(const char* key, Value& value, Read read) const
    {
        if (const Json* const present = find(key))
            value = read(*present);
    }

private:
    const Json* find(const char* key) const
    {
        if (!m_object.is_object())
            throw NotAnAnnotation();
        const auto found = m_object.find(key);
        return found == m_object.end() || found->is_null() ? nullptr : &*found;
    }

    bool keeps(int depth, Json::parse_event_t event, const Json& value)
    {
        using Event = Json::parse_event_t;
        if (depth > deepest)
            throw NotAnAnnotation();
        if (event == Event::key && depth == 1)
            return startField(value.get_ref<const std::string&>());
        if (depth == 0 ? event == Event::array_start : m_isKnown)
            refuseWrongShapes(depth, event);
        if (event == Event::array_end && depth == 2 && m_isInPoints) {
            m_points.push_back(toPoint(value));
            return false;
        }
        return true;
    }

    bool startField(const std::string& key)
    {
        m_isInPoints = key == "points";
        if (m_isInPoints)
            m_points.clear();
        m_listDepth = m_isInPoints ? 2 : key == "curveControl" ? 1 : 0;
        m_isKnown = std::ranges::any_of(keys, [&](const char* known) { return key == known; });
        return m_isKnown;
    }

    // As soon as they begin: lists of anything but a few numbers would take much memory, and of objects quadratic time.
    void refuseWrongShapes(int depth, Json::parse_event_t event)
    {
        using Event = Json::parse_event_t;
        constexpr int mostNumbers = 8;
        const bool isTooDeep = event == Event::array_start && depth > m_listDepth;
        const bool isObject = event == Event::object_start && depth > 0;
        if (event == Event::array_start)
            m_numbers = 0;
        const bool isNumber = event == Event::value && depth > 1;
        if (isTooDeep || isObject || (isNumber && (depth <= m_listDepth || ++m_numbers > mostNumbers)))
            throw NotAnAnnotation();
    }

    Json m_object;
    std::vector<Point> m_points;
    bool m_isInPoints = false;
    bool m_isKnown = false;
    int m_listDepth = 0; // at which lists of numbers may begin
    int m_numbers = 0;   // in the list
};

Annotation toAnnotation(const Entry& entry, qint64& pixels)
{
    Annotation mark{.kind = toCase<Annotation::Kind>(entry.require("kind")),
                    .points = entry.points(),
                    .colorHex = toText(entry.require("colorHex")),
                    .lineWidth = toNumber(entry.require("lineWidth"))};
    entry.ifPresent("text", mark.text, toText);
    entry.ifPresent("fontSize", mark.fontSize, toNumber);
    entry.ifPresent("stepNumber", mark.stepNumber, toInteger);
    entry.ifPresent("fillStyle", mark.fillStyle, toCase<Annotation::FillStyle>);
    entry.ifPresent("textStyle", mark.textStyle, toTextStyle);
    entry.ifPresent("rounded", mark.rounded, toBool);
    entry.ifPresent("dimLevel", mark.dimLevel, toNumber);
    entry.ifPresent("curveControl", mark.curveControl, toPoint);
    entry.ifPresent("highlightOnDark", mark.highlightOnDark, toBool);
    entry.ifPresent("highlightPageLuma", mark.highlightPageLuma, toNumber);
    entry.ifPresent("tipScale", mark.tipScale, toNumber);
    entry.ifPresent("rotation", mark.rotation, toNumber);
    entry.ifPresent("wrapCap", mark.wrapCap, toNumber);
    entry.ifPresent("sticker", mark.image, [&](const Json& value) { return toImage(value, pixels); });
    RedactionRescue::keepWithinReach(mark);
    return mark;
}

// "entry 3 (blackout)", as far as the kind is known.
QString description(const QString& kind, size_t number)
{
    return QString("entry %1").arg(number) + (kind.isEmpty() ? QString() : " (" + kind + ')');
}

// Reads a list entry by entry.
class ListReader {
public:
    void take(std::string_view element)
    {
        ++m_number;
        if (JSONElements::isBlank(element)) // as in an empty list
            return;
        if (auto entry = LossyAnnotation::decoded(element, m_pixels); entry.annotation)
            m_reading.annotations.push_back(std::move(*entry.annotation));
        else
            takeDamaged(element);
    }

    void takeCutOff(std::string_view rest)
    {
        ++m_number;
        if (!JSONElements::isBlank(rest))
            takeDamaged(rest);
    }

    AnnotationJson::Reading reading() { return std::move(m_reading); }

private:
    void takeDamaged(std::string_view element)
    {
        constexpr qsizetype mostTold = 100;
        if (m_reading.damaged.size() < mostTold)
            m_reading.damaged << description(RedactionRescue::kindName(element), m_number);
        if (auto redaction = element.size() < shortestRedaction ? std::nullopt : RedactionRescue::rescued(element))
            m_reading.annotations.push_back(std::move(*redaction));
    }

    AnnotationJson::Reading m_reading;
    qint64 m_pixels = AnnotationJson::mostImagePixels;
    size_t m_number = 0;
};

} // namespace

LossyAnnotation LossyAnnotation::decoded(std::string_view json, qint64& pixels)
{
    const size_t start = json.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || json[start] != '{' || json.size() < shortestEntry ||
        json.size() > longestEntry)
        return {};
    try {
        return {toAnnotation(Entry(json), pixels)};
    } catch (const NotAnAnnotation&) {
        return {};
    } catch (const Json::exception&) {
        return {};
    }
}

const std::optional<std::string>& AnnotationJson::StickerPngs::of(const QImage& image)
{
    const auto [place, isNew] = m_pngs.try_emplace(image.cacheKey());
    if (isNew)
        if (const auto png = ImageCodec::encode(image, ImageFormat::png, 1))
            place->second = png->toBase64().toStdString();
    return place->second;
}

AnnotationJson::Written AnnotationJson::written(const std::vector<Annotation>& annotations, StickerPngs& pngs)
{
    Written result;
    Json list = Json::array();
    for (const Annotation& annotation : annotations) {
        list.push_back(toJson(annotation, pngs));
        if (annotation.image && !list.back().contains("sticker"))
            result.lost << description(rawString(annotation.kind), list.size());
    }
    result.json = QByteArray::fromStdString(list.dump(-1, ' ', false, Json::error_handler_t::replace));
    return result;
}

QByteArray AnnotationJson::encoded(const std::vector<Annotation>& annotations)
{
    StickerPngs pngs;
    return written(annotations, pngs).json;
}

std::optional<AnnotationJson::Reading> AnnotationJson::read(const QByteArray& json)
{
    const auto array = JSONElements::inArray({json.constData(), size_t(json.size())});
    if (!array)
        return std::nullopt;
    JSONElements elements(*array);
    ListReader reader;
    while (const auto element = elements.next())
        reader.take(*element);
    reader.takeCutOff(elements.rest());
    return reader.reading();
}

std::optional<std::vector<Annotation>> AnnotationJson::decoded(const QByteArray& json)
{
    auto reading = read(json);
    return reading ? std::optional(std::move(reading->annotations)) : std::nullopt;
}

} // namespace Kovrel
