#include "platform/recognisers/ReadingSense.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double leastBlankShare = 0.25; // what has less stands on a picture, or is part of it
constexpr float onPictures = 0.2f;       // more confidence is wanted there
constexpr float ofNumbers = 0;           // in which no word list helps

// The fewer characters, the more easily they are seen where there are none.
struct Demand {
    qsizetype mostCharacters = 0;
    float confidence = 0;
};

constexpr Demand demands[] = {{1, 0.6f}, {3, 0.75f}, {8, 0.5f}, {15, 0.3f}};

// Any line or corner of a drawing looks like one.
bool isStroke(QChar c)
{
    return QStringView(u"\\|~<>«»‹›'\"‘’“”`´.,:;_^°-–—=•").contains(c);
}

bool isNumber(const QString& text)
{
    return std::ranges::count_if(text, [](QChar c) { return c.isDigit(); }) * 3 >= text.size();
}

float demandedOf(const QString& text)
{
    const auto demand = std::ranges::find_if(demands, [&](const Demand& d) { return text.size() <= d.mostCharacters; });
    const float confidence = demand == std::end(demands) ? 0 : demand->confidence;
    return text.size() > 3 && isNumber(text) ? std::min(confidence, ofNumbers) : confidence;
}

} // namespace

bool ReadingSense::isText(const QString& text, float confidence, double blankShare)
{
    if (std::ranges::all_of(text, [](QChar c) { return isStroke(c) || c.isSpace(); }) && text.size() <= 3)
        return false;
    return confidence >= demandedOf(text) + (blankShare < leastBlankShare ? onPictures : 0);
}

} // namespace Kovrel
