#include "recognition/TextLayout.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool isInRowOf(const TextFragment& first, const TextFragment& fragment)
{
    const double overlap =
        std::min(first.box.maxY(), fragment.box.maxY()) - std::max(first.box.minY(), fragment.box.minY());
    return overlap >= std::min(first.box.height, fragment.box.height) / 2;
}

QString separator(const TextFragment& before, const TextFragment& after)
{
    if (before.row != after.row || before.column != after.column)
        return "\n";
    const double gap = after.box.minX() - before.box.maxX();
    return gap >= std::max(before.box.height, after.box.height) ? "\t" : " ";
}

} // namespace

void TextLayout::emit(std::vector<TextFragment>& fragments)
{
    std::ranges::sort(fragments, std::greater(), [](const TextFragment& f) { return f.box.centre().y; });
    const TextFragment* first = nullptr;
    int row = -1;
    for (TextFragment& fragment : fragments) {
        if (!first || !isInRowOf(*first, fragment)) {
            first = &fragment;
            ++row;
        }
        fragment.row = row;
        fragment.column = 0;
    }
    std::ranges::sort(fragments, {}, [](const TextFragment& f) { return std::pair(f.row, f.box.minX()); });
}

QString TextLayout::plainText(const std::vector<TextFragment>& fragments)
{
    QString text;
    const TextFragment* before = nullptr;
    for (const TextFragment& fragment : fragments) {
        if (before)
            text += separator(*before, fragment);
        text += fragment.text;
        before = &fragment;
    }
    return text;
}

} // namespace Kovrel
