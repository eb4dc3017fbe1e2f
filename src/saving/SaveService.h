#pragma once

#include "platform/files/AtomicFile.h"
#include "saving/ReservationJournal.h"
#include "saving/SaveSettings.h"

#include <QDateTime>
#include <QImage>

#include <functional>
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

// The picture with as many pixels as an automatic save keeps.
QImage reduced(const SaveSettings& settings, const QImage& image, std::optional<double> pixelScale);

// The format of a new file.
ImageFormat resolvedFormat(const SaveSettings& settings, QSize pixels, bool hasVisibleTransparency);
ImageFormat resolvedFormat(const SaveSettings& settings, const QImage& image);

struct UniquePath {
    QString path;
    bool isReserved = false; // an empty file stands there, noted in the journal
    int error = 0;           // the system's reason where it is not
};

// A name that the folder's file system does not find too long, with its extension and whole characters.
QString fittingName(const QString& folder, const QString& fileName);

// A free name in a folder: the wanted one, or one with a number from 2 on behind its base. A base that the file system
// finds too long is shortened.
UniquePath uniqueURL(const QString& folder, const QString& fileName, ReservationJournal& journal);

// Makes the PNG of the whole picture, where somebody has it or needs it too; asked where a file takes just that.
using MakePng = std::function<std::optional<QByteArray>()>;

// The automatic save of a capture into the user's folder, which is made when it is missing.
Result saveToDefaultLocationReturningPNG(const SaveSettings& settings, const QImage& image, const QDateTime& date,
                                         std::optional<double> pixelScale, const MakePng& png,
                                         ReservationJournal& journal);

// Re-saves over an existing file, in the format that its extension names. `overwrite` reduces the picture as an
// automatic save does, `overwriteFile` never.
Result overwrite(const SaveSettings& settings, const QImage& image, const QString& path,
                 std::optional<double> pixelScale);
Result overwriteFile(const SaveSettings& settings, const QImage& image, const QString& path);

// Writes a picture to the path that somebody named, in place of what is there. The extension says the format; one that
// names none is a failure.
Result saveTo(const QImage& image, const QString& path, double quality, const MakePng& png = {});
// The same in a given format.
Result saveAs(const QImage& image, const QString& path, ImageFormat format, double quality, const MakePng& png = {});

} // namespace SaveService

} // namespace Kovrel
