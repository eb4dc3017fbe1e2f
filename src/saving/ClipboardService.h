#pragma once

#include "platform/Clipboard.h"
#include "platform/Scope.h"
#include "saving/EncodedPng.h"

#include <QImage>

#include <optional>

namespace Kovrel {

// The one place from which pictures and image files go to the clipboard. Main thread.
class ClipboardService {
public:
    ClipboardService(MainLoop& loop, Workers& workers, Clipboard& clipboard)
        : m_clipboard(clipboard), m_scope(loop, workers)
    {
    }

    // Grows with every copy that takes the clipboard. A copy that takes its time notes it when it begins, and does not
    // replace what was copied meanwhile.
    int copyGeneration() const { return m_copyGeneration; }

    // Offers the picture as PNG and as TIFF, each made when a program first asks for it. `png` is the picture's
    // encoding where others want it too.
    void copy(const QImage& image, std::shared_ptr<EncodedPng> png = {});

    // The bytes of a PNG or JPEG file, and the file itself for programs that take files. `copied` hears whether the
    // bytes could be read; they go to the clipboard when nothing was copied since `generation`, or, when `force` is
    // set, since this call, which then counts as a copy itself.
    void copyFile(const QString& path, int generation, bool force, Reply<bool> copied);

    // A file, for programs that take files, and the picture in it for all others.
    void copyAsFile(const QString& path, std::shared_ptr<EncodedPng> png);

    using MakeBytes = std::function<std::optional<QByteArray>()>; // runs on a worker

    // Makes the bytes first, PNG by `png`, else TIFF, and offers them unless something was copied since `generation`.
    void copyInBackground(const QImage& image, MakeBytes png, int generation);

    void copyText(const QString& text);

    // The type under which a file's bytes are offered; nothing for files that are not copied.
    static std::optional<QString> pasteboardType(const QString& path);

    // Any thread but the main one: it encodes.
    static std::optional<QByteArray> tiffData(const QImage& image);

private:
    QCoro::Task<> readAndPut(QString path, QString type, int generation, Reply<bool> copied);
    QCoro::Task<> makeAndPut(QImage image, MakeBytes png, int generation);
    void putImage(const QImage& image, const std::shared_ptr<EncodedPng>& png);

    Clipboard& m_clipboard;
    int m_copyGeneration = 0;
    Scope m_scope;
};

} // namespace Kovrel
