#include "editor/json/AnnotationJson.h"
#include "editor/marks/AnnotationInk.h"

#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

const QByteArray arrow = R"({"kind":"arrow","points":[[1,2],[3,4]],"colorHex":"#FF0000","lineWidth":3})";

std::vector<Annotation> read(const QByteArray& json)
{
    return AnnotationJson::decoded(json).value_or(std::vector<Annotation>());
}

// The arrow with other or more fields.
QByteArray arrowWith(const QByteArray& fields)
{
    return arrow.chopped(1) + ',' + fields + '}';
}

Annotation withIdentityOf(Annotation annotation, const Annotation& other)
{
    annotation.id = other.id;
    return annotation;
}

Annotation complete()
{
    return {.kind = Kind::image,
            .points = {{0.5, -1}, {1e300, 2}},
            .colorHex = "#00FF00",
            .lineWidth = 2.25,
            .text = QString::fromUtf8("Grüße \"\n\xf0\x9f\x8e\x89"),
            .fontSize = 31,
            .stepNumber = std::numeric_limits<qint64>::min(),
            .fillStyle = Annotation::FillStyle::hatched,
            .textStyle = Annotation::TextStyle::bubble,
            .rounded = true,
            .dimLevel = 0.7,
            .image = Testing::translucent(Testing::testPicture({7, 5}, Testing::Texture::noise)),
            .curveControl = Point{8, 9},
            .tipScale = 1.5,
            .highlightOnDark = true,
            .highlightPageLuma = 0.1,
            .rotation = -0.25,
            .wrapCap = 180};
}

} // namespace

TEST(AnnotationJsonTest, WritesTheKeysInTheirOrderAndWholeNumbersWithoutAFraction)
{
    const Annotation plain{.kind = Kind::pen, .points = {{1, 2.5}, {-3, 4}}, .colorHex = "#FF3B30", .lineWidth = 4};
    EXPECT_EQ(AnnotationJson::encoded({plain}),
              R"([{"kind":"pen","points":[[1,2.5],[-3,4]],"colorHex":"#FF3B30","lineWidth":4,"text":"","fontSize":20,)"
              R"("stepNumber":1,"fillStyle":"outline","textStyle":"plain","rounded":false,"dimLevel":0.5,)"
              R"("highlightOnDark":false,"highlightPageLuma":0.3,"tipScale":1,"rotation":0}])");
    const QByteArray all = AnnotationJson::encoded({complete()});
    const auto curve = all.indexOf("\"curveControl\":[8,9],\"highlightOnDark\"");
    EXPECT_GT(curve, all.indexOf("\"dimLevel\":0.7"));
    EXPECT_GT(all.indexOf("\"rotation\":-0.25,\"wrapCap\":180,\"sticker\":\"iVBOR"), curve);
}

TEST(AnnotationJsonTest, ReadsBackWhatItWroteWithANewIdentity)
{
    const std::vector written{complete(), Annotation{.kind = Kind::step, .points = {{1, 1}}}};
    const auto annotations = read(AnnotationJson::encoded(written));
    ASSERT_EQ(annotations.size(), written.size());
    for (size_t index = 0; index < written.size(); ++index) {
        EXPECT_NE(annotations[index].id, written[index].id);
        EXPECT_EQ(withIdentityOf(annotations[index], written[index]), written[index]);
    }
}

TEST(AnnotationJsonTest, WhatOlderFilesLackHasItsDefault)
{
    const auto annotations = read('[' + arrow + ']');
    ASSERT_EQ(annotations.size(), 1u);
    const Annotation expected{
        .kind = Kind::arrow, .points = {{1, 2}, {3, 4}}, .colorHex = "#FF0000", .lineWidth = 3, .fontSize = 20};
    EXPECT_EQ(withIdentityOf(annotations[0], expected), expected);
    EXPECT_EQ(annotations[0].dimLevel, 0.5);
    EXPECT_EQ(annotations[0].highlightPageLuma, 0.3);
    EXPECT_EQ(annotations[0].tipScale, 1);
}

TEST(AnnotationJsonTest, TextStylesAreReadLeniently)
{
    const struct {
        const char* written;
        Annotation::TextStyle read;
    } cases[] = {{"stroke", Annotation::TextStyle::stroke},
                 {"bubbleLeft", Annotation::TextStyle::bubble},
                 {"Bubble", Annotation::TextStyle::plain},
                 {"shadow", Annotation::TextStyle::plain}};

    for (const auto& [written, style] : cases) {
        const auto annotations = read('[' + arrowWith(QByteArray("\"textStyle\":\"") + written + '"') + ']');
        ASSERT_EQ(annotations.size(), 1u) << written;
        EXPECT_EQ(annotations[0].textStyle, style) << written;
    }
}

// Each of these stands between two good entries and costs nothing but itself.
TEST(AnnotationJsonTest, ABadEntryLosesOnlyItself)
{
    QByteArray deep(100'000, '[');
    deep += QByteArray(100'000, ']');
    const QByteArray entries[] = {
        R"({"kind":"hologram","points":[],"colorHex":"","lineWidth":1})",
        R"({"points":[],"colorHex":"","lineWidth":1})",
        R"({"kind":"pen","colorHex":"","lineWidth":1})",
        R"({"kind":"pen","points":[],"lineWidth":1})",
        R"({"kind":"pen","points":[],"colorHex":""})",
        R"({"kind":"pen","points":[[1]],"colorHex":"","lineWidth":1})",
        R"({"kind":"pen","points":[1,2],"colorHex":"","lineWidth":1})",
        R"({"kind":"pen","points":[["1","2"]],"colorHex":"","lineWidth":1})",
        R"({"kind":"pen","points":{},"colorHex":"","lineWidth":1})",
        R"({"kind":"pen","points":[],"colorHex":7,"lineWidth":1})",
        R"({"kind":"pen","points":[],"colorHex":"","lineWidth":true})",
        R"({"kind":"pen","points":[],"colorHex":"","lineWidth":1e999})",
        arrowWith(R"("fillStyle":"dotted")"),
        arrowWith(R"("stepNumber":1.5)"),
        arrowWith(R"("stepNumber":99999999999999999999)"),
        arrowWith(R"("rounded":"yes")"),
        arrowWith(R"("curveControl":[1])"),
        arrowWith("\"text\":\"\xff\xfe\""),
        arrowWith("\"extra\":" + deep),
        deep,
        "{]",
        "nonsense",
        "",
        "null",
        "\"arrow\"",
    };
    for (const QByteArray& entry : entries)
        EXPECT_EQ(read('[' + arrow + ',' + entry + ',' + arrow + ']').size(), 2u) << entry.left(80).constData();
}

TEST(AnnotationJsonTest, WhatLooksOddIsReadAllTheSame)
{
    const QByteArray entries[] = {
        arrowWith(R"("text":null,"wrapCap":null,"curveControl":null)"),
        arrowWith(R"("text":"a, b ] } \" {","unknown":{"a":[1,{"b":2}]})"),
        arrowWith(R"("stepNumber":3.0,"fontSize":7)"),
        arrowWith(R"("sticker":"not a picture")"),
        R"({"kind":"pen","points":[[1e300,-1e300,7]],"colorHex":"no colour","lineWidth":-1})",
        R"( {"lineWidth":1,"colorHex":"","points":[],"kind":"text"} )",
    };
    for (const QByteArray& entry : entries)
        EXPECT_EQ(read("\xef\xbb\xbf [" + entry + "\n]").size(), 1u) << entry.constData();
    EXPECT_FALSE(read('[' + entries[3] + ']')[0].image);
}

TEST(AnnotationJsonTest, OfACutOffFileTheWholeEntriesAreLeft)
{
    const QByteArray json = '[' + arrow + ',' + arrow + ',' + arrow + ']';
    for (qsizetype length = 0; length < json.size(); ++length) {
        const auto annotations = AnnotationJson::decoded(json.left(length));
        ASSERT_EQ(annotations.has_value(), length > 0);
        if (annotations)
            ASSERT_EQ(annotations->size(), size_t((length - 1) / (arrow.size() + 1))) << length;
    }
    for (const char* notAList : {"", "{}", "7", "\"[]\"", "\xff\xfe[\0", "null"})
        EXPECT_FALSE(AnnotationJson::decoded(notAList)) << notAList;
}

TEST(AnnotationJsonTest, ADamagedRedactionStillHidesItsPlace)
{
    const QByteArray entries[] = {
        R"({"kind":"blackout","points":[[10,20],[110,80]],"lineWidth":1})",
        R"({"kind":"blackout","points":[[10,20],[110,80]],"colorHex":"","lineWidth":1,"stepNumber":1.5})",
        R"({"kind":"blackout","points":[[10,20],[110,80]],"colorHex":"","lineWidth":1,})",
        R"({"colorHex":7,"points" : [ [10, 20], [50, 50], [110.0, 8e1] ],"kind" : "blackout"})",
    };
    for (const QByteArray& entry : entries) {
        const auto reading = AnnotationJson::read('[' + arrow + ',' + entry + ',' + arrow + ']');
        ASSERT_EQ(reading->annotations.size(), 3u) << entry.constData();
        EXPECT_EQ(reading->annotations[1].boundingRect(), (Rect{10, 20, 100, 60})) << entry.constData();
        EXPECT_EQ(reading->damaged, QStringList{"entry 2 (blackout)"}) << entry.constData();
    }
    const auto cutOff = AnnotationJson::read('[' + arrow + ',' + entries[0].chopped(12));
    EXPECT_EQ(cutOff->annotations.size(), 2u);
    EXPECT_EQ(cutOff->damaged, QStringList{"entry 2 (blackout)"});
    const auto far =
        AnnotationJson::read(R"([{"kind":"blur","points":[[10,20],[1e7,1e300]],"colorHex":"","lineWidth":1}])");
    EXPECT_TRUE(far->damaged.isEmpty());
    EXPECT_TRUE(AnnotationInk::isDrawable(far->annotations.at(0), 1));
    for (const char* placeless : {R"([{"kind":"blackout","points":[[10,20]],"colorHex":7,"lineWidth":1,"x":"xxxxx"}])",
                                  R"([{"kind":"arrow","points":[[10,20],[30,40]],"colorHex":7,"lineWidth":1}])"}) {
        EXPECT_TRUE(AnnotationJson::read(placeless)->annotations.empty()) << placeless;
        EXPECT_EQ(AnnotationJson::read(placeless)->damaged.size(), 1) << placeless;
    }
    EXPECT_TRUE(AnnotationJson::read("[ ]")->damaged.isEmpty());
}

TEST(AnnotationJsonTest, AnImageIsEncodedOnceAndToldOfWhereItCantBe)
{
    Annotation sticker = complete();
    Annotation lost = sticker;
    lost.image = QImage();
    AnnotationJson::StickerPngs pngs;
    const auto written = AnnotationJson::written({sticker, lost, sticker}, pngs);
    EXPECT_EQ(written.lost, QStringList("entry 2 (image)"));
    EXPECT_EQ(read(written.json).size(), 3u);
    EXPECT_EQ(written.json.count("\"sticker\""), 2);
    const std::string* const first = &*pngs.of(*sticker.image);
    EXPECT_EQ(&*pngs.of(*Annotation(sticker).image), first); // of a copy, too
    sticker.image->setPixelColor(3, 3, Qt::green);
    EXPECT_NE(*pngs.of(*sticker.image), *first);
}

TEST(AnnotationJsonTest, ImagesThatDoNotFitIntoMemoryAreLeftOut)
{
    const Annotation sticker{.kind = Kind::image, .points = {{0, 0}}, .image = QImage(300, 200, QImage::Format_RGB32)};
    const std::string json = AnnotationJson::encoded({sticker}).toStdString();
    const std::string_view entry = std::string_view(json).substr(1, json.size() - 2);
    qint64 pixels = 100'000;
    EXPECT_TRUE(LossyAnnotation::decoded(entry, pixels).annotation->image);
    EXPECT_EQ(pixels, 40'000);
    const LossyAnnotation second = LossyAnnotation::decoded(entry, pixels);
    ASSERT_TRUE(second.annotation);
    EXPECT_FALSE(second.annotation->image);
}

// Megabytes that are no mark, in shapes for which a parser may take quadratic time or much memory.
TEST(AnnotationJsonTest, MuchOfNothingTakesNoTime)
{
    const QByteArray fillers[] = {QByteArray("{},").repeated(600'000), QByteArray("[],").repeated(600'000),
                                  QByteArray("1,").repeated(1'000'000), QByteArray(",").repeated(1'000'000)};
    for (const QByteArray& filler : fillers) {
        const QByteArray list = '[' + filler.chopped(1) + ']';
        EXPECT_EQ(read('[' + arrow + ',' + filler + arrow + ']').size(), 2u);
        for (const QByteArray& entry :
             std::initializer_list<QByteArray>{list, QByteArray("{\"points\":" + list + "}"),
                                               arrowWith("\"text\":" + list), arrowWith("\"unknown\":" + list)})
            EXPECT_GE(read('[' + arrow + ',' + entry + ',' + arrow + ']').size(), 2u) << entry.left(30).constData();
    }
}

TEST(AnnotationJsonTest, AMillionPointsAreRead)
{
    Annotation pen{.kind = Kind::pen};
    for (int k = 0; k < 1'000'000; ++k)
        pen.points.push_back({k * 0.5, -k * 0.25});
    const auto annotations = read(AnnotationJson::encoded({pen}));
    ASSERT_EQ(annotations.size(), 1u);
    EXPECT_EQ(annotations[0].points, pen.points);
}

} // namespace Kovrel
