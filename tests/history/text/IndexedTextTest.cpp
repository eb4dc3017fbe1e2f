#include "history/text/IndexedText.h"

#include "history/text/ByteSearch.h"
#include "history/text/TextGrams.h"
#include "model/text/TextFolding.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace Kovrel {

namespace {

OCRLine line(const QString& text, Rect box = {0.1, 0.20001, 0.33333, 0.04})
{
    return {.text = text, .confidence = 1, .boundingBox = box};
}

} // namespace

TEST(IndexedTextTest, LinesComeBackAsTheyWere)
{
    const std::vector<OCRLine> cases[] = {
        {},
        {line("Hello World"), line("second LINE, iPhone's camelCase")},
        {line("École Ågren ÇA Straße ẞ"), line("Øresund ǅ İstanbul ıI")},
        {line("e\u0301cole"), line("next"), line("\u1E9B\u0323")}, // shorter once it is composed
        {line("Привет МИР"), line("ΟΔΥΣΣΕΥΣ Ὀδυσσεύς"), line("漢字かな"), line("שלום עולם")},
        {line("𝔘𝔫𝔦 𐐀𐐨 👩‍👩‍👧"), line("\"quoted\" \\ back\u0001")},
        {line(QString(500, 'A') + QString(500, 'a') + QString(500, u'É'))},
    };
    for (const auto& lines : cases) {
        QStringList folded;
        for (const OCRLine& one : lines)
            folded << TextFolding::comparable(one.text);
        const IndexedText text(lines);
        EXPECT_EQ(text.lines(), lines);
        EXPECT_EQ(QString::fromUtf8(text.searchable().folded), folded.join(' '));
    }
}

TEST(IndexedTextTest, BoxesAreKeptToFiveDecimalsAndBesideTheImageAtMost)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const IndexedText text({line("a", {0.123456789, -5, 1e300, infinity}), line(""), line("b", {1, 0, 1, 1})});
    EXPECT_EQ(text.lines(), (std::vector{line("a", {0.12346, -1, 2, 0}), line("b", {1, 0, 1, 1})}));
}

// All places and lengths around the block that is looked at in one go.
TEST(IndexedTextTest, BytesAreFoundWhereverTheyStand)
{
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (size_t left = random() % 200; left > 0; --left)
            text += "ab"[random() % 2];
        std::string needle;
        for (size_t left = 1 + random() % 12; left > 0; --left)
            needle += "ab"[random() % 2];
        const size_t from = text.empty() ? 0 : random() % text.size();
        const size_t place = text.find(needle, from);
        ASSERT_EQ(ByteSearch::find(text, needle, from).value_or(std::string::npos), place) << text << ' ' << needle;
    }
}

TEST(IndexedTextTest, ASignatureNeverHidesWhatATextHas)
{
    std::mt19937 random(4);
    int hidden = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (size_t left = random() % 300; left > 0; --left)
            text += char('a' + random() % 26);
        const std::string signature = TextGrams::signature(text);
        for (size_t length = 1; length <= std::min<size_t>(text.size(), 8); ++length) {
            const std::string term = text.substr(random() % (text.size() - length + 1), length);
            ASSERT_TRUE(TextGrams::mayHave(signature, TextGrams::of(term))) << term << " in " << text;
        }
        hidden += !TextGrams::mayHave(signature, TextGrams::of("qzxjkq"));
    }
    EXPECT_GT(hidden, 1900); // of texts without it, nearly all need not be read
}

} // namespace Kovrel
