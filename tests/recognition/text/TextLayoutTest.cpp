#include "recognition/text/TextLayout.h"

#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

constexpr double pageHeight = 2000;

// A page of text in a fixed pitch of eight pixels, fourteen high.
struct Page {
    std::vector<TextFragment> fragments;

    void add(const QString& text, double x, double top, double height = 14)
    {
        fragments.push_back({.text = text,
                             .box = {x, pageHeight - top - height, 8.0 * double(text.size()), height},
                             .sourceIndex = int(fragments.size())});
    }

    // One line below the other.
    void addLines(const QStringList& lines, double x, double top, double pitch)
    {
        for (const QString& line : lines) {
            add(line, x, top);
            top += pitch;
        }
    }

    std::string read()
    {
        std::mt19937 random(1); // the order in which a recogniser found them says nothing
        std::ranges::shuffle(fragments, random);
        TextLayout::emit(fragments);
        return TextLayout::plainText(fragments).toStdString();
    }
};

const QStringList firstColumn{"The morning began with a light rain", "that nobody had thought of before,",
                              "and so the whole company stayed in.", "Only the dog went out."};
const QStringList secondColumn{"In the afternoon it cleared up, and", "they walked as far as the old mill,",
                               "where the miller gave them bread.", "It was late when they came home."};

} // namespace

TEST(TextLayout, ColumnsOfProseAreReadOneAfterTheOther)
{
    const std::string columns = (firstColumn + secondColumn).join('\n').toStdString();
    for (const double offset : {0.0, 3.0, 9.0}) {
        Page page;
        page.add("A title that goes over both columns of the page", 100, 20, 24);
        page.addLines(firstColumn, 40, 80, 20);
        page.addLines(secondColumn, 360, 80 + offset, 20);
        page.add("a footnote below, as wide as the page itself is, or nearly so", 100, 220);
        EXPECT_EQ(page.read(), "A title that goes over both columns of the page\n" + columns +
                                   "\na footnote below, as wide as the page itself is, or nearly so")
            << offset;
    }
}

TEST(TextLayout, AColumnThatIsLongerStaysTogether)
{
    Page page;
    const QStringList more = firstColumn + firstColumn;
    page.addLines(more, 40, 80, 20);
    page.addLines(secondColumn, 360, 120, 20);
    EXPECT_EQ(page.read(), (more + secondColumn).join('\n').toStdString());
}

TEST(TextLayout, PagesBelowEachOtherAreReadOneAfterTheOther)
{
    Page page;
    QStringList expected;
    for (int i = 0; i < 3; ++i) {
        const QString title = QString("Chapter %1, in which nothing much happens to anybody").arg(i);
        page.add(title, 40, 20 + 150 * i);
        page.addLines(firstColumn, 40, 50 + 150 * i, 20);
        page.addLines(secondColumn, 360, 50 + 150 * i, 20);
        expected << title << firstColumn << secondColumn;
    }
    EXPECT_EQ(page.read(), expected.join('\n').toStdString());
}

TEST(TextLayout, TablesAndFormsAreReadRowByRow)
{
    Page table;
    table.addLines({"Name", "notes.txt", "a-rather-long-file-name-indeed.png", "todo"}, 40, 40, 24);
    table.addLines({"Size", "3 kB", "1.2 MB"}, 400, 40, 24);
    table.addLines({"Changed", "today", "5 March", "2024"}, 500, 42, 24);
    EXPECT_EQ(table.read(), "Name\tSize\tChanged\nnotes.txt\t3 kB\ttoday\n"
                            "a-rather-long-file-name-indeed.png\t1.2 MB\t5 March\ntodo\t2024");

    Page dialog;
    dialog.add("Save changes?", 60, 20, 18);
    dialog.addLines({"Name:", "Folder:"}, 40, 60, 30);
    dialog.addLines({"untitled", "Documents"}, 140, 61, 30);
    dialog.add("Cancel", 100, 140);
    dialog.add("Save", 200, 140);
    EXPECT_EQ(dialog.read(), "Save changes?\nName:\tuntitled\nFolder:\tDocuments\nCancel\tSave");
}

TEST(TextLayout, ListingsKeepTheirLineNumbers)
{
    Page page;
    page.addLines({"1", "2", "3", "4"}, 10, 20, 18);
    page.add("int main()", 40, 20);
    page.add("{", 40, 38);
    page.add("return answerToEverything(universe, life);", 72, 56);
    page.add("}", 40, 74);
    EXPECT_EQ(page.read(), "1\tint main()\n2\t{\n3\treturn answerToEverything(universe, life);\n4\t}");
}

TEST(TextLayout, AConversationIsReadInTurnsAndItsSidebarBefore)
{
    Page page;
    page.addLines({"Anna", "Bert", "Carla", "Dora", "Emil"}, 10, 20, 37);
    page.addLines({"Are you there?", "I have news."}, 200, 30, 22);
    page.add("Yes, tell me!", 520, 80);
    page.addLines({"It works.", "At last."}, 200, 108, 22);
    page.add("Great.", 560, 158);
    EXPECT_EQ(page.read(), "Anna\nBert\nCarla\nDora\nEmil\n"
                           "Are you there?\nI have news.\nYes, tell me!\nIt works.\nAt last.\nGreat.");
}

TEST(TextLayout, LinesBesideALargeWordAreReadAfterIt)
{
    Page page;
    page.add("BIG", 20, 20, 40);
    page.addLines({"first small line", "second small line"}, 100, 24, 18);
    EXPECT_EQ(page.read(), "BIG\tfirst small line\nsecond small line");
}

TEST(TextLayout, NothingAndDegenerateBoxesAreNoTrouble)
{
    Page page;
    EXPECT_EQ(page.read(), "");
    for (int i = 0; i < 5; ++i)
        page.fragments.push_back({.text = "x", .box = {}, .sourceIndex = i});
    EXPECT_EQ(std::ranges::count(page.read(), 'x'), 5);
}

} // namespace Kovrel
