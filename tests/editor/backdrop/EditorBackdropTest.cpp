#include "editor/backdrop/EditorBackdrop.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// No field at its default.
EditorBackdrop unusual()
{
    return {
        .fill = {BackdropFill::Kind::color, "#12AB34"},
        .padding = 0.25,
        .autoBalance = true,
        .shadow = {{{0.5, 0.125, 1}, {0, 2, 0.75}}},
        .shadowLight = {-1, 0.5},
        .shadowOpacity = 1,
        .corners = 20,
        .blur = 0.5,
        .frame = 3,
        .frameColorHex = "#0000FF80",
        .frameFollowsPage = true,
        .aspect = AspectRatio{16, 9},
        .alignment = CardAlignment::bottomLeft,
    };
}

constexpr auto unusualJSON =
    R"({"fill":{"kind":"color","value":"#12AB34"},"padding":0.25,"autoBalance":true,)"
    R"("shadow":{"layers":[{"offset":0.5,"radius":0.125,"opacity":1},{"offset":0,"radius":2,"opacity":0.75}]},)"
    R"("shadowLight":{"x":-1,"y":0.5},"shadowOpacity":1,"corners":20,"blur":0.5,"frame":3,)"
    R"("frameColor":"#0000FF80","frameFromPage":true,"aspect":{"width":16,"height":9},"alignment":"bottomLeft"})";

} // namespace

TEST(EditorBackdrop, HasItsKeysInTheirOrder)
{
    EXPECT_EQ(unusual().encode(), unusualJSON);
    EditorBackdrop shapeless = unusual();
    shapeless.aspect.reset();
    EXPECT_FALSE(shapeless.encode().contains("aspect"));
}

TEST(EditorBackdrop, ReadsWhatItWrote)
{
    for (const EditorBackdrop& backdrop : {unusual(), EditorBackdrop(), EditorBackdrop::none}) {
        EXPECT_EQ(EditorBackdrop::decode(backdrop.encode()), backdrop);
        EXPECT_EQ(EditorBackdrop::decode(backdrop.encode())->encode(), backdrop.encode());
    }
}

TEST(EditorBackdrop, WhatIsMissingIsTheDefault)
{
    EXPECT_EQ(EditorBackdrop::decode("{}"), EditorBackdrop::none); // a page that nobody chose is none
    EXPECT_EQ(EditorBackdrop::decode(R"({"later": [1, {"unknown": 2}]})"), EditorBackdrop::none);
    EXPECT_EQ(EditorBackdrop::decode(R"({"fill": {}, "aspect": null})"), EditorBackdrop::none);
    EXPECT_EQ(EditorBackdrop::decode(R"({"fill": {"kind": "color"}})")->fill,
              (BackdropFill{BackdropFill::Kind::color, ""}));
    EditorBackdrop square = EditorBackdrop::none;
    square.aspect = AspectRatio{1, 1};
    square.shadowLight = {1, 1};
    EXPECT_EQ(EditorBackdrop::decode(R"({"aspect": {}, "shadowLight": {"x": 1.0}})"), square);
}

TEST(EditorBackdrop, NumbersOutOfRangeAreBroughtIntoIt)
{
    const auto read = EditorBackdrop::decode(
        R"({"padding": -3, "corners": 1e300, "shadowOpacity": 7, "frame": 1e30, "shadowLight": {"x": 50, "y": -50},
            "aspect": {"width": 0, "height": 99999999999}, "shadow": {"layers": [{"radius": -1, "opacity": 9}]}})");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->padding, 0);
    EXPECT_EQ(read->corners, 10'000);
    EXPECT_EQ(read->shadowOpacity, 1);
    EXPECT_EQ(read->frame, 10);
    EXPECT_EQ(read->shadowLight, (ShadowLight{1, -1}));
    EXPECT_EQ(read->aspect, (AspectRatio{1, 10'000}));
    EXPECT_EQ(read->shadow.layers, (std::vector<Shadow::Layer>{{0, 0, 1}}));
}

TEST(EditorBackdrop, WhatIsNoBackdropIsNothing)
{
    for (const QByteArray json : {"",
                                  "{",
                                  "null",
                                  "[]",
                                  "3",
                                  "\"none\"",
                                  R"({"padding": "wide"})",
                                  R"({"padding": true})",
                                  R"({"padding": 1e999})",
                                  R"({"autoBalance": 1})",
                                  R"({"fill": "color"})",
                                  R"({"fill": {"kind": "sound"}})",
                                  R"({"fill": {"kind": "color", "value": 3}})",
                                  R"({"shadow": []})",
                                  R"({"shadow": {"layers": {}}})",
                                  R"({"shadow": {"layers": [7]}})",
                                  R"({"shadowLight": [0, 1]})",
                                  R"({"aspect": {"width": 1.5}})",
                                  R"({"aspect": "16:9"})",
                                  R"({"alignment": "middle"})",
                                  R"({"alignment": 4})",
                                  "{\"frameColor\": \"\xff\"}"})
        EXPECT_FALSE(EditorBackdrop::decode(json)) << json.constData();
}

TEST(EditorBackdrop, HugeAndDeepFilesAreBounded)
{
    EXPECT_FALSE(EditorBackdrop::decode("{\"padding\": 1," + QByteArray(1 << 18, ' ') + "\"blur\": 0}"));
    EXPECT_FALSE(EditorBackdrop::decode(QByteArray(200'000, '[')));
    EXPECT_EQ(EditorBackdrop::decode("{\"deep\": " + QByteArray(100'000, '[') + QByteArray(100'000, ']') + "}"),
              EditorBackdrop::none);
    QByteArray keys = "{\"0\": 0";
    for (int index = 1; keys.size() < 250'000; ++index)
        keys += ",\"" + QByteArray::number(index) + "\":0";
    EXPECT_EQ(EditorBackdrop::decode(keys + "}"), EditorBackdrop::none);
    QByteArray layers = "{\"shadow\": {\"layers\": [{}";
    for (int index = 0; index < 50'000; ++index)
        layers += ",{}";
    EXPECT_EQ(EditorBackdrop::decode(layers + "]}}")->shadow.layers.size(), 16u);
}

TEST(EditorBackdrop, WithoutAFillItIsNoneWhateverElseItSays)
{
    EditorBackdrop backdrop = unusual();
    EXPECT_FALSE(backdrop.isNone());
    backdrop.fill = {};
    EXPECT_TRUE(backdrop.isNone());
    EXPECT_TRUE(EditorBackdrop::none.isNone());
    EXPECT_FALSE(EditorBackdrop().isNone());
}

} // namespace Kovrel
