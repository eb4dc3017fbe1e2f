#include "editorwindow/tools/ToolKeys.h"

#include <QKeyEvent>

#include <array>

namespace Kovrel {

namespace {

// In the order of the tools.
constexpr std::string_view letters = "VCALPHRFONTBXKSM";
static_assert(letters.size() == RawStrings<EditorTool>::table.size());

// X key codes of the letters' places on a US keyboard: the kernel's codes and 8.
constexpr std::array<std::pair<int, std::string_view>, 3> rows{
    {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};

std::optional<char> letterAt(int keyCode)
{
    for (const auto& [first, row] : rows)
        if (keyCode >= first && keyCode < first + int(row.size()))
            return row[size_t(keyCode - first)];
    return std::nullopt;
}

std::optional<char> letterOf(const QKeyEvent& event)
{
    if (event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)
        return char('A' + event.key() - Qt::Key_A);
    const bool isOtherLetter = !event.text().isEmpty() && event.text()[0].isLetter() && event.text()[0] > QChar(0x24f);
    return isOtherLetter ? letterAt(int(event.nativeScanCode())) : std::nullopt;
}

} // namespace

char ToolKeys::letterOf(EditorTool tool)
{
    return letters[size_t(tool)];
}

std::optional<EditorTool> ToolKeys::toolOf(const QKeyEvent& event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return std::nullopt;
    const auto letter = ::Kovrel::letterOf(event);
    const size_t place = letter ? letters.find(*letter) : std::string_view::npos;
    return place == std::string_view::npos ? std::nullopt : std::optional(EditorTool(place));
}

} // namespace Kovrel
