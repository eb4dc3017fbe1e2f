#include "model/KeyCombo.h"

#include <QStringList>

#include <array>

namespace Kovrel {

namespace {

struct Named {
    quint32 code;
    const char* name;
};

constexpr std::array keyNames{
    Named{0, "A"},
    Named{11, "B"},
    Named{8, "C"},
    Named{2, "D"},
    Named{14, "E"},
    Named{3, "F"},
    Named{5, "G"},
    Named{4, "H"},
    Named{34, "I"},
    Named{38, "J"},
    Named{40, "K"},
    Named{37, "L"},
    Named{46, "M"},
    Named{45, "N"},
    Named{31, "O"},
    Named{35, "P"},
    Named{12, "Q"},
    Named{15, "R"},
    Named{1, "S"},
    Named{17, "T"},
    Named{32, "U"},
    Named{9, "V"},
    Named{13, "W"},
    Named{7, "X"},
    Named{16, "Y"},
    Named{6, "Z"},
    Named{29, "0"},
    Named{18, "1"},
    Named{19, "2"},
    Named{20, "3"},
    Named{21, "4"},
    Named{23, "5"},
    Named{22, "6"},
    Named{26, "7"},
    Named{28, "8"},
    Named{25, "9"},
    Named{27, "-"},
    Named{24, "="},
    Named{33, "["},
    Named{30, "]"},
    Named{41, ";"},
    Named{39, "'"},
    Named{43, ","},
    Named{47, "."},
    Named{44, "/"},
    Named{42, "\\"},
    Named{50, "`"},
    Named{36, "Return"},
    Named{48, "Tab"},
    Named{49, "Space"},
    Named{51, "Backspace"},
    Named{53, "Escape"},
    Named{76, "Enter"},
    Named{117, "Delete"},
    Named{114, "Insert"},
    Named{115, "Home"},
    Named{119, "End"},
    Named{116, "PageUp"},
    Named{121, "PageDown"},
    Named{123, "Left"},
    Named{124, "Right"},
    Named{125, "Down"},
    Named{126, "Up"},
    Named{122, "F1"},
    Named{120, "F2"},
    Named{99, "F3"},
    Named{118, "F4"},
    Named{96, "F5"},
    Named{97, "F6"},
    Named{98, "F7"},
    Named{100, "F8"},
    Named{101, "F9"},
    Named{109, "F10"},
    Named{103, "F11"},
    Named{111, "F12"},
    Named{105, "Print"},
    Named{10, "<"},
    Named{107, "ScrollLock"},
    Named{113, "Pause"},
    Named{110, "Menu"},
    Named{KeyCombo::firstLinuxKey + 183, "F13"},
    Named{KeyCombo::firstLinuxKey + 184, "F14"},
    Named{KeyCombo::firstLinuxKey + 185, "F15"},
    Named{106, "F16"},
    Named{64, "F17"},
    Named{79, "F18"},
    Named{80, "F19"},
    Named{90, "F20"},
    Named{KeyCombo::firstLinuxKey + 191, "F21"},
    Named{KeyCombo::firstLinuxKey + 192, "F22"},
    Named{KeyCombo::firstLinuxKey + 193, "F23"},
    Named{KeyCombo::firstLinuxKey + 194, "F24"},
    Named{82, "KP0"},
    Named{83, "KP1"},
    Named{84, "KP2"},
    Named{85, "KP3"},
    Named{86, "KP4"},
    Named{87, "KP5"},
    Named{88, "KP6"},
    Named{89, "KP7"},
    Named{91, "KP8"},
    Named{92, "KP9"},
    Named{65, "KPDecimal"},
    Named{67, "KPMultiply"},
    Named{69, "KPAdd"},
    Named{78, "KPSubtract"},
    Named{75, "KPDivide"},
    Named{81, "KPEqual"},
    Named{72, "VolumeUp"},
    Named{73, "VolumeDown"},
    Named{74, "VolumeMute"},
    Named{KeyCombo::firstLinuxKey + 164, "MediaPlay"},
    Named{KeyCombo::firstLinuxKey + 166, "MediaStop"},
    Named{KeyCombo::firstLinuxKey + 163, "MediaNext"},
    Named{KeyCombo::firstLinuxKey + 165, "MediaPrevious"},
};

constexpr std::array modifierNames{
    Named{KeyCombo::control, "Ctrl"},
    Named{KeyCombo::option, "Alt"},
    Named{KeyCombo::shift, "Shift"},
    Named{KeyCombo::command, "Super"},
};

// "Super" first, as it is said: Super+Ctrl+Alt+Shift+key.
constexpr std::array spokenOrder{KeyCombo::command, KeyCombo::control, KeyCombo::option, KeyCombo::shift};

template <class Table>
std::optional<quint32> codeNamed(const Table& table, QStringView name)
{
    for (const Named& entry : table)
        if (name.compare(QLatin1StringView(entry.name), Qt::CaseInsensitive) == 0)
            return entry.code;
    return std::nullopt;
}

template <class Table>
QString nameOf(const Table& table, quint32 code)
{
    for (const Named& entry : table)
        if (entry.code == code)
            return QString::fromLatin1(entry.name);
    return {};
}

} // namespace

std::optional<KeyCombo> KeyCombo::fromStored(qint64 value)
{
    if (value < 1 || (value >> 48) != 0)
        return std::nullopt;
    return KeyCombo{quint32(value & 0xffff), quint32(value >> 16)};
}

QString KeyCombo::text() const
{
    QStringList parts;
    for (const quint32 modifier : spokenOrder)
        if (modifiers & modifier)
            parts << nameOf(modifierNames, modifier);
    const QString key = nameOf(keyNames, keyCode);
    parts << (key.isEmpty() ? QString("#%1").arg(keyCode) : key);
    return parts.join('+');
}

std::optional<KeyCombo> KeyCombo::fromText(const QString& text)
{
    KeyCombo combo;
    QStringList parts = text.split('+');
    const QString key = parts.takeLast().trimmed();
    for (const QString& part : parts) {
        const auto modifier = codeNamed(modifierNames, part.trimmed());
        if (!modifier)
            return std::nullopt;
        combo.modifiers |= *modifier;
    }
    if (key.startsWith('#')) {
        bool isNumber = false;
        combo.keyCode = key.mid(1).toUShort(&isNumber);
        return isNumber ? std::optional(combo) : std::nullopt;
    }
    const auto code = codeNamed(keyNames, key);
    if (!code)
        return std::nullopt;
    combo.keyCode = *code;
    return combo;
}

} // namespace Kovrel
