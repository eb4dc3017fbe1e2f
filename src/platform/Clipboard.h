#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace Kovrel {

// One way in which the clipboard's content can be had. The bytes are made when a program asks for them, on any
// thread, at most once.
struct ClipboardOffer {
    QString mimeType;
    std::function<QByteArray()> bytes;
};

// The clipboard. Main thread.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces the content; what was copied survives the program's end where a clipboard manager takes it over.
    virtual void put(std::vector<ClipboardOffer> offers) = 0;
    virtual void putText(const QString& text) = 0;
};

} // namespace Kovrel
