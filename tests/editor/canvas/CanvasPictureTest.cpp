#include "editor/canvas/CanvasPicture.h"

#include "editor/AnnotationFlattener.h"
#include "editor/EditedPicture.h"
#include "editor/marks/RedactionSources.h"
#include "tests/editor/RandomMarks.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QSize size(160, 120); // image points

EditorCapture captureAt(double scale, Testing::Texture texture = Testing::Texture::blocks)
{
    const QSize pixels = (QSizeF(size) * scale).toSize();
    return {QUuid::createUuid(), Testing::testPicture(pixels, texture).convertToFormat(QImage::Format_RGB32), scale,
            std::nullopt};
}

CanvasPicture::Redactions redactionsOf(const EditorCapture& capture)
{
    return {RedactionSources::blurred(capture.image, capture.scale),
            RedactionSources::pixelated(capture.image, capture.scale)};
}

QImage exported(const EditorCapture& capture, const EditorDocument& document)
{
    EditorBackdropRenderer renderer;
    return AnnotationFlattener::render({.base = capture.image,
                                        .annotations = document.marks,
                                        .exportScale = capture.scale,
                                        .backdrop = document.composition.backdrop,
                                        .margins = BackdropMargins::measured(capture.image)},
                                       renderer)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Of the canvas, what is exported.
QImage shown(CanvasPicture& picture, const EditorCapture& capture, const EditorDocument& document)
{
    if (!document.composition.backdrop.isNone())
        return picture.picture();
    const QMargins padding = AnnotationFlattener::exportPadding(document.marks, capture.image.size(), capture.scale);
    const QRect part = picture.captureArea().marginsAdded(padding);
    return picture.picture().copy(part.translated(-picture.area().topLeft()));
}

bool isSameOutside(const QRegion& region, QImage one, QImage other)
{
    for (QImage* const image : {&one, &other})
        for (const QRect& rect : region) {
            QPainter painter(image);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.fillRect(rect, Qt::transparent);
        }
    return one == other;
}

EditorDocument documentWith(std::vector<Annotation> marks, bool hasBackdrop)
{
    EditorDocument document{std::move(marks), {}};
    if (hasBackdrop)
        document.composition.backdrop = EditorBackdrop();
    return document;
}

} // namespace

TEST(CanvasPictureTest, WhatIsShownIsWhatIsExportedPixelByPixel)
{
    for (const double scale : {1.0, 1.5, 2.0})
        for (unsigned seed = 0; seed < 30; ++seed) {
            const EditorCapture capture = captureAt(scale);
            Testing::RandomMarks random(seed, size, capture.image.copy(0, 0, 20, 30));
            const EditorDocument document = documentWith(random.some(), seed % 3 == 0);
            CanvasPicture picture(capture);
            picture.setRedactions(redactionsOf(capture));
            picture.setDocument(document);
            const QImage canvas = shown(picture, capture, document);
            EXPECT_TRUE(Testing::identicalPicture(canvas, exported(capture, document)))
                << "scale " << scale << ", seed " << seed;
        }
}

TEST(CanvasPictureTest, OnABackdropACropIsCarriedOut)
{
    for (const double scale : {1.0, 1.5, 2.0})
        for (unsigned seed = 0; seed < 12; ++seed) {
            const EditorCapture capture = captureAt(scale);
            Testing::RandomMarks random(seed, size, capture.image.copy(0, 0, 20, 30));
            EditorDocument document = documentWith(random.some(), true);
            document.composition.crop = Rect{12 / scale, 30 / scale, 90 / scale, 60 / scale};
            document.composition.backdrop.autoBalance = seed % 2 == 0;
            CanvasPicture picture(capture);
            picture.setRedactions(redactionsOf(capture));
            picture.setDocument(document);
            const QImage expected = EditedPicture::rendered(capture, document, MeasureUnit::pixels);
            EXPECT_TRUE(Testing::identicalPicture(picture.picture(),
                                                  expected.convertToFormat(QImage::Format_ARGB32_Premultiplied)))
                << "scale " << scale << ", seed " << seed;
            document.composition.crop.reset();
            picture.setDocument(document);
            EXPECT_TRUE(Testing::identicalPicture(picture.picture(), exported(capture, document))) << "and back";
        }
}

// Step after step only what is said to differ is drawn anew, and the whole is as if it were drawn at once.
TEST(CanvasPictureTest, WhatIsDrawnAnewIsEnough)
{
    const EditorCapture capture = captureAt(1);
    const auto redactions = redactionsOf(capture);
    for (unsigned seed = 0; seed < 20; ++seed) {
        Testing::RandomMarks random(seed, size, capture.image.copy(0, 0, 20, 30));
        CanvasPicture picture(capture);
        picture.setRedactions(redactions);
        picture.setShare(seed % 2 == 0 ? 1 : 0.6);
        EditorDocument document = documentWith(random.some(), seed % 3 == 0);
        picture.setDocument(document);
        for (int round = 0; round < 12; ++round) {
            const QImage before = picture.picture().copy();
            const QRect area = picture.area();
            document.marks = random.changed(document.marks);
            const QRegion changed = picture.setDocument(document);
            EXPECT_TRUE(picture.area() != area ||
                        isSameOutside(changed.translated(-area.topLeft()), before, picture.picture()))
                << "seed " << seed << ", round " << round;
            CanvasPicture fresh(capture);
            fresh.setRedactions(redactions);
            fresh.setShare(picture.share());
            fresh.setDocument(document);
            ASSERT_TRUE(Testing::identicalPicture(picture.picture(), fresh.picture()))
                << "seed " << seed << ", round " << round;
        }
    }
}

// What is dragged changes again and again, and what lies below it is kept meanwhile.
TEST(CanvasPictureTest, WhatIsDraggedIsDrawnAsIfItWereDrawnAtOnce)
{
    const EditorCapture capture = captureAt(1);
    const auto redactions = redactionsOf(capture);
    for (unsigned seed = 0; seed < 40; ++seed) {
        Testing::RandomMarks random(seed, size, capture.image.copy(0, 0, 20, 30));
        CanvasPicture picture(capture);
        picture.setRedactions(redactions);
        EditorDocument document = documentWith(random.some(), seed % 3 == 0);
        picture.setDocument(document);
        const int dragged = 1 + random.below(255); // a bit for each mark
        for (int round = 0; round < 6; ++round) {
            for (size_t index = 0; index < document.marks.size(); ++index)
                if (dragged >> index & 1)
                    document.marks[index] = MarkFrame::translated(document.marks[index], {5, 3});
            picture.setDocument(document);
            picture.picture();
            CanvasPicture fresh(capture);
            fresh.setRedactions(redactions);
            fresh.setDocument(document);
            ASSERT_TRUE(Testing::identicalPicture(picture.picture(), fresh.picture()))
                << "seed " << seed << ", round " << round;
        }
    }
}

namespace {

EditorBackdrop changed(EditorBackdrop backdrop, Testing::RandomMarks& random)
{
    double EditorBackdrop::* const fields[] = {&EditorBackdrop::padding, &EditorBackdrop::corners,
                                               &EditorBackdrop::frame, &EditorBackdrop::shadowOpacity};
    const int which = random.below(6);
    if (which == 4)
        return backdrop.isNone() ? EditorBackdrop() : EditorBackdrop::none;
    if (which == 5)
        backdrop.fill = {BackdropFill::Kind::gradient, "lagoon"};
    else
        backdrop.*fields[which] = which == 1 ? random.below(40) : random.below(100) / 200.0;
    return backdrop;
}

QRect someOf(const QRect& area, Testing::RandomMarks& random)
{
    const QPoint corner(random.below(area.width()), random.below(area.height()));
    return QRect(area.topLeft() + corner, QSize(90, 70)) & area;
}

QImage partOf(const CanvasPixels& pixels, const QRect& part)
{
    return pixels.image().copy(part.translated(-pixels.corner()));
}

} // namespace

// What the backdrop leaves as it is stays drawn, and only what is in sight is drawn anew.
TEST(CanvasPictureTest, AMovingBackdropIsDrawnAsIfItWereDrawnAtOnce)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        EditorCapture capture = captureAt(seed % 4 == 0 ? 2 : 1);
        Testing::RandomMarks random(seed, size, capture.image.copy(0, 0, 20, 30));
        if (seed % 5 == 0)
            capture.image = capture.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        CanvasPicture picture(capture);
        picture.setShare(seed % 3 == 0 ? 0.6 : 1);
        EditorDocument document = documentWith(random.some(), seed % 2 == 0);
        for (int round = 0; round < 12; ++round) {
            document.composition.backdrop = changed(document.composition.backdrop, random);
            if (random.below(4) == 0)
                document.composition.crop = Rect{10, 10, 60.0 + random.below(60), 50.0 + random.below(40)};
            picture.setSketched(round % 2 == 0);
            for (int step = 0; step < 3; ++step) {
                document.marks.back() = MarkFrame::translated(document.marks.back(), {5, 3});
                picture.setDocument(document);
                picture.drawn(someOf(picture.area(), random));
            }
            picture.setSketched(false);
            CanvasPicture fresh(capture);
            fresh.setShare(picture.share());
            fresh.setDocument(document);
            const QRect part = someOf(fresh.area(), random);
            ASSERT_TRUE(Testing::samePicture(partOf(picture.drawn(part), part), partOf(fresh.drawn(part), part), 0))
                << "seed " << seed << ", round " << round;
        }
    }
}

TEST(CanvasPictureTest, WhatIsToBeHiddenIsHiddenBeforeItsPictureIsMade)
{
    using Kind = Annotation::Kind;
    const EditorCapture capture = captureAt(1);
    for (const Kind kind : {Kind::blur, Kind::pixelate}) {
        CanvasPicture picture(capture);
        picture.setDocument(documentWith({{.kind = kind, .points = {{20, 20}, {80, 80}}}}, false));
        EXPECT_EQ(picture.picture().pixelColor(50, 70), QColor(Qt::black));
        picture.setRedactions(redactionsOf(capture));
        EXPECT_NE(picture.picture().pixelColor(50, 70), QColor(Qt::black));
    }
}

} // namespace Kovrel
