#pragma once

#include <QString>

#include <optional>

namespace Kovrel {

// A key with modifiers. Key codes are virtual key codes, which name a place on an ANSI keyboard; what they are on this
// desktop's keyboard is the platform's business. Print, Scroll Lock and Pause have the codes of the keys in their place
// (105, 107 and 113). A key that has no such code, as F21 or a media key, has `firstLinuxKey` plus the number that
// Linux gives it in input-event-codes.h.
struct KeyCombo {
    static constexpr quint32 firstLinuxKey = 256;

    enum Modifier : quint32 {
        command = 0x100, // the Super key here
        shift = 0x200,
        option = 0x800, // the Alt key here
        control = 0x1000,
    };

    quint32 keyCode = 0;
    quint32 modifiers = 0;

    // The stored form: modifiers shifted left by 16 bits, plus the key code.
    // Nothing below 1 and nothing with one of bits 48 to 63 set is a combination.
    qint64 stored() const { return (qint64(modifiers) << 16) + keyCode; }

    static std::optional<KeyCombo> fromStored(qint64 value);

    // As it is written in commands and files: "Super+Shift+4".
    QString text() const;
    // As people read it, in their language.
    QString title() const;
    static std::optional<KeyCombo> fromText(const QString& text);

    // Whether it leaves typing alone: it has a modifier, or its key types nothing (Print, a function or media key).
    bool canBeHotkey() const;

    bool operator==(const KeyCombo&) const = default;
};

} // namespace Kovrel
