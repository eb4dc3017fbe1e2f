#include "editor/backdrop/EditorBackdropRenderer.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <QColorSpace>

#include <gtest/gtest.h>

namespace Kovrel {

using Kind = BackdropFill::Kind;
using Testing::testPicture;
using Testing::Texture;

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb white = 0xffffffff;

QImage plain(QSize size, QColor color = Qt::red)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

// On white, without a shadow.
EditorBackdrop bare()
{
    EditorBackdrop backdrop;
    backdrop.fill = {Kind::color, "#FFFFFF"};
    backdrop.padding = 0.25;
    backdrop.shadow = Shadow::none();
    backdrop.corners = 0;
    return backdrop;
}

EditorBackdrop shadowed()
{
    EditorBackdrop backdrop = bare();
    backdrop.shadow = Shadow::soft();
    backdrop.shadowOpacity = 1;
    return backdrop;
}

BackdropLayout layoutOf(QSize image, const EditorBackdrop& backdrop, double scale = 1)
{
    return EditorBackdropMetrics::layout(image, scale, scale, backdrop).value();
}

QImage rendered(const QImage& capture, const EditorBackdrop& backdrop, double scale = 1)
{
    return EditorBackdropRenderer().render(capture, scale, backdrop);
}

QImage shadowAlone(const BackdropLayout& layout, const EditorBackdrop& backdrop)
{
    QImage image(layout.canvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    EditorBackdropRenderer().drawShadow(painter, layout, backdrop);
    return image;
}

} // namespace

TEST(EditorBackdropRenderer, TheCaptureIsOnTheCanvasPixelForPixel)
{
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const QImage capture = testPicture({211, 133}, Texture::noise);
        EditorBackdrop backdrop = shadowed();
        backdrop.padding = 0.137;
        backdrop.frame = 0.21;
        const QImage canvas = rendered(capture, backdrop, scale);
        const QRect place = layoutOf(capture.size(), backdrop, scale).image;
        EXPECT_TRUE(Testing::samePicture(canvas.copy(place), capture)) << scale;
    }
}

TEST(EditorBackdropRenderer, CornersAreRoundAndNothingElseIsCut)
{
    EditorBackdrop backdrop = bare();
    backdrop.corners = 20;
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const QImage canvas = rendered(plain({int(200 * scale), int(100 * scale)}), backdrop, scale);
        const QPointF corner(20 * scale, 20 * scale); // of the card: 0.25 * 0.8 * 100 points
        const auto at = [&](double x, double y) { return canvas.pixel((corner + QPointF(x, y) * scale).toPoint()); };
        const double onArc = 20 * (1 - 1 / std::sqrt(2));
        EXPECT_EQ(at(0.5, 0.5), white) << scale;
        EXPECT_EQ(at(onArc - 2, onArc - 2), white) << scale;
        EXPECT_EQ(at(onArc + 1, onArc + 1), red) << scale;
        EXPECT_EQ(at(21, 0), red) << scale;
        EXPECT_EQ(at(0, 21), red) << scale;
        EXPECT_EQ(at(199 - onArc - 1, 99 - onArc - 1), red) << scale;
        EXPECT_EQ(at(199.5, 99.5), white) << scale;
        EXPECT_EQ(at(-1, 50), white) << scale;
    }
}

// Where an edge covers a part of a pixel, red and white mix: no darker pixel, and as much of each as the circle says.
TEST(EditorBackdropRenderer, RoundCornersAreSmoothAndClean)
{
    EditorBackdrop backdrop = bare();
    backdrop.corners = 24;
    const QImage canvas = rendered(plain({200, 100}), backdrop);
    double covered = 0;
    for (int y = 20; y < 44; ++y)
        for (int x = 20; x < 44; ++x) {
            const QRgb pixel = canvas.pixel(x, y);
            EXPECT_EQ(qRed(pixel), 255);
            EXPECT_NEAR(qGreen(pixel), qBlue(pixel), 1);
            covered += 1 - qGreen(pixel) / 255.0;
        }
    EXPECT_NEAR(covered, std::numbers::pi * 24 * 24 / 4, 3);
}

TEST(EditorBackdropRenderer, TheShadowIsOutsideTheCardAndOnTheCanvas)
{
    for (const auto alignment : {CardAlignment::center, CardAlignment::topLeft, CardAlignment::right}) {
        for (const double corners : {0.0, 18.0}) {
            EditorBackdrop backdrop = shadowed();
            backdrop.shadow = Shadow::deep();
            backdrop.alignment = alignment;
            backdrop.corners = corners;
            backdrop.frame = 0.2;
            const BackdropLayout layout = layoutOf({300, 200}, backdrop);
            const QImage shadow = shadowAlone(layout, backdrop);
            const QRect framed = layout.framed();
            const int inset = int(layout.framedRadius());
            for (int y = 0; y < shadow.height(); ++y)
                for (int x = 0; x < shadow.width(); ++x) {
                    const bool isInside = framed.adjusted(inset, 0, -inset, 0).contains(x, y) ||
                                          framed.adjusted(0, inset, 0, -inset).contains(x, y);
                    const bool isAtEdge = y == shadow.height() - 1; // whither the light throws it
                    if (isInside)
                        ASSERT_EQ(qAlpha(shadow.pixel(x, y)), 0) << x << "," << y;
                    if (isAtEdge)
                        ASSERT_LE(qAlpha(shadow.pixel(x, y)), 1) << x << "," << y;
                }
            const QPoint below(framed.center().x(), framed.bottom() + 2);
            EXPECT_GT(qAlpha(shadow.pixel(below)), 60);
            EXPECT_GT(qAlpha(shadow.pixel(below)), qAlpha(shadow.pixel(framed.center().x(), framed.top() - 2)));
        }
    }
}

TEST(EditorBackdropRenderer, TheShadowFallsWhitherTheLightSays)
{
    EditorBackdrop backdrop = shadowed();
    backdrop.shadow = Shadow::deep();
    const auto sides = [&](ShadowLight light) {
        backdrop.shadowLight = light;
        const BackdropLayout layout = layoutOf({200, 200}, backdrop);
        const QImage shadow = shadowAlone(layout, backdrop);
        const QRect card = layout.card;
        const auto alpha = [&](int x, int y) { return qAlpha(shadow.pixel(x, y)); };
        return std::array{alpha(card.left() - 6, card.center().y()), alpha(card.right() + 6, card.center().y()),
                          alpha(card.center().x(), card.top() - 6), alpha(card.center().x(), card.bottom() + 6)};
    };
    const auto [left, right, top, bottom] = sides({1, 0});
    EXPECT_GT(right, left + 10);
    EXPECT_NEAR(top, bottom, 1);
    const auto down = sides({0, 1});
    EXPECT_GT(down[3], down[2] + 10);
    EXPECT_NEAR(down[0], down[1], 1);
    const auto front = sides({0, 0});
    EXPECT_NEAR(*std::ranges::max_element(front), *std::ranges::min_element(front), 1);
}

TEST(EditorBackdropRenderer, TheShadowHasTheChosenOpacity)
{
    EditorBackdrop backdrop = shadowed();
    const BackdropLayout layout = layoutOf({300, 200}, backdrop);
    const QPoint below(layout.card.center().x(), layout.card.bottom() + 2);
    const int full = qAlpha(shadowAlone(layout, backdrop).pixel(below));
    backdrop.shadowOpacity = 0.5;
    EXPECT_NEAR(qAlpha(shadowAlone(layout, backdrop).pixel(below)), full / 2.0, 1);
    backdrop.shadowOpacity = 0;
    EXPECT_EQ(qAlpha(shadowAlone(layout, backdrop).pixel(below)), 0);
}

// The tile is stretched along straight edges. The same shadow at once, without stretching, is the same.
TEST(ShadowTile, ServesEverySizeThatIsLargeEnough)
{
    const std::vector<BackdropLayout::ShadowLayer> layers{{1.5, 4.25, 6, 0.5}, {0, 1, 2, 0.3}};
    const ShadowTile tile = ShadowTile::rendered({400, 300}, 10, layers);
    EXPECT_TRUE(tile.serves({500, 700}, 10, layers));
    EXPECT_FALSE(tile.serves({500, 20}, 10, layers));
    EXPECT_FALSE(tile.serves({500, 700}, 11, layers));
    EXPECT_FALSE(tile.serves({500, 700}, 10, {layers[0]}));

    const auto drawn = [](const ShadowTile& shadow, const QRect& rect) {
        QImage image(260, 220, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        shadow.drawOutside(painter, rect, 1);
        return image;
    };
    const QRect rect(50, 50, 160, 121);
    ShadowTile whole = ShadowTile::rendered(rect.size(), 10, layers);
    ASSERT_LT(whole.shape.width(), rect.width());
    // A tile of a narrower rectangle is exact by itself: where both are as far from a side, they agree.
    const QRect narrow(50, 50, 60, 50);
    const QImage exact = drawn(ShadowTile::rendered(narrow.size(), 10, layers), narrow);
    const QImage stretched = drawn(whole, rect);
    EXPECT_TRUE(Testing::samePicture(stretched.copy(0, 0, 65, 65), exact.copy(0, 0, 65, 65), 2));
    for (int x = 90; x < 170; ++x)
        EXPECT_EQ(stretched.pixel(x, 173), stretched.pixel(130, 173)) << x;
}

TEST(EditorBackdropRenderer, TheFrameIsAroundTheCapture)
{
    EditorBackdrop backdrop = bare();
    backdrop.frame = 1; // a tenth of 100 points
    backdrop.frameColorHex = "#0000FF";
    for (const double corners : {0.0, 8.0, 50.0}) {
        backdrop.corners = corners;
        const QImage canvas = rendered(plain({200, 100}), backdrop);
        const QRect card = layoutOf({200, 100}, backdrop).card;
        const int middle = card.center().y();
        EXPECT_EQ(canvas.pixel(card.left() - 11, middle), white);
        EXPECT_EQ(canvas.pixel(card.left() - 9, middle), 0xff0000ff);
        EXPECT_EQ(canvas.pixel(card.left() - 1, middle), 0xff0000ff);
        EXPECT_EQ(canvas.pixel(card.left() + 1, middle), red);
        EXPECT_EQ(canvas.pixel(card.left() - 9, card.top() - 9), corners > 0 ? white : 0xff0000ff);
        // No white shines through between the frame and the capture.
        for (int y = card.top(); y < card.top() + int(corners); ++y)
            for (int x = card.left(); x < card.left() + int(corners); ++x)
                if (std::hypot(x - card.left() - corners, y - card.top() - corners) < corners + 5)
                    EXPECT_LE(qGreen(canvas.pixel(x, y)), 6) << corners << ": " << x << "," << y;
    }
}

// The frame ends where a translucent window begins.
TEST(EditorBackdropRenderer, TheFrameIsNotBehindTheCapture)
{
    EditorBackdrop backdrop = bare();
    backdrop.frame = 1;
    backdrop.frameColorHex = "#000000";
    backdrop.corners = 8;
    const QImage canvas = rendered(plain({200, 100}, QColor(255, 0, 0, 128)), backdrop);
    const QRect card = layoutOf({200, 100}, backdrop).card;
    const QRgb middle = canvas.pixel(card.center());
    EXPECT_NEAR(qGreen(middle), 127, 1);
    for (const QPoint edge : {QPoint(card.left(), card.center().y()), QPoint(card.center().x(), card.bottom())})
        EXPECT_EQ(canvas.pixel(edge), middle);
}

TEST(EditorBackdropRenderer, AFrameMayFollowThePage)
{
    EditorBackdrop backdrop = bare();
    backdrop.frame = 1;
    backdrop.frameFollowsPage = true;
    const auto frameOn = [&](const BackdropFill& fill) {
        backdrop.fill = fill;
        const QImage canvas = rendered(plain({200, 100}), backdrop);
        return canvas.pixelColor(layoutOf({200, 100}, backdrop).card.left() - 5, canvas.height() / 2);
    };
    EXPECT_GT(frameOn({Kind::color, "#2040A0"}).blue(), 0xA0);
    EXPECT_LT(frameOn({Kind::color, "#FFFFFF"}).lightness(), 250);
    const QColor onEmber = frameOn({Kind::gradient, "ember"});
    EXPECT_GT(onEmber.red(), onEmber.blue() + 40);
}

TEST(EditorBackdropRenderer, WhatShinesThroughACaptureIsTheFill)
{
    EditorBackdrop backdrop = shadowed();
    const QImage canvas = rendered(plain({200, 100}, QColor(255, 0, 0, 128)), backdrop);
    const QRgb middle = canvas.pixel(canvas.rect().center());
    EXPECT_NEAR(qGreen(middle), 127, 1);
    const QRgb nearEdge = canvas.pixel(canvas.width() / 2, layoutOf({200, 100}, backdrop).card.bottom() - 1);
    EXPECT_EQ(nearEdge, middle);
}

TEST(EditorBackdropRenderer, AWindowIsCutOutOfItsSurroundings)
{
    QImage capture = plain({200, 100}, Qt::blue);
    const QRect window(40, 20, 100, 60);
    QPainter(&capture).fillRect(window, Qt::red);
    const QImage canvas = EditorBackdropRenderer().render(capture, 1, bare(), CaptureSubject{{40, 20, 100, 60}, 10});
    int blues = 0;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            blues += qRed(canvas.pixel(x, y)) == 0;
    EXPECT_EQ(blues, 0);
    const QRect card = window.translated(12, 12); // 0.25 * 0.8 of the window's 60
    EXPECT_EQ(canvas.pixel(card.center()), red);
    EXPECT_EQ(canvas.pixel(card.left() + 11, card.top()), red);
    EXPECT_EQ(canvas.pixel(card.topLeft()), white); // its own corners, though none were asked for
    EXPECT_EQ(canvas.size(), QSize(224, 124));
}

// A window with round corners and a shadow of its own on nothing: its own corners are the card's.
TEST(EditorBackdropRenderer, ATransparentCaptureShowsItsSubjectByItsAlpha)
{
    QImage capture = plain({200, 100}, QColor(0, 0, 0, 60));
    QPainter painter(&capture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    painter.drawRoundedRect(40, 20, 100, 60, 12, 12);
    painter.end();
    const QImage canvas = rendered(capture, bare());
    EXPECT_EQ(canvas.size(), QSize(224, 124)); // padded by the window's shorter side
    const QRect card = QRect(40, 20, 100, 60).translated(12, 12);
    EXPECT_EQ(canvas.pixel(card.center()), red);
    EXPECT_EQ(canvas.pixel(card.left() - 3, card.center().y()), white);
    EXPECT_EQ(canvas.pixel(card.left() + 1, card.top() + 1), white);
    EXPECT_EQ(canvas.pixel(card.left() + 16, card.top()), red);

    // What is no card is left as it is.
    QImage drawing = plain({200, 100}, Qt::transparent);
    QPainter(&drawing).fillRect(40, 20, 10, 60, Qt::red);
    QPainter(&drawing).fillRect(40, 70, 100, 10, Qt::red);
    EXPECT_EQ(rendered(drawing, bare()).size(), QSize(240, 140));
}

TEST(EditorBackdropRenderer, AFillMayBeTransparentUnknownOrNone)
{
    EditorBackdrop backdrop = bare();
    backdrop.fill = {Kind::color, "#FFFFFF00"};
    EXPECT_EQ(qAlpha(rendered(plain({200, 100}), backdrop).pixel(2, 2)), 0);
    for (const BackdropFill& unknown : {BackdropFill{Kind::gradient, "later"}, BackdropFill{Kind::picture, ""},
                                        BackdropFill{Kind::color, "no colour"}}) {
        backdrop.fill = unknown;
        EXPECT_EQ(qAlpha(rendered(plain({200, 100}), backdrop).pixel(2, 2)), 255);
    }
    const QImage capture = testPicture({20, 10}, Texture::noise);
    EXPECT_TRUE(Testing::identicalPicture(rendered(capture, EditorBackdrop::none), capture));
    EXPECT_TRUE(rendered(QImage(), bare()).isNull());
}

TEST(EditorBackdropRenderer, TheSmallestCapturesHaveBackdropsToo)
{
    EditorBackdrop backdrop = shadowed();
    backdrop.shadow = Shadow::deep();
    backdrop.aspect = AspectRatio{16, 9};
    backdrop.padding = 10;
    backdrop.frame = 10;
    for (const QSize size : {QSize(1, 1), QSize(1, 9), QSize(5, 2), QSize(400, 1)})
        for (const Kind kind : {Kind::color, Kind::gradient, Kind::picture}) {
            backdrop.fill = {kind, kind == Kind::color ? "#FFFFFF" : kind == Kind::gradient ? "dawn" : "silk"};
            const QImage canvas = rendered(plain(size), backdrop);
            EXPECT_EQ(canvas.pixel(layoutOf(size, backdrop).card.center()), red) << size.width();
        }
}

TEST(EditorBackdropRenderer, AClippedRedrawGivesTheSamePixels)
{
    EditorBackdrop backdrop = shadowed();
    backdrop.fill = {Kind::gradient, "iris"};
    backdrop.corners = 14;
    backdrop.frame = 0.3;
    const QImage capture = testPicture({301, 187}, Texture::noise);
    const BackdropLayout layout = layoutOf(capture.size(), backdrop);
    EditorBackdropRenderer renderer;
    const QImage whole = renderer.render(capture, 1, backdrop);
    QImage pieces(layout.canvas, QImage::Format_RGB32);
    for (int y = 0; y < layout.canvas.height(); y += 61)
        for (int x = 0; x < layout.canvas.width(); x += 83) {
            QPainter painter(&pieces);
            painter.setClipRect(x, y, 83, 61);
            renderer.fillPainter(painter, layout, backdrop);
            renderer.drawShadow(painter, layout, backdrop);
            renderer.drawFrame(painter, layout, backdrop);
            EditorBackdropRenderer::drawCapture(painter, layout, capture);
        }
    EXPECT_TRUE(Testing::samePicture(pieces, whole));
}

TEST(EditorBackdropRenderer, PicturesAreBlurredAsAsked)
{
    EditorBackdrop backdrop = bare();
    backdrop.fill = {Kind::picture, "mist"};
    const auto roughness = [&](double blur) {
        backdrop.blur = blur;
        const QImage canvas = EditorBackdropRenderer().canvas(layoutOf({300, 200}, backdrop), backdrop);
        int sum = 0;
        for (int y = 1; y < canvas.height(); ++y)
            for (int x = 0; x < canvas.width(); ++x)
                sum += std::abs(qGreen(canvas.pixel(x, y)) - qGreen(canvas.pixel(x, y - 1))) > 8;
        return sum;
    };
    EXPECT_GT(roughness(0), 100);
    EXPECT_EQ(roughness(0.2), 0);
}

TEST(EditorBackdropRenderer, ProfileAndDensityAreTheCaptures)
{
    QImage capture = plain({60, 40});
    capture.setColorSpace(QColorSpace::DisplayP3);
    capture.setDotsPerMeterX(1234);
    capture.setDotsPerMeterY(4321);
    const QImage canvas = rendered(capture, bare());
    EXPECT_EQ(canvas.colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    EXPECT_EQ(canvas.dotsPerMeterX(), 1234);
    EXPECT_EQ(canvas.dotsPerMeterY(), 4321);
}

// Red in the middle, where the square canvas cuts its part out, blue beside it.
TEST(BackdropFillCache, ShowsAPictureOfTheUsers)
{
    QImage picture = plain({300, 100}, Qt::blue);
    QPainter(&picture).fillRect(100, 0, 100, 100, Qt::red);
    BackdropFillCache cache;
    const BackdropFill fill{Kind::picture, "/home/user/page.png"};
    EXPECT_EQ(cache.bitmap(fill, {50, 50}, 0).pixelColor(25, 25), QColor(Qt::gray));
    cache.setPicture(fill.value, picture);
    QImage all(50, 50, QImage::Format_RGB32);
    all.fill(Qt::red);
    EXPECT_TRUE(Testing::identicalPicture(cache.bitmap(fill, {50, 50}, 0), all));
    EXPECT_EQ(cache.bitmap(fill, {30, 10}, 0).pixelColor(2, 5), QColor(Qt::blue));
    const QColor seam = cache.bitmap(fill, {300, 100}, 0.5).pixelColor(100, 50);
    EXPECT_NEAR(seam.red(), seam.blue(), 12);
    cache.setPicture(fill.value, plain({10, 10}, Qt::green));
    EXPECT_EQ(cache.bitmap(fill, {50, 50}, 0).pixelColor(25, 25), QColor(Qt::green));
}

TEST(BackdropFillCache, KeepsWhatWasUsedLast)
{
    BackdropFillCache cache;
    const BackdropFill fill{Kind::gradient, "dawn"};
    const QImage first = cache.bitmap(fill, {80, 60}, 0);
    EXPECT_EQ(cache.bitmap(fill, {80, 60}, 0).constBits(), first.constBits());
    cache.bitmap({Kind::gradient, "dusk"}, {80, 60}, 0);
    EXPECT_EQ(cache.bitmap(fill, {80, 60}, 0).constBits(), first.constBits());
    EXPECT_NE(cache.bitmap(fill, {81, 60}, 0).constBits(), first.constBits());
}

} // namespace Kovrel
