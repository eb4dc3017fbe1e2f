#include "platform/recognisers/ReadingSense.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double onPictures = 0.25;  // what has less blank ground stands on a picture, or is part of it
constexpr double amongShapes = 0.8;  // what has more is too sparse for letters
constexpr float morePictured = 0.2f; // confidence that is wanted on pictures besides

// The fewer characters, the more easily they are seen where there are none.
struct Demand {
    qsizetype mostCharacters = 0;
    float onText = 0; // of a word on ground that looks like that of text
    float elsewhere = 0;
};

constexpr Demand demands[] = {{1, 0.7f, 0.8f}, {3, 0.6f, 0.75f}, {8, 0, 0.45f}, {15, 0, 0.3f}};
constexpr qsizetype fewMarks = 5;

// Any line or corner of a drawing looks like a mark; only brackets stand alone, in code.
bool isMarksOnly(const QString& text)
{
    return std::ranges::none_of(text,
                                [](QChar c) { return c.isLetterOrNumber() || QStringView(u"{}()[]").contains(c); });
}

// Three characters and more without a space, marks around them left aside; fewer only without marks.
bool isWord(const QString& text)
{
    const auto isCore = [](QChar c) { return c.isLetterOrNumber(); };
    const auto first = std::ranges::find_if(text, isCore);
    const auto last = std::find_if(text.rbegin(), text.rend(), isCore).base();
    return last - first >= std::min<qsizetype>(3, text.size()) && !text.contains(u' ');
}

// No word list helps with them.
bool isNumber(const QString& text)
{
    return text.size() > 3 && std::ranges::count_if(text, [](QChar c) { return c.isDigit(); }) * 3 >= text.size();
}

float demandedOf(const QString& text, bool looksLikeText)
{
    const auto demand = std::ranges::find_if(demands, [&](const Demand& d) { return text.size() <= d.mostCharacters; });
    if (demand == std::end(demands) || isNumber(text))
        return 0;
    return looksLikeText ? demand->onText : demand->elsewhere;
}

} // namespace

bool ReadingSense::isText(const QString& text, float confidence, double blankShare)
{
    if (text.isEmpty() || (text.size() <= fewMarks && isMarksOnly(text)))
        return false;
    const bool isOnPicture = blankShare < onPictures;
    const bool looksLikeText = !isOnPicture && blankShare <= amongShapes && isWord(text);
    return confidence >= demandedOf(text, looksLikeText) + (isOnPicture ? morePictured : 0);
}

} // namespace Kovrel
