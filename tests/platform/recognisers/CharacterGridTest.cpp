#include "platform/recognisers/CharacterGrid.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Boxes = std::vector<std::optional<QRectF>>;

// A text as it was read of a line: a step for each character of the line, of `width` where it is given, and no box for
// spaces. The line has no space where the text has "_ ".
std::pair<QString, Boxes> readOf(const QString& marked, double narrow = 10)
{
    QString text;
    Boxes boxes;
    double x = 0;
    for (qsizetype at = 0; at < marked.size(); ++at) {
        const bool isFalse = marked[at] == u'_';
        if (isFalse)
            ++at;
        text += marked[at];
        const double width = marked[at] == u'i' || marked[at] == u'l' ? narrow : 10;
        boxes.push_back(marked[at] == u' ' ? std::nullopt : std::optional(QRectF(x, 0, width, 20)));
        x += isFalse ? 0 : width;
    }
    return {text, boxes};
}

} // namespace

TEST(CharacterGrid, SpacesWithoutAPlaceAreTakenOut)
{
    struct Case {
        const char* marked;
        double narrow;
        const char* expected;
    };

    for (const Case& c :
         {Case{"value = call(_ size)_ ;", 10, "value = call(size);"},
          Case{"value = call (size) ;", 10, "value = call (size) ;"}, Case{"first_ second", 10, "first second"},
          Case{"little_ (filling)", 4, "little (filling)"}, Case{"12 34_ )", 10, "12 34 )"}}) {
        auto [text, boxes] = readOf(c.marked, c.narrow);
        CharacterGrid::closeFalseGaps(text, boxes);
        EXPECT_EQ(text.toStdString(), c.expected);
        EXPECT_EQ(qsizetype(boxes.size()), text.size());
    }
}

} // namespace Kovrel
