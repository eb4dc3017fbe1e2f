#include "platform/codecs/TiffEncoder.h"

#include <QBuffer>
#include <QColorSpace>

#include <tiffio.h>

#include <memory>

namespace Kovrel {

namespace {

constexpr int fastDeflate = 1; // the clipboard's reader is waiting
constexpr int rowsPerStrip = 64;

QIODevice* device(thandle_t handle)
{
    return static_cast<QIODevice*>(handle);
}

tmsize_t readBytes(thandle_t handle, void* bytes, tmsize_t size)
{
    return device(handle)->read(static_cast<char*>(bytes), size);
}

tmsize_t writeBytes(thandle_t handle, void* bytes, tmsize_t size)
{
    return device(handle)->write(static_cast<const char*>(bytes), size);
}

toff_t seek(thandle_t handle, toff_t offset, int from)
{
    QIODevice* const file = device(handle);
    const qint64 base = from == SEEK_CUR ? file->pos() : from == SEEK_END ? file->size() : 0;
    file->seek(base + qint64(offset));
    return toff_t(file->pos());
}

int closeNothing(thandle_t)
{
    return 0;
}

toff_t sizeOf(thandle_t handle)
{
    return toff_t(device(handle)->size());
}

struct Closer {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

using Tiff = std::unique_ptr<TIFF, Closer>;

void setLayout(TIFF* tiff, const QImage& image, bool hasAlpha)
{
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, image.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, image.height());
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, hasAlpha ? 4 : 3);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ZIPQUALITY, fastDeflate);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
    const uint16_t straightAlpha = EXTRASAMPLE_UNASSALPHA;
    if (hasAlpha)
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &straightAlpha);
}

void setProfileAndDensity(TIFF* tiff, const QImage& image)
{
    const QByteArray profile = image.colorSpace().isValid() ? image.colorSpace().iccProfile() : QByteArray();
    if (!profile.isEmpty())
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, uint32_t(profile.size()), profile.constData());
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, image.dotsPerMeterX() / 100.0);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, image.dotsPerMeterY() / 100.0);
}

bool writeRows(TIFF* tiff, QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        if (TIFFWriteScanline(tiff, image.scanLine(y), uint32_t(y)) < 0)
            return false;
    return TIFFWriteDirectory(tiff) != 0;
}

} // namespace

std::expected<QByteArray, ImageCodec::Failure> TiffEncoder::encode(const QImage& image)
{
    const bool hasAlpha = ImageCodec::hasVisibleTransparency(image);
    QImage pixels = image.convertToFormat(hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    QBuffer file;
    file.open(QIODevice::ReadWrite);
    Tiff tiff(
        TIFFClientOpen("picture", "w", &file, readBytes, writeBytes, seek, closeNothing, sizeOf, nullptr, nullptr));
    bool isDone = tiff && !pixels.isNull();
    if (isDone) {
        setLayout(tiff.get(), pixels, hasAlpha);
        setProfileAndDensity(tiff.get(), pixels);
        isDone = writeRows(tiff.get(), pixels);
    }
    tiff.reset();
    if (!isDone)
        return std::unexpected(ImageCodec::Failure{"TIFF: the picture cannot be encoded."});
    return file.data();
}

} // namespace Kovrel
