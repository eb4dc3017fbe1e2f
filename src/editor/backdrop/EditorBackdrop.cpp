#include "editor/backdrop/EditorBackdrop.h"

#include "editor/json/BoundedJSON.h"
#include "editor/json/JSONNumber.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json; // written
using Parsed = nlohmann::json;

constexpr qsizetype mostBytes = 1 << 18;
constexpr size_t mostLayers = 16;

// Greater than anybody wants, small enough to reckon with.
constexpr double mostFraction = 10;
constexpr double mostPoints = 10'000;
constexpr int mostRatio = 10'000;

// Thrown where a value is not of the kind that its key has.
struct WrongKind {};

// --- Written

Json layerJson(const Shadow::Layer& layer)
{
    return {{"offset", jsonNumber(layer.offset)},
            {"radius", jsonNumber(layer.radius)},
            {"opacity", jsonNumber(layer.opacity)}};
}

Json shadowJson(const Shadow& shadow)
{
    Json layers = Json::array();
    for (const Shadow::Layer& layer : shadow.layers)
        layers.push_back(layerJson(layer));
    return {{"layers", layers}};
}

template <class Enum>
std::string rawText(Enum value)
{
    return rawString(value).toStdString();
}

// --- Read: each of them leaves the value as it is where its key is missing

const Parsed* member(const Parsed& object, const char* key)
{
    if (!object.is_object())
        throw WrongKind{};
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

void read(const Parsed& object, const char* key, double& value, double least, double most)
{
    if (const Parsed* const found = member(object, key)) {
        if (!found->is_number())
            throw WrongKind{};
        value = std::clamp(found->get<double>(), least, most);
    }
}

void read(const Parsed& object, const char* key, bool& value)
{
    if (const Parsed* const found = member(object, key)) {
        if (!found->is_boolean())
            throw WrongKind{};
        value = found->get<bool>();
    }
}

void read(const Parsed& object, const char* key, QString& value)
{
    if (const Parsed* const found = member(object, key)) {
        if (!found->is_string())
            throw WrongKind{};
        value = QString::fromStdString(found->get_ref<const std::string&>());
    }
}

template <class Enum>
void read(const Parsed& object, const char* key, Enum& value)
{
    QString text = rawString(value);
    read(object, key, text);
    const auto named = fromRawString<Enum>(text);
    if (!named)
        throw WrongKind{};
    value = *named;
}

void read(const Parsed& object, const char* key, int& value)
{
    double number = value;
    read(object, key, number, 1, mostRatio);
    if (number != std::trunc(number))
        throw WrongKind{};
    value = int(number);
}

Shadow::Layer layerFrom(const Parsed& object)
{
    Shadow::Layer layer;
    read(object, "offset", layer.offset, -mostFraction, mostFraction);
    read(object, "radius", layer.radius, 0, mostFraction);
    read(object, "opacity", layer.opacity, 0, 1);
    return layer;
}

void read(const Parsed& object, const char* key, Shadow& shadow)
{
    const Parsed* const found = member(object, key);
    const Parsed* const layers = found ? member(*found, "layers") : nullptr;
    if (!layers)
        return;
    if (!layers->is_array())
        throw WrongKind{};
    shadow.layers.clear();
    for (size_t index = 0; index < std::min(layers->size(), mostLayers); ++index)
        shadow.layers.push_back(layerFrom((*layers)[index]));
}

void read(const Parsed& object, const char* key, ShadowLight& light)
{
    if (const Parsed* const found = member(object, key)) {
        read(*found, "x", light.x, -1, 1);
        read(*found, "y", light.y, -1, 1);
    }
}

void read(const Parsed& object, const char* key, BackdropFill& fill)
{
    if (const Parsed* const found = member(object, key)) {
        read(*found, "kind", fill.kind);
        fill.value.clear(); // another kind's value says nothing
        read(*found, "value", fill.value);
    }
}

void read(const Parsed& object, const char* key, std::optional<AspectRatio>& aspect)
{
    const Parsed* const found = member(object, key);
    if (!found || found->is_null())
        return;
    AspectRatio ratio;
    read(*found, "width", ratio.width);
    read(*found, "height", ratio.height);
    aspect = ratio;
}

EditorBackdrop withoutFill()
{
    EditorBackdrop backdrop;
    backdrop.fill = {};
    return backdrop;
}

EditorBackdrop backdropFrom(const Parsed& object)
{
    EditorBackdrop backdrop = withoutFill();
    read(object, "fill", backdrop.fill);
    read(object, "padding", backdrop.padding, 0, mostFraction);
    read(object, "autoBalance", backdrop.autoBalance);
    read(object, "shadow", backdrop.shadow);
    read(object, "shadowLight", backdrop.shadowLight);
    read(object, "shadowOpacity", backdrop.shadowOpacity, 0, 1);
    read(object, "corners", backdrop.corners, 0, mostPoints);
    read(object, "blur", backdrop.blur, 0, mostFraction);
    read(object, "frame", backdrop.frame, 0, mostFraction);
    read(object, "frameColor", backdrop.frameColorHex);
    read(object, "frameFromPage", backdrop.frameFollowsPage);
    read(object, "aspect", backdrop.aspect);
    read(object, "alignment", backdrop.alignment);
    return backdrop;
}

} // namespace

const EditorBackdrop EditorBackdrop::none = withoutFill();

Json EditorBackdrop::toJson() const
{
    Json object{
        {"fill", {{"kind", rawText(fill.kind)}, {"value", fill.value.toStdString()}}},
        {"padding", jsonNumber(padding)},
        {"autoBalance", autoBalance},
        {"shadow", shadowJson(shadow)},
        {"shadowLight", {{"x", jsonNumber(shadowLight.x)}, {"y", jsonNumber(shadowLight.y)}}},
        {"shadowOpacity", jsonNumber(shadowOpacity)},
        {"corners", jsonNumber(corners)},
        {"blur", jsonNumber(blur)},
        {"frame", jsonNumber(frame)},
        {"frameColor", frameColorHex.toStdString()},
        {"frameFromPage", frameFollowsPage},
    };
    if (aspect)
        object["aspect"] = {{"width", aspect->width}, {"height", aspect->height}};
    object["alignment"] = rawText(alignment);
    return object;
}

std::optional<EditorBackdrop> EditorBackdrop::fromJson(const Parsed& object)
{
    try {
        return backdropFrom(object);
    } catch (const WrongKind&) {
        return std::nullopt;
    }
}

QByteArray EditorBackdrop::encode() const
{
    return QByteArray::fromStdString(toJson().dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::optional<EditorBackdrop> EditorBackdrop::decode(const QByteArray& json)
{
    return fromJson(boundedJSON(json, mostBytes));
}

} // namespace Kovrel
