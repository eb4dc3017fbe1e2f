#include "editor/session/LabelEditing.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/marks/LabelText.h"
#include "tests/support/TempFolder.h"

#include <QTextBoundaryFinder>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Move = LabelEditing::Move;

const QStringList samples{"plain words",
                          "two\nlines",
                          "a word that is so long that it wraps",
                          "שלום עולם",
                          "mixed עברית and more",
                          "1️⃣ ☎️ emoji 👩‍👩‍👧",
                          "e\u0301 combining",
                          ""};

struct LabelEditingTest : testing::Test {
    LabelEditingTest() { Preferences::registerDefaults(defaults); }

    EditorDocument documentWith(const QString& text)
    {
        return {{{.id = id, .kind = Annotation::Kind::text, .points = {{100, 100}}, .text = text}}, {}};
    }

    const QUuid id = QUuid::createUuid();
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
};

} // namespace

TEST_F(LabelEditingTest, TheCaretGoesWhereItIsClicked)
{
    for (const QString& text : samples) {
        if (text.startsWith("mixed"))
            continue; // where directions meet, one place of the text is two of the line
        const LabelText layout(text, 20, 200);
        QTextBoundaryFinder places(QTextBoundaryFinder::Grapheme, text);
        for (qsizetype place = 0; place >= 0; place = places.toNextBoundary()) {
            const QLineF caret = layout.caret(place);
            EXPECT_NEAR(caret.dy(), LabelText::lineHeight(20), 8) << qPrintable(text);
            const qsizetype found = layout.positionAt(caret.center());
            EXPECT_EQ(layout.caret(found), caret) << qPrintable(text) << " at " << place;
        }
    }
}

TEST_F(LabelEditingTest, ArrowsVisitEveryCharacterAndErasingTakesIt)
{
    for (const QString& text : samples) {
        EditorSession session({}, documentWith(text), preferences);
        LabelEditing editing(session, id);
        editing.move(Move::start, false);
        int rounds = 0;
        const Move onwards = text.isRightToLeft() ? Move::left : Move::right;
        for (; editing.caret() < text.size() && rounds < 100; ++rounds)
            editing.move(onwards, false);
        QTextBoundaryFinder places(QTextBoundaryFinder::Grapheme, text);
        int characters = 0;
        while (places.toNextBoundary() > 0)
            ++characters;
        EXPECT_EQ(rounds, characters) << qPrintable(text);
        for (int count = 0; count < characters; ++count)
            editing.erase(Move::left);
        EXPECT_EQ(editing.text(), QString());
        while (editing.undo())
            ;
        EXPECT_EQ(editing.text(), text);
    }
}

TEST_F(LabelEditingTest, WordsLinesAndSelections)
{
    EditorSession session({}, documentWith("one two\nthree"), preferences);
    LabelEditing editing(session, id);
    editing.move(Move::wordLeft, true);
    EXPECT_EQ(editing.selectedText(), "three");
    editing.insert("3");
    editing.move(Move::up, false);
    EXPECT_LT(editing.caret(), 4);
    editing.move(Move::lineEnd, false);
    editing.erase(Move::wordLeft);
    EXPECT_EQ(editing.text(), "one \n3");
    editing.move(Move::start, false);
    editing.move(Move::end, true);
    EXPECT_EQ(editing.selectionRects().size(), 2u);
    editing.insert("x");
    editing.insert("y");
    EXPECT_TRUE(editing.undo());
    EXPECT_TRUE(editing.undo());
    EXPECT_EQ(editing.text(), "one \n3");
    EXPECT_TRUE(editing.redo());
    EXPECT_EQ(editing.text(), "x");
}

// Of what is composed, nothing is a place for the caret.
TEST_F(LabelEditingTest, TheCaretStaysInTheTextWhileSomethingIsComposed)
{
    EditorSession session({}, documentWith("ab"), preferences);
    for (const Move move : {Move::up, Move::down, Move::wordLeft, Move::wordRight}) {
        LabelEditing editing(session, id);
        editing.compose("か\nかかか", 5);
        editing.move(move, false);
        EXPECT_LE(editing.caret(), editing.text().size());
        editing.move(Move::wordLeft, false);
        editing.finish();
    }
}

// An input method shows what it composes, which is no text before it is done.
TEST_F(LabelEditingTest, WhatIsBeingComposedIsShownAndIsNoText)
{
    EditorSession session({}, documentWith("ab"), preferences);
    const auto shown = [&] { return session.document().mark(id)->text; };
    LabelEditing editing(session, id);
    editing.move(Move::left, false);
    editing.compose("か", 1);
    EXPECT_EQ(shown(), "aかb");
    EXPECT_EQ(editing.text(), "ab");
    editing.insert("火");
    EXPECT_EQ(shown(), "a火b");
    editing.compose("か", 1);
    editing.finish();
    EXPECT_EQ(shown(), "a火b") << "what was being composed goes when it ends";
    session.undo();
    EXPECT_EQ(shown(), "ab");
    EXPECT_FALSE(session.canUndo());
}

TEST_F(LabelEditingTest, AnEmptiedLabelGoesAndComesBack)
{
    EditorSession session({}, documentWith("ab"), preferences);
    LabelEditing editing(session, id);
    editing.selectAll();
    editing.erase(Move::left);
    editing.finish();
    EXPECT_TRUE(session.document().marks.empty());
    session.undo();
    EXPECT_EQ(session.document(), documentWith("ab"));
}

} // namespace Kovrel
