#include "platform/codecs/JpegEncoder.h"

#include <QColorSpace>
#include <QPainter>

#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace Kovrel {

namespace {

constexpr double fullColourQuality = 0.9;

QImage onWhite(const QImage& image)
{
    if (!ImageCodec::hasVisibleTransparency(image))
        return image.convertToFormat(QImage::Format_RGB32);
    QImage page(image.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    page.setColorSpace(image.colorSpace());
    page.setDotsPerMeterX(image.dotsPerMeterX());
    page.setDotsPerMeterY(image.dotsPerMeterY());
    QPainter(&page).drawImage(QPoint(), image);
    return page;
}

// The library reports an error by a jump, so nothing with a destructor may live in what it is called from.
struct Compression {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    jmp_buf onError{};
    char message[JMSG_LENGTH_MAX] = "";
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
};

void fail(j_common_ptr info)
{
    auto* compression = static_cast<Compression*>(info->client_data);
    info->err->format_message(info, compression->message);
    std::longjmp(compression->onError, 1);
}

void setParameters(jpeg_compress_struct& info, const QImage& image, double quality)
{
    info.image_width = JDIMENSION(image.width());
    info.image_height = JDIMENSION(image.height());
    info.input_components = 4;
    info.in_color_space = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? JCS_EXT_BGRX : JCS_EXT_XRGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, qBound(1, qRound(quality * 100), 100), TRUE);
    if (quality >= fullColourQuality)
        info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    constexpr UINT8 dotsPerCentimetre = 2;
    info.density_unit = dotsPerCentimetre;
    info.X_density = UINT16(qBound(1, qRound(image.dotsPerMeterX() / 100.0), 65535));
    info.Y_density = UINT16(qBound(1, qRound(image.dotsPerMeterY() / 100.0), 65535));
}

bool compress(Compression& compression, const QImage& image, const QByteArray& profile, double quality)
{
    jpeg_compress_struct& info = compression.info;
    info.err = jpeg_std_error(&compression.errors);
    info.client_data = &compression;
    compression.errors.error_exit = fail;
    if (setjmp(compression.onError))
        return false;
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &compression.bytes, &compression.size);
    setParameters(info, image, quality);
    jpeg_start_compress(&info, TRUE);
    if (!profile.isEmpty())
        jpeg_write_icc_profile(&info, reinterpret_cast<const JOCTET*>(profile.constData()), unsigned(profile.size()));
    while (info.next_scanline < info.image_height) {
        auto* row = const_cast<JSAMPROW>(image.constScanLine(int(info.next_scanline)));
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    return true;
}

} // namespace

std::expected<QByteArray, ImageCodec::Failure> JpegEncoder::encode(const QImage& image, double quality)
{
    const QImage page = onWhite(image);
    const QByteArray profile = page.colorSpace().isValid() ? page.colorSpace().iccProfile() : QByteArray();
    Compression compression;
    const bool isDone = !page.isNull() && compress(compression, page, profile, quality);
    QByteArray file(reinterpret_cast<const char*>(compression.bytes), qsizetype(isDone ? compression.size : 0));
    jpeg_destroy_compress(&compression.info);
    std::free(compression.bytes);
    if (!isDone)
        return std::unexpected(ImageCodec::Failure{"JPEG: " + QString::fromLatin1(compression.message)});
    return file;
}

} // namespace Kovrel
