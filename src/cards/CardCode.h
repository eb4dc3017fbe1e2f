#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace Kovrel {

// A code that was found in a card's capture. Anybody may have written what it says.
struct CardCode {
    QString payload;

    // One line for people: nothing in it is obeyed, neither by a terminal nor by the direction of the text, and it is
    // at most `most` characters long.
    QString shown(qsizetype most) const;
    // What may be opened; nothing for a payload that is no web address.
    std::optional<QUrl> link() const;

    bool operator==(const CardCode&) const = default;
};

} // namespace Kovrel
