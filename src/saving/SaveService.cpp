#include "saving/SaveService.h"

#include "imaging/Resampling.h"
#include "saving/FileNameFormatter.h"
#include "saving/SaveLog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Kovrel {

namespace {

using AtomicFile::Access;
using SaveService::Result;
using SaveService::Saved;

constexpr qint64 largePixels = 1'000'000;

struct Picture {
    QImage image;
    bool isReduced = false;
};

Picture reducedAsWanted(const SaveSettings& settings, const QImage& image, std::optional<double> pixelScale)
{
    QImage reduced = SaveService::reduced(settings, image, pixelScale);
    const bool isReduced = reduced.cacheKey() != image.cacheKey();
    return {std::move(reduced), isReduced};
}

std::optional<QByteArray> ifFullResPNG(const Picture& picture, ImageFormat format, const QByteArray& bytes)
{
    return format == ImageFormat::png && !picture.isReduced ? std::optional(bytes) : std::nullopt;
}

std::expected<QByteArray, SaveFailure> bytesOf(const Picture& picture, ImageFormat format, double quality,
                                               const SaveService::MakePng& png)
{
    if (format == ImageFormat::png && !picture.isReduced && png)
        if (auto bytes = png())
            return *std::move(bytes);
    return ImageCodec::encode(picture.image, format, quality);
}

std::expected<QString, SaveFailure> writeToNewFile(const QString& folder, const QString& name, const QByteArray& bytes,
                                                   ReservationJournal& journal)
{
    if (!QDir().mkpath(folder))
        return std::unexpected(
            SaveFailure{QCoreApplication::translate("SaveService", "The folder %1 cannot be made.").arg(folder)});
    const auto place = SaveService::uniqueURL(folder, name, journal);
    if (!place.isReserved && place.error != 0)
        return std::unexpected(AtomicFile::systemFailure(folder, place.error));
    if (!place.isReserved && QFileInfo::exists(place.path))
        return std::unexpected(SaveFailure{
            QCoreApplication::translate("SaveService", "The folder %1 has no name left for %2.").arg(folder, name)});
    const auto written = AtomicFile::write(place.path, bytes, Access::everyoneReads);
    if (!written && place.isReserved)
        QFile::remove(place.path);
    journal.clear(place.path);
    if (!written)
        return std::unexpected(written.error());
    return place.path;
}

Result logged(const char* what, Result result)
{
    if (!result)
        logSaveFailure(what, result.error());
    return result;
}

Result saveNew(const SaveSettings& settings, const QImage& image, const QDateTime& date,
               std::optional<double> pixelScale, const SaveService::MakePng& png, ReservationJournal& journal)
{
    const Picture picture = reducedAsWanted(settings, image, pixelScale);
    const auto format = SaveService::resolvedFormat(settings, picture.image);
    const auto bytes = bytesOf(picture, format, settings.quality, png);
    if (!bytes)
        return std::unexpected(bytes.error());
    const QString name = FileNameFormatter::format(settings.fileNameTemplate, date) + "." + rawString(format);
    const auto path = writeToNewFile(settings.folder, name, *bytes, journal);
    if (!path)
        return std::unexpected(path.error());
    return Saved{*path, ifFullResPNG(picture, format, *bytes)};
}

Result saveOver(const SaveSettings& settings, const Picture& picture, const QString& path)
{
    if (!QFileInfo::exists(path))
        return std::unexpected(
            SaveFailure{QCoreApplication::translate("SaveService", "%1 is not there any more.").arg(path)});
    const auto named = imageFormatForExtension(QFileInfo(path).suffix());
    const auto format = named ? *named : SaveService::resolvedFormat(settings, picture.image);
    const auto bytes = ImageCodec::encode(picture.image, format, settings.quality);
    if (!bytes)
        return std::unexpected(bytes.error());
    if (const auto written = AtomicFile::write(path, *bytes, Access::everyoneReads); !written)
        return std::unexpected(written.error());
    return Saved{path, ifFullResPNG(picture, format, *bytes)};
}

} // namespace

QImage SaveService::reduced(const SaveSettings& settings, const QImage& image, std::optional<double> pixelScale)
{
    if (!settings.downscale)
        return image;
    return Resampling::reduced(image, pixelScale.value_or(settings.mainScreenScale)).value_or(image);
}

ImageFormat SaveService::resolvedFormat(const SaveSettings& settings, QSize pixels, bool hasVisibleTransparency)
{
    if (!settings.formatAuto)
        return settings.format;
    const bool isLarge = qint64(pixels.width()) * pixels.height() >= largePixels;
    return isLarge && !hasVisibleTransparency ? ImageFormat::jpeg : ImageFormat::png;
}

ImageFormat SaveService::resolvedFormat(const SaveSettings& settings, const QImage& image)
{
    return resolvedFormat(settings, image.size(), settings.formatAuto && ImageCodec::hasVisibleTransparency(image));
}

Result SaveService::saveToDefaultLocationReturningPNG(const SaveSettings& settings, const QImage& image,
                                                      const QDateTime& date, std::optional<double> pixelScale,
                                                      const MakePng& png, ReservationJournal& journal)
{
    return logged("Kovrel save failed: ", saveNew(settings, image, date, pixelScale, png, journal));
}

Result SaveService::overwrite(const SaveSettings& settings, const QImage& image, const QString& path,
                              std::optional<double> pixelScale)
{
    return logged("Kovrel re-save failed: ", saveOver(settings, reducedAsWanted(settings, image, pixelScale), path));
}

Result SaveService::overwriteFile(const SaveSettings& settings, const QImage& image, const QString& path)
{
    return logged("Kovrel re-save failed: ", saveOver(settings, {image, false}, path));
}

Result SaveService::saveAs(const QImage& image, const QString& path, ImageFormat format, double quality,
                           const MakePng& png)
{
    const auto bytes = bytesOf({image, false}, format, quality, png);
    if (!bytes)
        return std::unexpected(bytes.error());
    if (const auto written = AtomicFile::write(path, *bytes, Access::everyoneReads); !written)
        return std::unexpected(written.error());
    return Saved{path, ifFullResPNG({image, false}, format, *bytes)};
}

Result SaveService::saveTo(const QImage& image, const QString& path, double quality, const MakePng& png)
{
    const auto format = imageFormatForExtension(QFileInfo(path).suffix());
    if (!format)
        return std::unexpected(SaveFailure{
            QCoreApplication::translate("SaveService", "%1 should end in .png, .jpeg, .heic or .tiff.").arg(path)});
    return saveAs(image, path, *format, quality, png);
}

} // namespace Kovrel
