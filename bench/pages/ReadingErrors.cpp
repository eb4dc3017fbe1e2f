#include "bench/pages/ReadingErrors.h"

#include <optional>
#include <vector>

namespace Kovrel::Bench {

namespace {

constexpr QChar taken(0xFFFF); // in the place of what was found

QString normal(QString text)
{
    text = text.normalized(QString::NormalizationForm_C);
    for (const auto& [from, to] : std::initializer_list<std::pair<QStringView, const char*>>{
             {u"“”„", "\""}, {u"‘’‚`´", "'"}, {u"–—−", "-"}, {u"×", "x"}, {u"\u200e\u200f\u202a\u202b\u202c", ""}})
        for (const QChar c : from)
            text.replace(c, QString::fromLatin1(to));
    text.replace(QString::fromUtf8("…"), QString("..."));
    return text.simplified();
}

struct Match {
    int errors = 0;
    qsizetype begin = 0;
    qsizetype end = 0;
};

// The part of what was read that differs least from the text.
Match bestMatch(const QString& text, const QString& read)
{
    struct Cell {
        int errors = 0;
        qsizetype begin = 0;
    };

    std::vector<Cell> row(size_t(read.size()) + 1);
    for (size_t at = 0; at < row.size(); ++at)
        row[at] = {0, qsizetype(at)};
    for (const QChar c : text) {
        Cell diagonal = row[0];
        row[0] = {row[0].errors + 1, 0};
        for (size_t at = 1; at < row.size(); ++at) {
            const QChar other = read[qsizetype(at) - 1];
            const bool isTaken = other == taken;
            Cell best{diagonal.errors + (c == other ? 0 : 1), diagonal.begin};
            if (isTaken || row[at].errors + 1 < best.errors)
                best = {row[at].errors + 1, isTaken ? qsizetype(at) : row[at].begin};
            if (!isTaken && row[at - 1].errors + 1 < best.errors)
                best = {row[at - 1].errors + 1, row[at - 1].begin};
            diagonal = std::exchange(row[at], best);
        }
    }
    const auto best = std::ranges::min_element(row, {}, &Cell::errors);
    return {best->errors, best->begin, best - row.begin()};
}

} // namespace

ReadingErrors ReadingErrors::of(const QStringList& texts, const QString& read)
{
    constexpr double passes[] = {0, 0.1, 0.3, 1}; // the most errors of a text that is found, in its length
    constexpr int shortText = 4;                  // may be anywhere by chance, and waits for the last pass
    std::vector<QString> missing;
    ReadingErrors result;
    for (const QString& text : texts)
        missing.push_back(normal(text));
    std::ranges::sort(missing, std::greater(), [](const QString& text) { return std::pair(text.size(), text); });
    for (const QString& text : missing)
        result.length += int(text.size());
    QString rest = normal(read);
    for (const double most : passes)
        std::erase_if(missing, [&](const QString& text) {
            if (most < 1 && text.size() < shortText)
                return false;
            const Match match = bestMatch(text, rest);
            if (match.errors > most * double(text.size()))
                return false;
            result.errors += match.errors;
            rest.replace(match.begin, match.end - match.begin, QString(match.end - match.begin, taken));
            return true;
        });
    result.errors += int(std::ranges::count_if(rest, [](QChar c) { return c != taken && c != ' '; }));
    return result;
}

} // namespace Kovrel::Bench
