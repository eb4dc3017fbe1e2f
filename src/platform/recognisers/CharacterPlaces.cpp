#include "platform/recognisers/CharacterPlaces.h"

#include <algorithm>
#include <limits>
#include <span>

namespace Kovrel {

namespace {

constexpr int darkInk = 128;
constexpr QChar lastLatin{0x024f};
// Letters that touch are one piece of ink; more than so many are not told apart.
constexpr size_t mostTouching = 6;
constexpr int fewestLooks = 6; // two of them always fit
constexpr double middleOffGrid = 0.2; // of a step
constexpr double sideOffGrid = 0.4;   // narrow letters do not fill theirs
constexpr double mostOffGrid = 0.15;
constexpr double costOfTouching = 0.12;
constexpr double costOfParts = 0.12; // of one character in two pieces

// Columns that are next to each other and have ink: `right` is behind the last one.
struct Piece {
    int left;
    int right;

    int width() const { return right - left; }
};

struct Word {
    size_t firstCharacter;
    size_t characterCount;
    size_t firstPiece = 0;
    size_t pieceCount = 0;
};

std::vector<Piece> piecesOf(const QImage& ink)
{
    std::vector<bool> hasInk(size_t(ink.width()), false);
    for (int y = 0; y < ink.height(); ++y) {
        const uchar* const row = ink.constScanLine(y);
        for (int x = 0; x < ink.width(); ++x)
            if (row[x] < darkInk)
                hasInk[size_t(x)] = true;
    }
    std::vector<Piece> pieces;
    for (int x = 0; x < ink.width(); ++x) {
        if (!hasInk[size_t(x)])
            continue;
        if (pieces.empty() || pieces.back().right != x)
            pieces.push_back({x, x});
        pieces.back().right = x + 1;
    }
    return pieces;
}

std::vector<Word> wordsOf(const QString& text)
{
    std::vector<Word> words;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u' ')
            continue;
        if (at == 0 || text[at - 1] == u' ')
            words.push_back({size_t(at), 0});
        ++words.back().characterCount;
    }
    return words;
}

// The widest gaps are the spaces. False where others are as wide.
bool giveOut(const std::vector<Piece>& pieces, std::vector<Word>& words)
{
    if (words.empty() || pieces.size() < words.size())
        return false;
    std::vector<int> gaps;
    for (size_t at = 1; at < pieces.size(); ++at)
        gaps.push_back(pieces[at].left - pieces[at - 1].right);
    std::vector<int> sorted = gaps;
    std::ranges::sort(sorted, std::greater());
    const size_t spaces = words.size() - 1;
    const int narrowest = spaces > 0 ? sorted[spaces - 1] : std::numeric_limits<int>::max();
    if (spaces < sorted.size() && sorted[spaces] >= narrowest)
        return false;
    size_t word = 0;
    for (size_t piece = 0; piece < pieces.size(); ++piece) {
        if (piece > 0 && gaps[piece - 1] >= narrowest)
            words[++word].firstPiece = piece;
        ++words[word].pieceCount;
    }
    return true;
}

// Whether all characters are equally wide: then words begin and end at multiples of a step, and so do letters that stand
// alone. Their ink tells little, and the recogniser is right.
bool isOnGrid(const std::vector<Piece>& pieces, const std::vector<Word>& words, qsizetype length)
{
    const double start = pieces.front().left;
    const double step = (pieces.back().right - start) / double(length);
    int looked = 0;
    int off = 0;
    const auto look = [&](double x, double character, double mostOff) {
        ++looked;
        off += std::abs(x - start - character * step) > mostOff * step;
    };
    for (const Word& word : words) {
        const auto own = std::span(pieces).subspan(word.firstPiece, word.pieceCount);
        const double first = double(word.firstCharacter);
        look(own.front().left, first, sideOffGrid);
        look(own.back().right, first + double(word.characterCount), sideOffGrid);
        for (size_t at = 0; at < own.size() && word.pieceCount == word.characterCount; ++at)
            look((own[at].left + own[at].right) / 2.0, first + double(at) + 0.5, middleOffGrid);
    }
    return looked >= fewestLooks && off <= mostOffGrid * looked;
}

// About how wide characters are in most fonts, beside each other.
double usualWidth(QChar character)
{
    if (QStringView(u"ijl.,:;'|!I`").contains(character))
        return 0.5;
    if (QStringView(u"ftr()[]{}\"/\\-1").contains(character))
        return 0.7;
    if (QStringView(u"mwMW@%—").contains(character))
        return 1.6;
    return character.isUpper() ? 1.25 : 1;
}

// Shares the pieces of a word out among its characters, so that each gets about as much as it is usually wide.
class WordFit {
public:
    WordFit(QStringView text, std::span<const Piece> pieces) : m_text(text), m_pieces(pieces)
    {
        double sum = 0;
        for (const QChar character : text)
            sum += usualWidth(character);
        m_unit = (pieces.back().right - pieces.front().left) / sum;
        m_costs.assign((count() + 1) * (pieces.size() + 1), Cell{std::numeric_limits<double>::infinity()});
        cell(0, 0).cost = 0;
        for (size_t characters = 0; characters <= count(); ++characters)
            for (size_t used = 0; used <= pieces.size(); ++used)
                goOn(characters, used);
    }

    // From left to right for each character; empty where the pieces can't be shared out.
    std::vector<std::pair<double, double>> places()
    {
        std::vector<std::pair<double, double>> places(count());
        size_t characters = count();
        size_t used = m_pieces.size();
        while (characters > 0) {
            const Cell& at = cell(characters, used);
            if (at.characters == 0)
                return {};
            spread(characters - at.characters, at.characters, used - at.pieces, at.pieces, places);
            characters -= at.characters;
            used -= at.pieces;
        }
        return places;
    }

private:
    struct Cell {
        double cost;
        size_t characters = 0; // of the last step
        size_t pieces = 0;
    };

    size_t count() const { return size_t(m_text.size()); }

    Cell& cell(size_t characters, size_t used) { return m_costs[characters * (m_pieces.size() + 1) + used]; }

    double widthOf(size_t first, size_t number) const
    {
        double width = 0;
        for (size_t at = first; at < first + number; ++at)
            width += usualWidth(m_text[qsizetype(at)]);
        return width;
    }

    void goOn(size_t characters, size_t used)
    {
        const double cost = cell(characters, used).cost;
        if (cost == std::numeric_limits<double>::infinity())
            return;
        for (size_t touching = 1; touching <= mostTouching; ++touching)
            step(characters, used, touching, 1, cost + costOfTouching * double(touching - 1));
        step(characters, used, 1, 2, cost + costOfParts);
    }

    void step(size_t characters, size_t used, size_t more, size_t pieces, double cost)
    {
        if (characters + more > count() || used + pieces > m_pieces.size())
            return;
        const double ink = m_pieces[used + pieces - 1].right - m_pieces[used].left;
        const double off = ink / m_unit - (widthOf(characters, more) - 0.15);
        Cell& next = cell(characters + more, used + pieces);
        if (cost + off * off < next.cost)
            next = {cost + off * off, more, pieces};
    }

    void spread(size_t first, size_t number, size_t firstPiece, size_t pieces,
                std::vector<std::pair<double, double>>& places) const
    {
        const double left = m_pieces[firstPiece].left;
        const double scale = (m_pieces[firstPiece + pieces - 1].right - left) / widthOf(first, number);
        for (size_t at = first; at < first + number; ++at)
            places[at] = {left + scale * widthOf(first, at - first), left + scale * widthOf(first, at + 1 - first)};
    }

    QStringView m_text;
    std::span<const Piece> m_pieces;
    double m_unit; // pixels to a usual width of 1
    std::vector<Cell> m_costs;
};

} // namespace

void CharacterPlaces::followInk(const QString& text, const QImage& ink, std::vector<std::optional<QRectF>>& boxes)
{
    const auto isLatin = [](QChar character) { return character <= lastLatin; };
    if (text.size() != qsizetype(boxes.size()) || !std::ranges::all_of(text, isLatin))
        return;
    const std::vector<Piece> pieces = piecesOf(ink);
    std::vector<Word> words = wordsOf(text);
    if (!giveOut(pieces, words) || isOnGrid(pieces, words, text.size()))
        return;
    for (const Word& word : words) {
        WordFit fit(QStringView(text).sliced(qsizetype(word.firstCharacter), qsizetype(word.characterCount)),
                    std::span(pieces).subspan(word.firstPiece, word.pieceCount));
        const auto places = fit.places();
        for (size_t at = 0; at < places.size(); ++at) {
            std::optional<QRectF>& box = boxes[word.firstCharacter + at];
            const QRectF before = box.value_or(QRectF(0, 0, 1, ink.height()));
            box = QRectF(places[at].first, before.y(), places[at].second - places[at].first, before.height());
        }
    }
}

} // namespace Kovrel
