#include "history/text/IndexedText.h"

#include "history/text/TextDifference.h"
#include "history/text/TextGrams.h"
#include "model/text/TextFolding.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

constexpr double steps = 1e5; // as many as boxes have in files

// Boxes lie in the image; what a damaged file says lies at most next to it.
float coordinate(double value)
{
    return std::isfinite(value) ? float(std::clamp(value, -1.0, 2.0)) : 0;
}

double rounded(float value)
{
    return std::round(double(value) * steps) / steps;
}

Rect boxFrom(const std::array<float, 4>& values)
{
    return {rounded(values[0]), rounded(values[1]), rounded(values[2]), rounded(values[3])};
}

} // namespace

IndexedText::IndexedText(const std::vector<OCRLine>& lines)
{
    m_lines.reserve(lines.size());
    for (const OCRLine& line : lines)
        if (!line.text.isEmpty())
            append(line);
    m_signature = TextGrams::signature(m_folded);
    m_folded.shrink_to_fit();
    m_differences.shrink_to_fit();
}

void IndexedText::append(const OCRLine& line)
{
    const QString folded = TextFolding::comparable(line.text);
    const Rect& box = line.boundingBox;
    if (!m_lines.empty())
        m_folded += ' ';
    m_folded += folded.toStdString();
    m_differences += TextDifference::of(line.text, folded);
    m_lines.push_back({std::uint32_t(m_folded.size()),
                       {coordinate(box.x), coordinate(box.y), coordinate(box.width), coordinate(box.height)}});
}

std::vector<OCRLine> IndexedText::lines() const
{
    std::vector<OCRLine> lines;
    TextDifference differences(m_differences);
    size_t begin = 0;
    for (const Line& line : m_lines) {
        const QString folded = QString::fromUtf8(m_folded.data() + begin, qsizetype(line.end - begin));
        lines.push_back({.text = differences.next(folded), .confidence = 1, .boundingBox = boxFrom(line.box)});
        begin = line.end + 1;
    }
    return lines;
}

size_t IndexedText::bytes() const
{
    return sizeof(IndexedText) + m_folded.capacity() + m_differences.capacity() + m_signature.capacity() +
           m_lines.capacity() * sizeof(Line);
}

} // namespace Kovrel
