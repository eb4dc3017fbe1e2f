#include "editorwindow/crop/CropBar.h"

#include "editor/crop/CropSizes.h"
#include "editorwindow/crop/CropSizeMenu.h"
#include "editorwindow/tools/ChoiceButton.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"
#include "ui/controls/RowButton.h"

#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct CropBarTest : testing::Test {
    CropBarTest()
    {
        Preferences::registerDefaults(defaults);
        session.setTool(EditorTool::crop);
        bar.show();
    }

    static EditorCapture capture()
    {
        return {QUuid::createUuid(), Testing::testPicture({800, 600}, Testing::Texture::noise), 2, std::nullopt};
    }

    template <class Widget>
    Widget* named(const QString& name)
    {
        for (auto* const widget : bar.findChildren<Widget*>())
            if (widget->accessibleName() == name || widget->toolTip() == name)
                return widget;
        ADD_FAILURE() << qUtf8Printable(name);
        return nullptr;
    }

    QPushButton* button(const QString& text)
    {
        for (auto* const one : bar.findChildren<QPushButton*>())
            if (one->text() == text)
                return one;
        ADD_FAILURE() << qUtf8Printable(text);
        return nullptr;
    }

    void crop(const Rect& rect)
    {
        EditorDocument next = session.document();
        next.composition.crop = rect;
        session.change(std::move(next));
    }

    // Until nothing is pending any more.
    int settle()
    {
        int encoded = 0;
        for (int round = 0; round < 4; ++round) {
            loop.advance(CropSizeEstimator::debounce);
            encoded += int(workers.runAll());
            loop.runPosted();
        }
        return encoded;
    }

    QString sizeText() { return named<QPushButton>("Output Size")->text(); }

    const EditorComposition& composition() const { return session.document().composition; }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    EditorSession session{capture(), {}, preferences};
    CropBar bar{session, preferences, loop, workers};
};

} // namespace

TEST_F(CropBarTest, WeighsTheEditedPictureAsItIsSaved)
{
    CropReadings readings(loop, workers, preferences, session, [] {});
    readings.setWanted(true);
    settle();
    const auto all = readings.reading({});
    const auto half = readings.reading(CropOutputSize::ofFraction(0.5));
    ASSERT_TRUE(all && half);
    EXPECT_LT(half->bytes, all->bytes / 2);
    EditorDocument covered = session.document();
    covered.marks.push_back({.kind = Annotation::Kind::blackout, .points = {{0, 0}, {400, 300}}});
    session.change(covered);
    EXPECT_EQ(readings.reading({}), std::nullopt) << "what was known is not true any more";
    settle();
    ASSERT_TRUE(readings.reading({}));
    EXPECT_LT(readings.reading({})->bytes, all->bytes / 20) << "marks count";
}

TEST_F(CropBarTest, OnlyTheCropThatStaysIsWeighed)
{
    settle();
    for (const double width : {100.0, 110.0, 120.0}) {
        crop({0, 0, width, 80});
        EXPECT_EQ(sizeText(), QString("%1 × 160").arg(2 * width)) << "no stale weight";
    }
    EXPECT_EQ(settle(), 1 + 4) << "drawn once; all of it and three reductions";
    EXPECT_TRUE(sizeText().startsWith("240 × 160  ·  PNG")) << qUtf8Printable(sizeText());
    EXPECT_EQ(settle(), 0);
    bar.hide();
    crop({0, 0, 50, 50});
    EXPECT_EQ(settle(), 0) << "nobody looks";
}

TEST_F(CropBarTest, TheChosenSizeLandsInTheDocumentAndUndoes)
{
    bar.offerSizes({300, 300});
    auto* const menu = bar.findChild<CropSizeMenu*>();
    const auto rows = menu->findChildren<RowButton*>();
    ASSERT_EQ(rows.size(), qsizetype(CropSizes::fractions.size()));
    rows[2]->click();
    EXPECT_EQ(composition().outputSize, CropOutputSize::ofFraction(0.5));
    EXPECT_TRUE(sizeText().startsWith("400 × 300"));
    bar.offerSizes({300, 300});
    auto* const width = named<QLineEdit>("Width in pixels");
    const auto type = [](QLineEdit* field, const QString& text) {
        field->setText(text);
        Q_EMIT field->editingFinished();
    };
    type(width, "200 px");
    EXPECT_EQ(composition().outputSize, CropOutputSize::ofWidth(200));
    EXPECT_EQ(named<QLineEdit>("Height in pixels")->text(), "150");
    named<QPushButton>("Keep the shape")->click();
    type(named<QLineEdit>("Height in pixels"), "50");
    EXPECT_EQ(composition().outputSize, CropOutputSize::ofFree({200, 50}));
    type(width, "as wide as that");
    EXPECT_EQ(width->text(), "200");
    for (const auto& before : {CropOutputSize::ofFree({200, 150}), CropOutputSize::ofWidth(200),
                               CropOutputSize::ofFraction(0.5), CropOutputSize()}) {
        session.undo();
        EXPECT_EQ(composition().outputSize, before);
    }
}

TEST_F(CropBarTest, AShapeReshapesTheCropAndHoldsItThere)
{
    std::vector<std::optional<double>> held;
    QObject::connect(&bar, &CropBar::aspectChosen, [&](std::optional<double> aspect) { held.push_back(aspect); });
    auto* const shape = named<ChoiceButton>("Shape of the Crop");
    Q_EMIT shape->chosen(2);
    EXPECT_EQ(composition().crop, (Rect{50, 0, 300, 300})) << "a square";
    Q_EMIT shape->chosen(0);
    EXPECT_EQ(composition().crop, (Rect{50, 0, 300, 300})) << "free again, but as it is";
    crop({0, 0, 200, 50});
    named<QPushButton>("Keep This Shape")->click();
    Q_EMIT shape->chosen(1);
    EXPECT_EQ(held, (std::vector<std::optional<double>>{1, std::nullopt, 4, 400.0 / 300}));
}

TEST_F(CropBarTest, CancelBringsBackWhatWasThereAndCropKeepsIt)
{
    crop({0, 0, 100, 100});
    button("Crop")->click();
    EXPECT_EQ(session.tool(), EditorTool::select);
    EXPECT_EQ(composition().crop, (Rect{0, 0, 100, 100}));
    bar.hide();
    session.setTool(EditorTool::crop);
    bar.show();
    crop({0, 0, 50, 50});
    button("Reset")->click();
    EXPECT_EQ(composition().crop, std::nullopt);
    button("Cancel")->click();
    EXPECT_EQ(composition().crop, (Rect{0, 0, 100, 100}));
    EXPECT_EQ(session.tool(), EditorTool::select);
}

} // namespace Kovrel
