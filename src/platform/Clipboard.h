#pragma once

#include "platform/Reply.h"

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// One way in which the clipboard's content can be had. The bytes are made when a program asks for them, on any
// thread, at most once.
struct ClipboardOffer {
    QString mimeType;
    std::function<QByteArray()> bytes;
};

// What some program has on the clipboard, in one of its types.
struct ClipboardContent {
    QString mimeType;
    QByteArray bytes;
};

// The clipboard. Main thread, which never waits for the program that has copied.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces the content; what was copied survives the program's end where a clipboard manager takes it over.
    virtual void put(std::vector<ClipboardOffer> offers) = 0;
    virtual void putText(const QString& text) = 0;

    // The content in the first of these types that there is. Nothing where there is none of them, and where the program
    // that has it refuses, gives more than `mostBytes`, or is not done within some seconds.
    virtual void read(QStringList mimeTypes, Reply<std::optional<ClipboardContent>> reply) = 0;
    virtual void readText(Reply<std::optional<QString>> reply) = 0;

    static constexpr qsizetype mostBytes = 256 << 20;
};

} // namespace Kovrel
