#include "platform/recognisers/codes/ZxingReader.h"

#include "platform/recognisers/codes/PayloadText.h"

#include <QPolygon>

#include <ZXing/ReadBarcode.h>

namespace Kovrel {

namespace {

// ZXing knows in which parts of the code characters were packed as Shift-JIS, and what it says of its own encoding.
std::optional<QString> payloadOf(const ZXing::Result& result)
{
    const ZXing::ByteArray& bytes = result.bytes();
    const auto utf8 = result.hasECI()
                          ? std::nullopt
                          : PayloadText::utf8({reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())});
    return utf8 ? utf8 : PayloadText::checked(QString::fromStdString(result.text()));
}

// The corners are pixels that belong to the code.
QRectF boxOf(const ZXing::Position& position)
{
    QPolygon corners;
    for (const ZXing::PointI& corner : position)
        corners << QPoint(corner.x, corner.y);
    return corners.boundingRect();
}

} // namespace

std::vector<CodeReader::Code> ZxingReader::read(const QImage& grey)
{
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode);
    const ZXing::ImageView view(grey.constBits(), grey.width(), grey.height(), ZXing::ImageFormat::Lum,
                                int(grey.bytesPerLine()));
    std::vector<CodeReader::Code> codes;
    for (const ZXing::Result& result : ZXing::ReadBarcodes(view, hints))
        if (const auto payload = payloadOf(result))
            codes.push_back({*payload, boxOf(result.position())});
    return codes;
}

} // namespace Kovrel
