#include "history/text/TextDifference.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int countBits = 6;
constexpr qsizetype mostOfStep = qsizetype(1) << countBits;

QString capitals(QStringView folded)
{
    QString text = folded.toString();
    std::ranges::transform(folded, text.begin(), [](QChar unit) { return unit.toUpper(); });
    return text;
}

} // namespace

std::string TextDifference::of(QStringView text, QStringView folded)
{
    std::string differences;
    if (text.size() != folded.size()) {
        appendReplaced(differences, text, folded.size());
        return differences;
    }
    for (qsizetype from = 0, to = 0; from < text.size(); from = to) {
        const Kind kind = kindOf(text[from], folded[from]);
        while (to < text.size() && kindOf(text[to], folded[to]) == kind)
            ++to;
        if (kind == Kind::insert)
            appendReplaced(differences, text.sliced(from, to - from), to - from);
        else
            append(differences, {kind, to - from});
    }
    return differences;
}

QString TextDifference::next(QStringView folded)
{
    QString text;
    while (!folded.isEmpty() && !m_rest.empty()) {
        const Step step = nextStep();
        const qsizetype count = std::min(step.count, folded.size());
        if (step.kind == Kind::insert) {
            text += inserted(step.count);
            continue;
        }
        if (step.kind != Kind::drop)
            text += step.kind == Kind::keep ? folded.first(count).toString() : capitals(folded.first(count));
        folded = folded.sliced(count);
    }
    return text;
}

// What folding has made of another letter is inserted, and the letter dropped.
TextDifference::Kind TextDifference::kindOf(QChar unit, QChar folded)
{
    if (unit == folded)
        return Kind::keep;
    return folded.toUpper() == unit ? Kind::capital : Kind::insert;
}

void TextDifference::append(std::string& differences, Step step)
{
    for (qsizetype left = step.count; left > 0; left -= mostOfStep)
        differences += char(int(step.kind) << countBits | int(std::min(left, mostOfStep) - 1));
}

// The folded units are dropped last: with them a text ends.
void TextDifference::appendReplaced(std::string& differences, QStringView text, qsizetype folded)
{
    for (; !text.isEmpty(); text = text.sliced(std::min(mostOfStep, text.size()))) {
        const QStringView part = text.first(std::min(mostOfStep, text.size()));
        append(differences, {Kind::insert, part.size()});
        differences.append(reinterpret_cast<const char*>(part.data()), size_t(part.size()) * sizeof(QChar));
    }
    append(differences, {Kind::drop, folded});
}

TextDifference::Step TextDifference::nextStep()
{
    const auto byte = static_cast<unsigned char>(m_rest.front());
    m_rest.remove_prefix(1);
    return {Kind(byte >> countBits), (byte & (mostOfStep - 1)) + 1};
}

QString TextDifference::inserted(qsizetype count)
{
    const size_t bytes = std::min(size_t(count) * sizeof(QChar), m_rest.size());
    QString text(qsizetype(bytes / sizeof(QChar)), Qt::Uninitialized);
    m_rest.copy(reinterpret_cast<char*>(text.data()), size_t(text.size()) * sizeof(QChar));
    m_rest.remove_prefix(bytes);
    return text;
}

} // namespace Kovrel
