#include "editor/EditedPicture.h"

#include "editor/document/CroppedCapture.h"
#include "tests/editor/RandomMarks.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QSize size(160, 120); // image points

EditorCapture capture(double scale)
{
    const QSize pixels = (QSizeF(size) * scale).toSize();
    return {QUuid::createUuid(),
            Testing::testPicture(pixels, Testing::Texture::blocks).convertToFormat(QImage::Format_RGB32), scale,
            std::nullopt};
}

QImage rendered(const EditorCapture& of, const EditorDocument& document)
{
    return EditedPicture::rendered(of, document, MeasureUnit::pixels).convertToFormat(QImage::Format_RGB32);
}

} // namespace

// Whatever is on a capture: cropped, it is a part of what it was.
TEST(EditedPictureTest, ACropCutsOutWhatWasThere)
{
    for (const double scale : {1.0, 1.5, 2.0})
        for (unsigned seed = 0; seed < 20; ++seed) {
            const EditorCapture whole = capture(scale);
            Testing::RandomMarks random(seed, size, whole.image.copy(0, 0, 20, 30));
            EditorDocument document{random.some(), {}};
            document.composition.crop = Rect{0, 0, double(size.width()), double(size.height())};
            const QImage all = rendered(whole, document);
            ASSERT_EQ(all.size(), whole.image.size()) << "marks that stick out are cut off";
            const QRect pixels = QRect(QPoint(random.below(80), random.below(60)), QSize(90, 70)) & all.rect();
            document.composition.crop = Rect{pixels.x() / scale, (all.height() - pixels.y() - pixels.height()) / scale,
                                             pixels.width() / scale, pixels.height() / scale};
            EXPECT_TRUE(Testing::identicalPicture(rendered(whole, document), all.copy(pixels)))
                << "scale " << scale << ", seed " << seed;
        }
}

TEST(EditedPictureTest, OutputSizesAreThoseOfTheCrop)
{
    const EditorCapture whole = capture(2);
    EditorDocument document;
    document.composition.crop = Rect{10, 10, 50, 40};
    EXPECT_EQ(rendered(whole, document).size(), QSize(100, 80));
    document.composition.outputSize = CropOutputSize::ofFraction(0.5);
    EXPECT_EQ(rendered(whole, document).size(), QSize(50, 40));
    document.composition.outputSize = CropOutputSize::ofWidth(25);
    EXPECT_EQ(rendered(whole, document).size(), QSize(25, 20));
}

TEST(EditedPictureTest, AWindowThatIsCutIntoIsNoWindow)
{
    EditorCapture whole = capture(1);
    whole.subject = CaptureSubject{{20, 30, 60, 50}, 8};
    EditorDocument document;
    document.composition.crop = Rect{10, 20, 120, 90};
    const auto moved = CroppedCapture::of(whole, document).capture.subject;
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->rect, (Rect{10, 20, 60, 50}));
    document.composition.crop = Rect{30, 20, 120, 90};
    EXPECT_FALSE(CroppedCapture::of(whole, document).capture.subject);
}

} // namespace Kovrel
