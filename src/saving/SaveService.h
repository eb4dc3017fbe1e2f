#pragma once

#include "platform/files/AtomicFile.h"
#include "saving/ReservationJournal.h"
#include "saving/SaveSettings.h"

#include <QDateTime>
#include <QImage>

#include <optional>

namespace Kovrel {

// Finished images become files. Any thread but the main one: all of it encodes or writes. Failures are also logged, but
// where somebody named the file and so hears of them.
namespace SaveService {

// What was written.
struct Saved {
    QString path;
    std::optional<QByteArray> fullResPNG; // the file's bytes, where they are a PNG of every pixel
};

using Result = std::expected<Saved, SaveFailure>;

// The format of a new file.
ImageFormat resolvedFormat(const SaveSettings& settings, QSize pixels, bool hasVisibleTransparency);
ImageFormat resolvedFormat(const SaveSettings& settings, const QImage& image);

struct UniquePath {
    QString path;
    bool isReserved = false; // an empty file stands there, noted in the journal
    int error = 0;           // the system's reason where it is not
};

// A free name in a folder: the wanted one, or one with a number from 2 on behind its base. A base that the file system
// finds too long is shortened.
UniquePath uniqueURL(const QString& folder, const QString& fileName, ReservationJournal& journal);

// The automatic save of a capture into the user's folder, which is made when it is missing. `png` are the bytes of the
// whole picture where somebody has made them already.
Result saveToDefaultLocationReturningPNG(const SaveSettings& settings, const QImage& image, const QDateTime& date,
                                         std::optional<double> pixelScale, std::optional<QByteArray> png,
                                         ReservationJournal& journal);

// Re-saves over an existing file, in the format that its extension names. `overwrite` reduces the picture as an
// automatic save does, `overwriteFile` never.
Result overwrite(const SaveSettings& settings, const QImage& image, const QString& path,
                 std::optional<double> pixelScale);
Result overwriteFile(const SaveSettings& settings, const QImage& image, const QString& path);

// Writes a picture to the path that somebody named, in place of what is there. The extension says the format; one that
// names none is a failure.
Result saveTo(const QImage& image, const QString& path, double quality);
// The same in a given format.
Result saveAs(const QImage& image, const QString& path, ImageFormat format, double quality);

} // namespace SaveService

} // namespace Kovrel
