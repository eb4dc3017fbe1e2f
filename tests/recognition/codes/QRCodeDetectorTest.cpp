#include "recognition/codes/QRCodeDetector.h"
#include "platform/plugins/PluginCodeReader.h"
#include "recognition/codes/CodeRegions.h"
#include "recognition/codes/GreyPicture.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TestPictures.h"

#include <QPainter>
#include <QProcess>

#include <gtest/gtest.h>

namespace Kovrel {

using CodeRegions::Region;
using Engine = QRCodeDetector::Engine;

namespace {

// A code as qrencode draws it, `module` pixels for each of its squares, with a quiet zone of `margin` of them.
QImage code(const QByteArray& payload, int module = 4, int margin = 4)
{
    QProcess encoder;
    encoder.start("qrencode", {"-8", "-o", "-", "-t", "PNG", "-l", "M", "-s", QString::number(module), "-m",
                               QString::number(margin)});
    encoder.write(payload);
    encoder.closeWriteChannel();
    EXPECT_TRUE(encoder.waitForFinished()) << "qrencode is needed";
    return QImage::fromData(encoder.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
}

QImage page(QSize size, QColor colour = Qt::white)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

void draw(QImage& on, const QImage& picture, QPoint at, double degrees = 0)
{
    QPainter painter(&on);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(at);
    painter.rotate(degrees);
    painter.drawImage(0, 0, picture);
}

QImage inverted(QImage image)
{
    image.invertPixels();
    return image;
}

QImage scaled(const QImage& image, double factor)
{
    return image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

std::vector<QRCode> found(const QImage& image, std::optional<Engine> engine = std::nullopt)
{
    const auto codes = QRCodeDetector::detectCodesSync(image, true, true, engine, PluginCodeReader());
    EXPECT_TRUE(codes) << (codes ? "" : qPrintable(codes.error()));
    return codes.value_or(std::vector<QRCode>());
}

std::vector<std::string> payloads(const std::vector<QRCode>& codes)
{
    std::vector<std::string> texts;
    texts.reserve(codes.size());
    for (const QRCode& one : codes)
        texts.push_back(one.payload.toStdString());
    return texts;
}

using Payloads = std::vector<std::string>;

} // namespace

TEST(CodeRegions, TilesOverlapAndEndFlush)
{
    using Starts = std::vector<int>;
    for (const auto& [length, starts] : {std::pair(0, Starts{0}),
                                         {1, {0}},
                                         {1200, {0}},
                                         {1201, {0, 1}},
                                         {2040, {0, 840}},
                                         {2100, {0, 900}},
                                         {2459, {0, 1259}},
                                         {2460, {0, 840, 1260}},
                                         {3000, {0, 840, 1800}},
                                         {3840, {0, 840, 1680, 2640}}})
        EXPECT_EQ(CodeRegions::axisStarts(length, 1200, 840), starts) << length;
}

TEST(CodeRegions, LargePicturesAreAlsoSearchedInTilesAndReduced)
{
    const Region small{{0, 0, 1000, 800}};
    EXPECT_EQ(CodeRegions::regions({1000, 800}, true, true), std::vector{small});
    EXPECT_TRUE(CodeRegions::regions({1000, 800}, false, true).empty());
    EXPECT_EQ(CodeRegions::regions({1300, 800}, true, true).size(), 3u);
    EXPECT_EQ(CodeRegions::regions({1300, 800}, false, true)[1], (Region{{100, 0, 1200, 800}}));
    const auto large = CodeRegions::regions({3840, 2160}, true, true);
    EXPECT_EQ(large.size(), 1u + 4 * 2 + 1);
    EXPECT_EQ(large.back(), (Region{{0, 0, 3840, 2160}, true}));
    EXPECT_EQ(CodeRegions::regions({2400, 100}, true, false).size(), 1u);
}

TEST(QRCodeDetector, ReadsWhatPeopleMeet)
{
    const QByteArray link = "https://example.org/some/where?and=more";
    QImage rotated = page({500, 500});
    draw(rotated, code(link), {250, 30}, 33);
    QImage onColour = page({400, 400}, QColor(250, 220, 90));
    draw(onColour, code(link, 4, 0), {100, 100});
    QImage pale = page({300, 300});
    {
        QPainter painter(&pale);
        painter.setOpacity(0.25);
        painter.drawImage(50, 50, code(link));
    }

    struct Case {
        const char* what;
        QImage image;
    };

    const Case cases[] = {
        {"plain", code(link)},
        {"without a quiet zone", code(link, 5, 0)},
        {"light on dark", inverted(code(link))},
        {"one pixel for each module", code(link, 1)},
        {"light on dark, one pixel for each module", inverted(code(link, 1))},
        {"a pixel and a half for each module", scaled(code(link, 6), 0.25)},
        {"blurred", scaled(scaled(code(link, 8), 0.15), 4)},
        {"rotated", rotated},
        {"mirrored", code(link).mirrored(true, false)},
        {"on colour", onColour},
        {"pale", pale},
        {"16 bits", code(link).convertToFormat(QImage::Format_RGBX64)},
        {"indexed", code(link).convertToFormat(QImage::Format_Mono)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(payloads(found(c.image)), Payloads{link.toStdString()}) << c.what;
}

TEST(QRCodeDetector, WhatShinesThroughIsWhite)
{
    QImage clear = code("on nothing").convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < clear.height(); ++y)
        for (int x = 0; x < clear.width(); ++x)
            if (clear.pixel(x, y) == qRgb(255, 255, 255))
                clear.setPixel(x, y, qRgba(0, 0, 0, 0));
    EXPECT_EQ(payloads(found(clear)), Payloads{"on nothing"});
}

TEST(QRCodeDetector, EachCodeOfAScreenIsReportedOnceWithItsPlace)
{
    // Over the seams of the tiles at 840, 1200 and 1680; in the corner; large; light on dark.
    QImage screen = page({3840, 2160}, QColor(235, 235, 235));
    draw(screen, code("seam", 6), {1130, 900});
    draw(screen, code("corner", 3), {3840 - 87, 2160 - 87});
    draw(screen, code("large", 40), {1700, 60});
    draw(screen, inverted(code("dark")), {300, 500});
    const auto codes = found(screen);
    ASSERT_EQ(payloads(codes), (Payloads{"dark", "large", "seam", "corner"})) << "in reading order";
    const auto& seam = codes[2].boundingBox; // 21 modules, inside a margin of 4
    EXPECT_NEAR(seam.minX() * 3840, 1130 + 24, 4);
    EXPECT_NEAR(seam.maxX() * 3840, 1130 + 24 + 126, 4);
    EXPECT_NEAR((1 - seam.maxY()) * 2160, 900 + 24, 4);
    EXPECT_NEAR((1 - seam.minY()) * 2160, 900 + 24 + 126, 4);
}

TEST(QRCodeDetector, EqualCodesBesideEachOtherAreTwo)
{
    QImage image = page({1500, 300});
    draw(image, code("twin"), {100, 50});
    draw(image, code("twin"), {700, 50});
    EXPECT_EQ(payloads(found(image)), (Payloads{"twin", "twin"}));
    EXPECT_EQ(payloads(found(code("alone"), Engine::zbar)), Payloads{"alone"});
    QImage shaded = code("in a deep shadow", 6);
    QLinearGradient shade(0, 0, shaded.width(), 0);
    shade.setColorAt(0.4, QColor(0, 0, 0, 60));
    shade.setColorAt(0.6, QColor(0, 0, 0, 222));
    QPainter(&shaded).fillRect(shaded.rect(), shade);
    EXPECT_EQ(payloads(found(shaded)), Payloads{"in a deep shadow"});
    for (const Engine engine : {Engine::zxing, Engine::zbar})
        EXPECT_EQ(payloads(found(code("a\x1b\x01z"), engine)), Payloads{"a\x1b\x01z"}) << "control characters";
}

TEST(QRCodeDetector, NothingIsReportedWhereNothingIs)
{
    for (const auto texture :
         {Testing::Texture::noise, Testing::Texture::blocks, Testing::Texture::gradient, Testing::Texture::flat})
        EXPECT_EQ(payloads(found(Testing::testPicture({700, 500}, texture))), Payloads{});
    QImage cut = code("cut off", 6);
    EXPECT_EQ(payloads(found(cut.copy(0, 0, cut.width(), cut.height() / 2))), Payloads{});
    EXPECT_EQ(payloads(found(QImage())), Payloads{});
    EXPECT_EQ(payloads(found(page({1, 1}))), Payloads{});
    EXPECT_EQ(payloads(found(page({20000, 50}))), Payloads{});
    EXPECT_EQ(payloads(found(page({3, 5000}))), Payloads{});
}

TEST(QRCodeDetector, PayloadsAreTextInWhateverEncodingOrLeftOut)
{
    struct Case {
        const char* what;
        QByteArray payload;
        Payloads expected;
    };

    const Case cases[] = {
        {"UTF-8", "Zoë", {"Zoë"}},
        {"short UTF-8, which could be Shift-JIS", "é", {"é"}},
        {"emoji", "\U0001F600", {"\U0001F600"}},
        {"Shift-JIS", QByteArray("\x83\x66\x83\x55\x83\x43\x83\x93 QR"), {"デザイン QR"}},
        {"Latin-1", QByteArray("caf\xE9 au lait"), {"café au lait"}},
        {"lines", "MECARD:N:A;\r\nTEL:1\t2;;", {"MECARD:N:A;\r\nTEL:1\t2;;"}},
        {"no text", QByteArray("\x00\x01\x02\x03\xFE\xFF\x90\x05", 8), {}},
    };
    for (const Case& c : cases)
        for (const Engine engine : {Engine::zxing, Engine::zbar})
            EXPECT_EQ(payloads(found(code(c.payload), engine)), c.expected)
                << c.what << (engine == Engine::zxing ? ", ZXing" : ", ZBar");
}

namespace {

// Sees one code in the middle of everything, or fails.
struct FakeReader : CodeReader {
    Outcome read(const QImage& grey, Engine) const override
    {
        ++looks;
        if (!error.isEmpty())
            return std::unexpected(error);
        return std::vector<Code>{{"seen", QRectF(0, 0, grey.width(), grey.height())}};
    }

    QString error;
    mutable std::atomic<int> looks = 0;
};

struct DetectorTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    FakeReader reader;
    std::optional<QRCodeDetector> detector{std::in_place, loop, workers, reader};
    std::optional<QRCodeDetector::Outcome> outcome;

    static QCoro::Task<> store(QCoro::Task<QRCodeDetector::Outcome> task, std::optional<QRCodeDetector::Outcome>& to)
    {
        to = co_await task;
    }

    void ask(const QImage& image) { Scope::start(store(detector->detectCodes(image), outcome), "test"); }
};

} // namespace

TEST_F(DetectorTest, LooksOnItsLaneAndAnswersOnTheMainThread)
{
    ask(page({100, 50}));
    EXPECT_EQ(reader.looks, 0) << "not on the main thread";
    EXPECT_EQ(workers.run(Lane::codes), 1u);
    EXPECT_FALSE(outcome);
    loop.runPosted();
    ASSERT_TRUE(outcome && *outcome);
    EXPECT_EQ(**outcome, (std::vector{QRCode{"seen", {0, 0, 1, 1}}})) << "light and dark are one";
}

TEST_F(DetectorTest, AFailureIsTold)
{
    reader.error = "broken";
    ask(page({2000, 2000}));
    workers.runAll();
    loop.runPosted();
    ASSERT_TRUE(outcome && !*outcome);
    EXPECT_EQ(outcome->error(), "broken");
}

TEST_F(DetectorTest, NobodyIsAnsweredAfterTheEnd)
{
    ask(page({100, 50}));
    detector.reset();
    workers.runAll();
    loop.runPosted();
    EXPECT_FALSE(outcome);
}

TEST_F(DetectorTest, WarmingLoadsTheEnginesInTheBackgroundAndLogsWhatFails)
{
    const Testing::LogLines lines;
    reader.error = "not installed";
    detector->prewarm();
    EXPECT_EQ(workers.pending(Lane::codes), 0u);
    workers.run(Lane::utility);
    EXPECT_GT(reader.looks, 0);
    EXPECT_EQ(Testing::LogLines::lines(), QStringList{"com.kovrel.codes: not installed"});
}

} // namespace Kovrel
