#pragma once

#include "platform/Clipboard.h"

namespace Kovrel {

// The desktop's clipboard through the toolkit. Bytes are made on the main thread when a program asks for them, because
// the display server's question has to be answered there and then. An offer whose bytes are being made elsewhere at
// that moment makes it wait for the rest of them only.
class QtClipboard : public Clipboard {
public:
    void put(std::vector<ClipboardOffer> offers) override;
    void putText(const QString& text) override;
};

} // namespace Kovrel
