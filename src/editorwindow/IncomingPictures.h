#pragma once

#include "editor/document/EditorCapture.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

class QMimeData;

namespace Kovrel {

// Pictures as other programs hand them over: as files, else as the bytes of one.
struct IncomingPictures {
    // More than these are left where they are.
    static constexpr qsizetype mostFiles = 20;

    QStringList files;
    QByteArray bytes;

    // What such data is called, the best first.
    static QStringList mimeTypes();
    static bool mayBeIn(const QMimeData& data);
    // Main thread.
    static IncomingPictures in(const QMimeData& data);

    struct Decoded {
        std::vector<QImage> pictures; // as they are kept on the capture
        QString refused;              // one line for people about what is none; empty where all are
    };

    // Reads and decodes: any thread but the main one.
    Decoded decoded(const EditorCapture& capture) const;
};

} // namespace Kovrel
