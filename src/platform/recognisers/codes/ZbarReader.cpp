#include "platform/recognisers/codes/ZbarReader.h"

#include "platform/recognisers/codes/PayloadText.h"

#include <QPolygon>

#include <zbar.h>

#include <memory>

namespace Kovrel {

namespace {

using Scanner = std::unique_ptr<zbar::zbar_image_scanner_t, decltype(&zbar::zbar_image_scanner_destroy)>;
using Image = std::unique_ptr<zbar::zbar_image_t, decltype(&zbar::zbar_image_destroy)>;

// Only QR codes, as the bytes that are in them: ZBar's own guess takes short UTF-8 for Shift-JIS.
Scanner makeScanner()
{
    Scanner scanner(zbar::zbar_image_scanner_create(), zbar::zbar_image_scanner_destroy);
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    zbar::zbar_image_scanner_set_config(scanner.get(), zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_BINARY, 1);
    return scanner;
}

// ZBar knows no padding between rows.
QByteArray pixelsOf(const QImage& grey)
{
    QByteArray pixels;
    pixels.reserve(qsizetype(grey.width()) * grey.height());
    for (int y = 0; y < grey.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(grey.constScanLine(y)), grey.width());
    return pixels;
}

Image makeImage(const QByteArray& pixels, QSize size)
{
    Image image(zbar::zbar_image_create(), zbar::zbar_image_destroy);
    zbar::zbar_image_set_format(image.get(), zbar_fourcc('Y', '8', '0', '0'));
    zbar::zbar_image_set_size(image.get(), unsigned(size.width()), unsigned(size.height()));
    zbar::zbar_image_set_data(image.get(), pixels.constData(), size_t(pixels.size()), nullptr);
    return image;
}

// ZBar does not look whether it gets the memory that it asks for. Throws where it would not: a picture full of edges
// takes some bytes for each pixel.
void expectMemoryFor(qsizetype pixels)
{
    constexpr size_t usual = 8 << 20;
    ::operator delete(::operator new(usual + 4 * size_t(pixels)));
}

QRectF boxOf(const zbar::zbar_symbol_t* symbol)
{
    QPolygon corners;
    for (unsigned i = 0; i < zbar::zbar_symbol_get_loc_size(symbol); ++i)
        corners << QPoint(zbar::zbar_symbol_get_loc_x(symbol, i), zbar::zbar_symbol_get_loc_y(symbol, i));
    return corners.boundingRect();
}

} // namespace

std::vector<CodeReader::Code> ZbarReader::read(const QImage& grey)
{
    const QByteArray pixels = pixelsOf(grey);
    const Scanner scanner = makeScanner();
    const Image image = makeImage(pixels, grey.size());
    expectMemoryFor(pixels.size());
    zbar::zbar_scan_image(scanner.get(), image.get());
    std::vector<CodeReader::Code> codes;
    for (const auto* symbol = zbar::zbar_image_first_symbol(image.get()); symbol;
         symbol = zbar::zbar_symbol_next(symbol)) {
        const QByteArray bytes(zbar::zbar_symbol_get_data(symbol), zbar::zbar_symbol_get_data_length(symbol));
        if (const auto payload = PayloadText::decoded(bytes))
            codes.push_back({*payload, boxOf(symbol)});
    }
    return codes;
}

} // namespace Kovrel
