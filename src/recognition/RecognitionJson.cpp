#include "recognition/RecognitionJson.h"

#include <QByteArray>

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr double coordinateSteps = 100000;

Json numbers(std::initializer_list<double> values)
{
    Json list = Json::array();
    for (const double value : values)
        list.push_back(std::round(value * coordinateSteps) / coordinateSteps);
    return list;
}

} // namespace

Json RecognitionJson::box(const Rect& box)
{
    return numbers({box.x, box.y, box.width, box.height});
}

Json RecognitionJson::quad(const OCRQuad& quad)
{
    return numbers({quad.origin.x, quad.origin.y, quad.xEnd.x, quad.xEnd.y, quad.yEnd.x, quad.yEnd.y});
}

Json RecognitionJson::confidence(float value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return QByteArray(text.data(), end - text.data()).toDouble();
}

} // namespace Kovrel
