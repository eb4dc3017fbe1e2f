#include "editor/crop/CropSizeEstimator.h"
#include "editor/crop/CropSizes.h"
#include "imaging/Resampling.h"
#include "platform/ImageCodec.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/MemoryShortage.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::testPicture;
using Testing::Texture;

namespace {

using Key = CropSizeEstimator::SizeKey;
using Reading = CropSizeEstimator::Reading;
using namespace std::chrono_literals;

struct CropSizeEstimatorTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    int changes = 0;
    std::optional<CropSizeEstimator> estimator;
    QImage image = testPicture({200, 120}, Texture::blocks);

    CropSizeEstimatorTest()
    {
        Preferences::registerDefaults(defaults);
        estimator.emplace(loop, workers, preferences, [this] { ++changes; });
    }

    // Points of a canvas of 100 x 60.
    CropSizeEstimator::Context context(const Rect& region = {0, 0, 100, 60}) const
    {
        return {.source = image, .pixels = image, .pixelsScale = 2, .region = region, .canvasSize = {100, 60}};
    }

    size_t encodes() { return workers.pending(Lane::utility); }

    void finishEncodes()
    {
        workers.run(Lane::utility);
        loop.runPosted();
    }

    static Reading expected(const QImage& picture, QSize size, ImageFormat format = ImageFormat::png,
                            double quality = 1)
    {
        return {ImageCodec::encode(*Resampling::resampledExactly(picture, size), format, quality)->size(), format};
    }
};

} // namespace

TEST_F(CropSizeEstimatorTest, ReadsWhatASaveWouldWrite)
{
    const Rect region{10, 20, 50, 30};
    estimator->setContext(context(region));
    estimator->request({{100, 60}, {50, 30}});
    EXPECT_EQ(encodes(), 1u); // the crop itself, at once
    loop.advance(200ms);
    EXPECT_EQ(encodes(), 3u);
    finishEncodes();
    const QImage cut = image.copy(CropSizes::pixelRect(region, {100, 60}, 2, image.size()));
    EXPECT_EQ(estimator->readings(),
              (std::map<Key, Reading>{{{50, 30}, expected(cut, {50, 30})}, {{100, 60}, expected(cut, {100, 60})}}));
    EXPECT_EQ(estimator->source(), expected(cut, {100, 60}));
    EXPECT_EQ(changes, 3);
}

TEST_F(CropSizeEstimatorTest, TheFormatIsTheOneThatASaveWouldPick)
{
    preferences.set(Settings::imageFormat, ImageFormat::jpeg);
    preferences.set(Settings::jpegQuality, 0.5);
    estimator->setContext(context());
    estimator->request({{50, 30}});
    loop.advance(200ms);
    finishEncodes();
    EXPECT_EQ(estimator->reading({50, 30}), expected(image, {50, 30}, ImageFormat::jpeg, 0.5));

    preferences.set(Settings::saveFormatAuto, true);
    image = testPicture({1100, 1000}, Texture::flat);
    estimator->setContext({.source = image, .pixels = image, .region = {0, 0, 1100, 1000}, .canvasSize = {1100, 1000}});
    estimator->request({{1000, 1000}, {999, 1000}});
    loop.advance(200ms);
    finishEncodes();
    EXPECT_EQ(estimator->reading({1000, 1000})->format, ImageFormat::jpeg);
    EXPECT_EQ(estimator->reading({999, 1000})->format, ImageFormat::png);
}

TEST_F(CropSizeEstimatorTest, ASaveThatReducesIsReckonedWith)
{
    preferences.set(Settings::retinaDownscale, true);
    estimator->setContext(context());
    estimator->request({{100, 60}});
    loop.advance(200ms);
    finishEncodes();
    EXPECT_EQ(estimator->source(), expected(*Resampling::reduced(image, 2), {100, 60}));
    const QImage half = *Resampling::resampledExactly(image, {100, 60});
    EXPECT_EQ(estimator->reading({100, 60}), expected(*Resampling::reduced(half, 2), {50, 30}));
}

TEST_F(CropSizeEstimatorTest, RequestsInQuickSuccessionCostOneBatch)
{
    estimator->setContext(context({0, 0, 50, 30}));
    for (int step = 0; step < 5; ++step) {
        estimator->request({{50, 30}, {25, 15}});
        loop.advance(199ms);
        EXPECT_EQ(encodes(), 1u) << step; // the source alone
    }
    loop.advance(1ms);
    EXPECT_EQ(encodes(), 3u);
    estimator->request({{50, 30}, {25, 15}}); // they are on their way
    loop.advance(1000ms);
    EXPECT_EQ(encodes(), 3u);
    finishEncodes();
    estimator->request({{50.3, 29.8}, {25, 15}}); // and there
    loop.advance(1000ms);
    EXPECT_EQ(encodes(), 0u);
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(CropSizeEstimatorTest, SizesThatAreTheSameShareOneReading)
{
    estimator->setContext(context({0, 0, 5, 3}));
    std::vector<Size> sizes;
    for (const QSize size : CropSizes::presets({10, 6}))
        sizes.push_back({double(size.width()), double(size.height())});
    estimator->request(sizes);
    loop.advance(200ms);
    EXPECT_EQ(encodes(), 3u); // the source, 10 x 6, 8 x 8
    finishEncodes();
    EXPECT_EQ(estimator->readings().size(), 2u);
}

TEST_F(CropSizeEstimatorTest, TheWholeImageIsEncodedOnce)
{
    estimator->setContext(context());
    estimator->request({{200, 120}});
    EXPECT_EQ(loop.pendingTimers(), 0u);
    EXPECT_EQ(encodes(), 1u);
    finishEncodes();
    EXPECT_TRUE(estimator->readings().empty());
    EXPECT_EQ(estimator->reading({200, 120}), expected(image, {200, 120}));

    // A crop made meanwhile does not pass for the whole.
    image = testPicture({200, 120}, Texture::noise);
    estimator->setContext(context({0, 0, 50, 30}));
    estimator->request({});
    finishEncodes();
    estimator->setContext(context());
    EXPECT_EQ(estimator->reading({200, 120}), std::nullopt);
    estimator->request({{200, 120}});
    loop.advance(200ms);
    finishEncodes();
    EXPECT_EQ(estimator->reading({200, 120}), expected(image, {200, 120}));
}

TEST_F(CropSizeEstimatorTest, AMovedCropHasNoStaleReadings)
{
    estimator->setContext(context({0, 0, 50, 30}));
    estimator->request({{50, 30}});
    loop.advance(200ms);
    workers.run(Lane::utility); // done, but not yet told
    estimator->setContext(context({10, 10, 50, 30}));
    loop.runPosted();
    EXPECT_TRUE(estimator->readings().empty());

    estimator->request({{50, 30}});
    loop.advance(200ms);
    finishEncodes();
    EXPECT_EQ(estimator->readings().size(), 1u);
    estimator->setContext(context({10, 10, 50, 30})); // the same again
    EXPECT_EQ(estimator->readings().size(), 1u);
    estimator->setContext(context({0, 0, 50, 30}));
    EXPECT_TRUE(estimator->readings().empty());
}

TEST_F(CropSizeEstimatorTest, WhatWaitsIsForgottenWithItsCrop)
{
    estimator->setContext(context({0, 0, 50, 30}));
    estimator->request({{50, 30}});
    finishEncodes();
    estimator->setContext(context({10, 10, 50, 30}));
    loop.advance(1000ms);
    EXPECT_EQ(encodes(), 0u);
}

TEST_F(CropSizeEstimatorTest, AnotherImageHasItsOwnSource)
{
    estimator->setContext(context());
    estimator->request({});
    workers.run(Lane::utility);
    image = testPicture({200, 120}, Texture::noise);
    estimator->setContext(context());
    loop.runPosted();
    EXPECT_EQ(estimator->source(), std::nullopt); // the other image's reading came too late
    estimator->request({});
    finishEncodes();
    EXPECT_EQ(estimator->source(), expected(image, {200, 120}));
}

TEST_F(CropSizeEstimatorTest, AnImageThatComesBackHasTheSourceOfItsNewCrop)
{
    const QImage first = image;
    estimator->setContext(context({0, 0, 50, 30}));
    estimator->request({});
    workers.run(Lane::utility); // done, but not yet told
    image = testPicture({200, 120}, Texture::noise);
    estimator->setContext(context());
    image = first;
    estimator->setContext(context());
    estimator->request({});
    loop.runPosted();
    EXPECT_EQ(estimator->reading({200, 120}), std::nullopt);
    finishEncodes();
    EXPECT_EQ(estimator->reading({200, 120}), expected(image, {200, 120}));
}

TEST_F(CropSizeEstimatorTest, WithoutACropNothingIsEncoded)
{
    estimator->request({{50, 30}});
    estimator->setContext(context({100, 0, 10, 10}));
    estimator->request({{50, 30}});
    loop.advance(1000ms);
    EXPECT_EQ(encodes(), 0u);
    EXPECT_EQ(estimator->reading({50, 30}), std::nullopt);
}

TEST_F(CropSizeEstimatorTest, SizesThatAreNoneAreIgnored)
{
    estimator->setContext(context({0, 0, 50, 30}));
    estimator->request({{0, 30}, {-5, 3}, {std::nan(""), 3}, {1e300, 3}, {30000, 30000}});
    loop.advance(200ms);
    finishEncodes(); // 30000 x 30000 is a size, but no picture
    EXPECT_TRUE(estimator->readings().empty());
}

TEST_F(CropSizeEstimatorTest, MayGoAtAnyTime)
{
    estimator->setContext(context());
    estimator->request({{50, 30}});
    loop.advance(200ms);
    estimator->request({{25, 15}});
    estimator.reset();
    finishEncodes();
    loop.advance(1000ms);
    EXPECT_EQ(changes, 0);
}

TEST_F(CropSizeEstimatorTest, WhatMemoryWasTooShortForIsMadeWhenItIsAskedForAgain)
{
    const Testing::LogLines log;
    estimator->setContext(context());
    const auto ask = [this] {
        estimator->request({{50, 30}});
        loop.advance(CropSizeEstimator::debounce);
        finishEncodes();
    };
    workers.beforeEachJob = Testing::MemoryShortage::failNextAllocation;
    ask();
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(estimator->source() || estimator->reading({50, 30}));
    workers.beforeEachJob = [] {};
    ask();
    EXPECT_TRUE(estimator->source() && estimator->reading({50, 30}));
}

} // namespace Kovrel
