#include "platform/codecs/heif/ExifDensity.h"

#include <QDataStream>
#include <QIODevice>

#include <optional>

namespace Kovrel {

namespace {

enum Tag : quint16 { xResolution = 0x011A, yResolution = 0x011B, resolutionUnit = 0x0128 };

enum Type : quint16 { shortNumber = 3, rational = 5 };

enum Unit : quint16 { inch = 2, centimetre = 3 };

constexpr quint32 directoryStart = 8;
constexpr quint32 valuesStart = directoryStart + 2 + 3 * 12 + 4;

// What Exif stores at an offset, in the byte order that its first bytes tell.
class Block {
public:
    explicit Block(const QByteArray& bytes) : m_bytes(bytes), m_isLittleEndian(bytes.startsWith("II")) {}

    template <class Number>
    Number at(qint64 offset) const
    {
        QDataStream stream(m_bytes);
        stream.setByteOrder(m_isLittleEndian ? QDataStream::LittleEndian : QDataStream::BigEndian);
        Number number = 0;
        if (offset <= m_bytes.size() && stream.skipRawData(int(offset)) == offset)
            stream >> number;
        return number;
    }

    // The offset of a tag's value field in the first directory.
    std::optional<qint64> find(Tag tag) const
    {
        const qint64 directory = at<quint32>(4);
        const int count = at<quint16>(directory);
        for (int index = 0; index < count; ++index) {
            const qint64 entry = directory + 2 + qint64(index) * 12;
            if (at<quint16>(entry) == tag)
                return entry + 8;
        }
        return std::nullopt;
    }

    // No value where there is none or it makes no sense.
    std::optional<double> rationalOf(Tag tag) const
    {
        const auto field = find(tag);
        const qint64 value = field ? at<quint32>(*field) : 0;
        const double numerator = at<quint32>(value);
        const double denominator = at<quint32>(value + 4);
        if (!field || numerator <= 0 || denominator <= 0)
            return std::nullopt;
        return numerator / denominator;
    }

private:
    QByteArray m_bytes;
    bool m_isLittleEndian;
};

} // namespace

QByteArray ExifDensity::write(const QImage& image)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.writeRawData("MM\0*", 4);
    stream << directoryStart << quint16(3);
    stream << quint16(xResolution) << quint16(rational) << quint32(1) << valuesStart;
    stream << quint16(yResolution) << quint16(rational) << quint32(1) << valuesStart + 8;
    stream << quint16(resolutionUnit) << quint16(shortNumber) << quint32(1) << quint16(centimetre) << quint16(0);
    stream << quint32(0); // no further directory
    stream << quint32(image.dotsPerMeterX()) << quint32(100) << quint32(image.dotsPerMeterY()) << quint32(100);
    return bytes;
}

void ExifDensity::read(const QByteArray& exif, QImage& image)
{
    const Block block(exif);
    const auto x = block.rationalOf(xResolution);
    const auto y = block.rationalOf(yResolution);
    if (!x || !y)
        return;
    const auto unit = block.find(resolutionUnit);
    const double perMetre = unit && block.at<quint16>(*unit) == centimetre ? 100 : 100 / 2.54;
    image.setDotsPerMeterX(qRound(qMin(*x * perMetre, 1e6)));
    image.setDotsPerMeterY(qRound(qMin(*y * perMetre, 1e6)));
}

} // namespace Kovrel
