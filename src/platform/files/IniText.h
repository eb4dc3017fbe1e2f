#pragma once

#include <QByteArray>
#include <QMap>
#include <QVariant>

#include <optional>

namespace Kovrel {

// Keys and values as the text of an INI file, in the form in which QSettings has them. Any thread.
namespace IniText {

using Values = QMap<QString, QVariant>;

struct Content {
    Values values;
    bool isDamaged = false; // there are lines that mean nothing; the values are those of the others
};

// Nothing where memory or file descriptors are short.
std::optional<Content> parse(const QByteArray& text);
QByteArray of(const Values& values);

} // namespace IniText

} // namespace Kovrel
