#include "model/KeyCombo.h"

#include "model/VirtualKeys.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

struct Named {
    quint32 code;
    const char* name;
};

constexpr std::array keyNames{
    Named{VirtualKeys::a, "A"},
    Named{VirtualKeys::b, "B"},
    Named{VirtualKeys::c, "C"},
    Named{VirtualKeys::d, "D"},
    Named{VirtualKeys::e, "E"},
    Named{VirtualKeys::f, "F"},
    Named{VirtualKeys::g, "G"},
    Named{VirtualKeys::h, "H"},
    Named{VirtualKeys::i, "I"},
    Named{VirtualKeys::j, "J"},
    Named{VirtualKeys::k, "K"},
    Named{VirtualKeys::l, "L"},
    Named{VirtualKeys::m, "M"},
    Named{VirtualKeys::n, "N"},
    Named{VirtualKeys::o, "O"},
    Named{VirtualKeys::p, "P"},
    Named{VirtualKeys::q, "Q"},
    Named{VirtualKeys::r, "R"},
    Named{VirtualKeys::s, "S"},
    Named{VirtualKeys::t, "T"},
    Named{VirtualKeys::u, "U"},
    Named{VirtualKeys::v, "V"},
    Named{VirtualKeys::w, "W"},
    Named{VirtualKeys::x, "X"},
    Named{VirtualKeys::y, "Y"},
    Named{VirtualKeys::z, "Z"},
    Named{VirtualKeys::digit0, "0"},
    Named{VirtualKeys::digit1, "1"},
    Named{VirtualKeys::digit2, "2"},
    Named{VirtualKeys::digit3, "3"},
    Named{VirtualKeys::digit4, "4"},
    Named{VirtualKeys::digit5, "5"},
    Named{VirtualKeys::digit6, "6"},
    Named{VirtualKeys::digit7, "7"},
    Named{VirtualKeys::digit8, "8"},
    Named{VirtualKeys::digit9, "9"},
    Named{VirtualKeys::minus, "-"},
    Named{VirtualKeys::equal, "="},
    Named{VirtualKeys::leftBracket, "["},
    Named{VirtualKeys::rightBracket, "]"},
    Named{VirtualKeys::semicolon, ";"},
    Named{VirtualKeys::apostrophe, "'"},
    Named{VirtualKeys::comma, ","},
    Named{VirtualKeys::period, "."},
    Named{VirtualKeys::slash, "/"},
    Named{VirtualKeys::backslash, "\\"},
    Named{VirtualKeys::grave, "`"},
    Named{VirtualKeys::returnKey, QT_TRANSLATE_NOOP("KeyCombo", "Return")},
    Named{VirtualKeys::tab, QT_TRANSLATE_NOOP("KeyCombo", "Tab")},
    Named{VirtualKeys::space, QT_TRANSLATE_NOOP("KeyCombo", "Space")},
    Named{VirtualKeys::backspace, QT_TRANSLATE_NOOP("KeyCombo", "Backspace")},
    Named{VirtualKeys::escape, QT_TRANSLATE_NOOP("KeyCombo", "Escape")},
    Named{VirtualKeys::enter, QT_TRANSLATE_NOOP("KeyCombo", "Enter")},
    Named{VirtualKeys::deleteKey, QT_TRANSLATE_NOOP("KeyCombo", "Delete")},
    Named{VirtualKeys::insert, QT_TRANSLATE_NOOP("KeyCombo", "Insert")},
    Named{VirtualKeys::home, QT_TRANSLATE_NOOP("KeyCombo", "Home")},
    Named{VirtualKeys::end, QT_TRANSLATE_NOOP("KeyCombo", "End")},
    Named{VirtualKeys::pageUp, QT_TRANSLATE_NOOP("KeyCombo", "PageUp")},
    Named{VirtualKeys::pageDown, QT_TRANSLATE_NOOP("KeyCombo", "PageDown")},
    Named{VirtualKeys::left, QT_TRANSLATE_NOOP("KeyCombo", "Left")},
    Named{VirtualKeys::right, QT_TRANSLATE_NOOP("KeyCombo", "Right")},
    Named{VirtualKeys::down, QT_TRANSLATE_NOOP("KeyCombo", "Down")},
    Named{VirtualKeys::up, QT_TRANSLATE_NOOP("KeyCombo", "Up")},
    Named{VirtualKeys::f1, "F1"},
    Named{VirtualKeys::f2, "F2"},
    Named{VirtualKeys::f3, "F3"},
    Named{VirtualKeys::f4, "F4"},
    Named{VirtualKeys::f5, "F5"},
    Named{VirtualKeys::f6, "F6"},
    Named{VirtualKeys::f7, "F7"},
    Named{VirtualKeys::f8, "F8"},
    Named{VirtualKeys::f9, "F9"},
    Named{VirtualKeys::f10, "F10"},
    Named{VirtualKeys::f11, "F11"},
    Named{VirtualKeys::f12, "F12"},
    Named{VirtualKeys::print, QT_TRANSLATE_NOOP("KeyCombo", "Print")},
    Named{VirtualKeys::less, "<"},
    Named{VirtualKeys::scrollLock, QT_TRANSLATE_NOOP("KeyCombo", "ScrollLock")},
    Named{VirtualKeys::pause, QT_TRANSLATE_NOOP("KeyCombo", "Pause")},
    Named{VirtualKeys::menu, QT_TRANSLATE_NOOP("KeyCombo", "Menu")},
    Named{VirtualKeys::f13, "F13"},
    Named{VirtualKeys::f14, "F14"},
    Named{VirtualKeys::f15, "F15"},
    Named{VirtualKeys::f16, "F16"},
    Named{VirtualKeys::f17, "F17"},
    Named{VirtualKeys::f18, "F18"},
    Named{VirtualKeys::f19, "F19"},
    Named{VirtualKeys::f20, "F20"},
    Named{VirtualKeys::f21, "F21"},
    Named{VirtualKeys::f22, "F22"},
    Named{VirtualKeys::f23, "F23"},
    Named{VirtualKeys::f24, "F24"},
    Named{VirtualKeys::keypad0, "KP0"},
    Named{VirtualKeys::keypad1, "KP1"},
    Named{VirtualKeys::keypad2, "KP2"},
    Named{VirtualKeys::keypad3, "KP3"},
    Named{VirtualKeys::keypad4, "KP4"},
    Named{VirtualKeys::keypad5, "KP5"},
    Named{VirtualKeys::keypad6, "KP6"},
    Named{VirtualKeys::keypad7, "KP7"},
    Named{VirtualKeys::keypad8, "KP8"},
    Named{VirtualKeys::keypad9, "KP9"},
    Named{VirtualKeys::keypadDecimal, "KPDecimal"},
    Named{VirtualKeys::keypadMultiply, "KPMultiply"},
    Named{VirtualKeys::keypadAdd, "KPAdd"},
    Named{VirtualKeys::keypadSubtract, "KPSubtract"},
    Named{VirtualKeys::keypadDivide, "KPDivide"},
    Named{VirtualKeys::keypadEqual, "KPEqual"},
    Named{VirtualKeys::volumeUp, QT_TRANSLATE_NOOP("KeyCombo", "VolumeUp")},
    Named{VirtualKeys::volumeDown, QT_TRANSLATE_NOOP("KeyCombo", "VolumeDown")},
    Named{VirtualKeys::volumeMute, QT_TRANSLATE_NOOP("KeyCombo", "VolumeMute")},
    Named{VirtualKeys::mediaPlay, QT_TRANSLATE_NOOP("KeyCombo", "MediaPlay")},
    Named{VirtualKeys::mediaStop, QT_TRANSLATE_NOOP("KeyCombo", "MediaStop")},
    Named{VirtualKeys::mediaNext, QT_TRANSLATE_NOOP("KeyCombo", "MediaNext")},
    Named{VirtualKeys::mediaPrevious, QT_TRANSLATE_NOOP("KeyCombo", "MediaPrevious")},
};

constexpr std::array modifierNames{
    Named{KeyCombo::control, QT_TRANSLATE_NOOP("KeyCombo", "Ctrl")},
    Named{KeyCombo::option, QT_TRANSLATE_NOOP("KeyCombo", "Alt")},
    Named{KeyCombo::shift, QT_TRANSLATE_NOOP("KeyCombo", "Shift")},
    Named{KeyCombo::command, QT_TRANSLATE_NOOP("KeyCombo", "Super")},
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
const char* nameOf(const Table& table, quint32 code)
{
    for (const Named& entry : table)
        if (entry.code == code)
            return entry.name;
    return nullptr;
}

// Each name as `say` has it.
QString joined(const KeyCombo& combo, QString (*say)(const char*))
{
    QStringList parts;
    for (const quint32 modifier : spokenOrder)
        if (combo.modifiers & modifier)
            parts << say(nameOf(modifierNames, modifier));
    const char* const key = nameOf(keyNames, combo.keyCode);
    parts << (key ? say(key) : QString("#%1").arg(combo.keyCode));
    return parts.join('+');
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
    return joined(*this, [](const char* name) { return QString::fromLatin1(name); });
}

QString KeyCombo::title() const
{
    return joined(*this, [](const char* name) { return QCoreApplication::translate("KeyCombo", name); });
}

bool KeyCombo::canBeHotkey() const
{
    using namespace VirtualKeys;
    static constexpr quint32 typingNothing[] = {f1,  f2,  f3,  f4,  f5,  f6,  f7,  f8,    f9,         f10,
                                                f11, f12, f16, f17, f18, f19, f20, print, scrollLock, pause};
    return modifiers != 0 || keyCode >= firstLinuxKey ||
           std::ranges::find(typingNothing, keyCode) != std::end(typingNothing);
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
