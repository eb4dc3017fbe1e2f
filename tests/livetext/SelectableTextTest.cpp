#include "livetext/SelectableText.h"

#include "livetext/TextLinks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace Kovrel {

namespace {

using Place = SelectableText::Place;
using Range = SelectableText::Range;
using testing::ElementsAre;

constexpr QSize picture(1000, 500);

// A line whose letters are ten pixels wide, from a pixel of the picture's left and lower edge on; 20 pixels high.
OCRLine line(const QString& text, double x, double y)
{
    OCRLine made{.text = text, .confidence = 1};
    made.boundingBox = {x / picture.width(), 1 - y / picture.height(), 10.0 * double(text.size()) / picture.width(),
                        20.0 / picture.height()};
    for (qsizetype index = 0; index < text.size(); ++index) {
        const qsizetype place = text.isRightToLeft() ? text.size() - 1 - index : index;
        made.characterCenters.push_back((x + 5 + 10 * double(place)) / picture.width());
    }
    return made;
}

} // namespace

TEST(SelectableTextTest, WhatLiesBetweenTwoPointsIsSelected)
{
    const SelectableText text(
        {line("first row", 100, 100), line("price", 300, 101), line("ab", 365, 101), line("second row", 100, 140)},
        picture);

    struct Case {
        QPointF from;
        QPointF to;
        QString selected;
    };

    const Case cases[] = {
        {{100, 90}, {151, 90}, "first"},
        {{104, 90}, {146, 90}, "first"}, // a letter counts from its middle on
        {{106, 90}, {144, 90}, "irs"},
        {{151, 90}, {100, 90}, "first"}, // backwards
        {{160, 90}, {330, 90}, "row\tpri"},
        {{300, 90}, {390, 90}, "price ab"},
        {{160, 90}, {160, 130}, "row\tprice ab\nsecond"},
        {{0, 0}, {999, 499}, "first row\tprice ab\nsecond row"},
        {{100, 400}, {100, 400}, ""},
    };
    for (const Case& each : cases)
        EXPECT_EQ(text.text(SelectableText::between(text.placeAt(each.from), text.placeAt(each.to))), each.selected);
    EXPECT_EQ(text.text(text.all()), "first row\tprice ab\nsecond row");
    EXPECT_EQ(text.text(text.lineAt({120, 95})), "first row");
    EXPECT_TRUE(text.covers({104, 85}));
    EXPECT_FALSE(text.covers({240, 90}));
    EXPECT_FALSE(SelectableText().covers({0, 0}));
}

TEST(SelectableTextTest, ADoubleClickSelectsTheWordUnderIt)
{
    const SelectableText text({line("one, two-three", 100, 100)}, picture);
    for (const auto& [x, word] : {std::pair(101, "one"), std::pair(129, "one"), std::pair(131, ","),
                                  std::pair(151, "two"), std::pair(179, "two"), std::pair(239, "three")})
        EXPECT_EQ(text.text(text.wordAt({double(x), 90})), word) << x;
}

TEST(SelectableTextTest, CharactersAreWhatPeopleCountAsOne)
{
    const QString word = QString::fromUtf8("e\u0301a\U0001F600b"); // five code points in six units, four characters
    OCRLine made{.text = word, .confidence = 1, .boundingBox = {0.1, 0.5, 0.4, 0.1}};
    const SelectableText text({made}, picture);
    EXPECT_EQ(text.all().to, (Place{0, 4}));
    EXPECT_EQ(text.text({{0, 0}, {0, 1}}), word.left(2));
    EXPECT_EQ(text.text({{0, 2}, {0, 3}}), QString::fromUtf8("\U0001F600"));
    EXPECT_EQ(text.placeAt({299, 225}), (Place{0, 2}));
}

TEST(SelectableTextTest, RightToLeftLinesAreSelectedFromTheRight)
{
    const SelectableText text({line(QString::fromUtf8("שלום"), 100, 100)}, picture);
    EXPECT_EQ(text.placeAt({139, 90}), (Place{0, 0}));
    EXPECT_EQ(text.placeAt({101, 90}), (Place{0, 4}));
    EXPECT_EQ(text.shapes({{0, 0}, {0, 1}}).front().boundingRect(), QRectF(130, 80, 10, 20));
}

TEST(SelectableTextTest, ATurnedLineIsCoveredAlongItsSlope)
{
    OCRLine made{.text = "abcd", .confidence = 1, .boundingBox = {0.2, 0.2, 0.2, 0.5}};
    made.quad = OCRQuad{{0.2, 0.2}, {0.4, 0.6}, {0.18, 0.24}}; // up to the right: from 200, 400 to 400, 200
    const SelectableText text({made}, picture);
    EXPECT_EQ(text.placeAt({300, 300}), (Place{0, 2}));
    EXPECT_EQ(text.placeAt({410, 190}), (Place{0, 4}));
    EXPECT_TRUE(text.covers({290, 290}));
    EXPECT_FALSE(text.covers({230, 230})) << "within the box around it, not within the line";
    const QPolygonF half = text.shapes({{0, 0}, {0, 2}}).front();
    EXPECT_NEAR(std::hypot(half[1].x() - 300, half[1].y() - 300), 0, 1e-6);
}

TEST(SelectableTextTest, TheKeyboardGoesOverTheEndsOfLines)
{
    const SelectableText text({line("ab", 100, 100), line("cd", 100, 140)}, picture);
    EXPECT_EQ(text.next({0, 2}), (Place{1, 0}));
    EXPECT_EQ(text.next({1, 2}), (Place{1, 2}));
    EXPECT_EQ(text.previous({1, 0}), (Place{0, 2}));
    EXPECT_EQ(text.previous({0, 0}), (Place{0, 0}));
}

TEST(TextLinksTest, OnlyAddressesOfWebPagesAndCodesAreLinks)
{
    struct Case {
        QString text;
        std::vector<QString> links;
    };

    const Case cases[] = {
        {"see https://example.org/a?b=1, or", {"https://example.org/a?b=1"}},
        {"(http://example.org/x_(y))", {"http://example.org/x_(y)"}},
        {"HTTPS://EXAMPLE.ORG.", {"HTTPS://EXAMPLE.ORG"}},
        {"https://a.org https://b.org!", {"https://a.org", "https://b.org"}},
        {"javascript:alert(1) file:///etc/passwd ftp://a.org mailto:a@b.org", {}},
        {"https:// nothing", {}},
        {"example.org", {}},
    };
    for (const Case& each : cases) {
        const SelectableText text({line(each.text, 10, 100)}, picture);
        std::vector<QString> links;
        for (const auto& link : TextLinks(text, {}, picture).all())
            links.push_back(link.text);
        EXPECT_EQ(links, each.links) << each.text.toStdString();
    }
}

TEST(TextLinksTest, ALinkIsWhereItIsWrittenAndACodeWhereItIsSeen)
{
    const SelectableText text({line("at https://a.org now", 100, 100)}, picture);
    const TextLinks links(text, {{"javascript:1", {0.5, 0.5, 0.1, 0.2}}}, picture);
    EXPECT_EQ(links.at({125, 90}), nullptr);
    ASSERT_NE(links.at({131, 90}), nullptr);
    EXPECT_EQ(links.at({131, 90})->target, QUrl("https://a.org"));
    EXPECT_EQ(links.at({265, 90}), nullptr);
    ASSERT_NE(links.at({550, 200}), nullptr);
    EXPECT_TRUE(links.at({550, 200})->isCode);
    EXPECT_FALSE(links.at({550, 200})->target) << "such an address is never opened";
}

} // namespace Kovrel
