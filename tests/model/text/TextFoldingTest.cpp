#include "model/text/TextFolding.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(TextFolding, LosesMarksAndCaseOfLatinLettersAlone)
{
    struct Case {
        const char* text;
        const char* folded;
    };

    const Case cases[] = {
        {"Plain ASCII 42", "Plain ASCII 42"},
        {"ÀÉÑÖŰǺǬȀ", "aenouaoa"},
        {"àéñöűǻǭȁ", "aenouaoa"},
        {"ÆÐØÞßŁŦŊ", "æðøþßłŧŋ"},
        {"ǾǼǮ", "øæʒ"},             // the mark goes, the letter stays
        {"ĲŉĿſ", "ĳŉŀſ"},           // compatibility forms are letters of their own
        {"ǅǈǋǲ", "ǆǉǌǳ"},           // title case
        {"ȺȾƁƷ", "\u2C65\u2C66ɓʒ"}, // lower case outside the block
        {"×÷", "×÷"},
        {"İı", "iı"},
        {"ÉTÉ", "eTe"}, // ASCII keeps its case
        {"Ω漢\U0001F600é", "Ω漢\U0001F600e"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TextFolding::fold(QString(c.text)), QString(c.folded)) << qPrintable(QString(c.text));
    for (char16_t letter = 0x00C0; letter <= 0x024F; ++letter)
        EXPECT_EQ(TextFolding::fold(QString(QChar(letter))).size(), 1) << int(letter);
}

TEST(TextFolding, ComparableTextsAreEqualWhateverTheirCaseAndAccents)
{
    const QString wanted = "creme brulee";
    for (const char* text : {"Crème Brûlée", "CRE\u0300ME BRU\u0302LE\u0301E", "creme brulee"})
        EXPECT_EQ(TextFolding::comparable(QString(text)), wanted) << qPrintable(QString(text));
    EXPECT_EQ(TextFolding::comparable(QString("\u212Bngstr\u00F6m")), "angstrom") << "lower case brings a new letter";
    EXPECT_EQ(TextFolding::comparable(QString("ΔΈΛΤΑ")), QString("δέλτα"));
}

} // namespace Kovrel
