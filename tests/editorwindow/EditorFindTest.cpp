#include "editorwindow/find/EditorFind.h"

#include "editorwindow/find/FindBar.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using testing::SizeIs;

// A capture of 400 x 200 image points with three lines: 40 points wide a letter, 20 high.
struct EditorFindTest : testing::Test {
    EditorFindTest() { Preferences::registerDefaults(defaults); }

    static EditorCapture capture()
    {
        QImage image(800, 400, QImage::Format_RGB32);
        image.fill(Qt::white);
        return {QUuid::createUuid(), image, 2, std::nullopt};
    }

    static std::vector<OCRLine> lines()
    {
        OCRLine turned{.text = "secret", .boundingBox = {0.5, 0.05, 0.1, 0.3}};
        turned.quad = OCRQuad{{0.5, 0.05}, {0.6, 0.3}, {0.49, 0.06}};
        return {{.text = "my secret",
                 .boundingBox = {0, 0.8, 0.9, 0.1},
                 .characterCenters = {0.05, 0.15, 0.25, 0.35, 0.45, 0.55, 0.65, 0.75, 0.85}},
                {.text = "words", .boundingBox = {0, 0.6, 0.5, 0.1}},
                turned};
    }

    const std::vector<Annotation>& marks() const { return session.document().marks; }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    EditorSession session{capture(), {}, preferences};
    int changes = 0;
    EditorFind find{session, [this] { ++changes; }};
};

bool covers(const Annotation& mark, const Rect& box)
{
    const Rect rect = mark.boundingRect();
    return rect.minX() < box.minX() && rect.maxX() > box.maxX() && rect.minY() < box.minY() && rect.maxY() > box.maxY();
}

} // namespace

TEST_F(EditorFindTest, HitsLieWhereTheTextIs)
{
    find.setLines(lines());
    find.setQuery("SECRET");
    ASSERT_THAT(find.hits(), SizeIs(2));
    const Rect& first = find.hits()[0].boxes.front();
    EXPECT_NEAR(first.x, 120, 1e-6);
    EXPECT_NEAR(first.width, 240, 1e-6);
    EXPECT_NEAR(first.y, 160, 1e-6);
    EXPECT_NEAR(first.height, 20, 1e-6);
    EXPECT_EQ(find.hits()[1].boxes.front(), (Rect{200, 10, 40, 60})) << "of a rotated line, all";
    find.setQuery("secret words");
    ASSERT_THAT(find.hits(), SizeIs(1));
    EXPECT_THAT(find.hits()[0].boxes, SizeIs(2)) << "across the end of a line";
}

TEST_F(EditorFindTest, GoesRoundAndRound)
{
    EXPECT_EQ(find.current(), std::nullopt);
    find.go(1);
    find.setLines(lines());
    find.setQuery("s");
    ASSERT_THAT(find.hits(), SizeIs(3)) << "secret, words, secret";
    const std::pair<int, size_t> ways[] = {{1, 1}, {1, 2}, {1, 0}, {-1, 2}, {-1, 1}};
    for (const auto& [step, expected] : ways) {
        find.go(step);
        EXPECT_EQ(find.current(), expected);
    }
    find.setQuery("words");
    EXPECT_EQ(find.current(), 0u);
}

TEST_F(EditorFindTest, WhatIsRedactedIsFoundNoMoreAndOneUndoBringsItBack)
{
    for (const auto& [tool, kind] : {std::pair(RedactTool::blur, Annotation::Kind::blur),
                                     {RedactTool::pixelate, Annotation::Kind::pixelate},
                                     {RedactTool::blackout, Annotation::Kind::blackout}}) {
        find.setLines(lines());
        find.setQuery("secret");
        const auto hits = find.hits();
        find.redactAll(tool);
        ASSERT_THAT(marks(), SizeIs(2));
        for (size_t index = 0; index < 2; ++index) {
            EXPECT_EQ(marks()[index].kind, kind);
            EXPECT_TRUE(covers(marks()[index], hits[index].boxes.front())) << "a little more than the text";
        }
        EXPECT_THAT(find.hits(), SizeIs(0));
        session.undo();
        EXPECT_EQ(find.hits(), hits);
        EXPECT_FALSE(session.canUndo()) << "one step";
    }
}

// A letter is as wide as it is; nothing may be left of what is hidden.
TEST_F(EditorFindTest, WhereThePlacesOfLettersAreNotKnownTheLineIsRedacted)
{
    find.setLines(lines());

    const struct {
        const char* query;
        Rect inside; // of the redaction
        Rect most;
    } cases[] = {
        {"y s", {40, 160, 120, 20}, {30, 150, 140, 40}},
        {"ord", {0, 120, 200, 20}, {-1, 110, 220, 40}},
    };

    for (const auto& [query, inside, most] : cases) {
        find.setQuery(query);
        find.redactAll(RedactTool::blackout);
        ASSERT_THAT(marks(), SizeIs(1));
        const Annotation& mark = marks().front();
        const Annotation bounds{.points = {{most.minX(), most.minY()}, {most.maxX(), most.maxY()}}};
        EXPECT_GE(inside.minX(), mark.boundingRect().minX()) << query;
        EXPECT_LT(inside.maxX(), mark.boundingRect().maxX()) << query;
        EXPECT_TRUE(covers(bounds, mark.boundingRect())) << query;
        session.undo();
    }
}

TEST_F(EditorFindTest, OnlyWhatIsSeenIsFound)
{
    find.setLines(lines());
    find.setQuery("secret");
    const Rect hit = find.hits()[0].boxes.front();
    const auto withMark = [&](Annotation::Kind kind, double inset) {
        return EditorDocument{
            {{.kind = kind,
              .points = {{hit.minX() + inset, hit.minY() + inset}, {hit.maxX() - inset, hit.maxY() - inset}}}},
            {}};
    };
    const std::pair<EditorDocument, size_t> documents[] = {
        {withMark(Annotation::Kind::rectangle, -5), 2}, {withMark(Annotation::Kind::blackout, 5), 2},
        {withMark(Annotation::Kind::blackout, -5), 1},  {{{}, {.crop = Rect{0, 150, 400, 50}}}, 1},
        {{{}, {.crop = Rect{0, 100, 400, 20}}}, 0},
    };
    for (const auto& [document, expected] : documents) {
        session.change(document);
        EXPECT_THAT(find.hits(), SizeIs(expected));
    }
}

TEST_F(EditorFindTest, TheBarSaysWhatThereIs)
{
    FindBar bar(session, preferences);
    bar.open();
    auto* const query = bar.findChild<QLineEdit*>();
    const auto says = [&bar](const QString& text) {
        return std::ranges::any_of(bar.findChildren<QLabel*>(),
                                   [&text](const QLabel* label) { return label->text() == text; });
    };
    EXPECT_TRUE(says("Reading text…"));
    query->setText("secret");
    bar.setText(FindBar::Text::failed);
    EXPECT_TRUE(says("The text can't be read"));
    bar.setText(FindBar::Text::there, {});
    EXPECT_TRUE(says("There is no text in this capture"));
    bar.setText(FindBar::Text::there, lines());
    EXPECT_TRUE(says("1 of 2")) << "what was typed while it was read is found";
    QKeyEvent back(QEvent::KeyPress, Qt::Key_Return, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&bar, &back);
    EXPECT_TRUE(says("2 of 2"));
    query->setText("nothing");
    EXPECT_TRUE(says("Not found"));
}

// What redacts text is what was in hand last to redact anything.
TEST_F(EditorFindTest, TheToolThatRedactsIsRemembered)
{
    EXPECT_EQ(preferences.get(Settings::redactTool), RedactTool::pixelate);
    session.setTool(EditorTool::blackout);
    session.setTool(EditorTool::arrow);
    EXPECT_EQ(preferences.get(Settings::redactTool), RedactTool::blackout);
    FindBar bar(session, preferences);
    bar.setText(FindBar::Text::there, lines());
    bar.findChild<QLineEdit*>()->setText("words");
    for (auto* const button : bar.findChildren<QPushButton*>())
        if (button->text() == "Redact All")
            button->click();
    ASSERT_THAT(marks(), SizeIs(1));
    EXPECT_EQ(marks().front().kind, Annotation::Kind::blackout);
}

} // namespace Kovrel
