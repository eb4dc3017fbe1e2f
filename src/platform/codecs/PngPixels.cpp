#include "platform/codecs/PngPixels.h"

#include "imaging/Simd.h"
#include "platform/ImageCodec.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QRgb opaque = 0xFF000000;
constexpr size_t slotCount = 2048; // sparse: a search rarely takes a second step

QImage inWholeBytes(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return image;
    default:
        return image.convertToFormat(QImage::Format_RGB32);
    }
}

KOVREL_SIMD void toRgb(const QRgb* line, int width, uint8_t* __restrict out)
{
    for (int x = 0; x < width; ++x) {
        const QRgb pixel = line[x];
        *out++ = uint8_t(pixel >> 16);
        *out++ = uint8_t(pixel >> 8);
        *out++ = uint8_t(pixel);
    }
}

} // namespace

PngPixels::Colours::Colours() : m_slots(slotCount) {}

size_t PngPixels::Colours::slotOf(QRgb colour) const
{
    size_t slot = (colour * 0x9E3779B1u) >> 21;
    while (m_slots[slot].colour != 0 && m_slots[slot].colour != colour)
        slot = (slot + 1) % slotCount;
    return slot;
}

bool PngPixels::Colours::add(QRgb colour)
{
    Slot& slot = m_slots[slotOf(colour)];
    if (slot.colour == colour)
        return true;
    slot.colour = colour;
    m_sorted.push_back(colour);
    return m_sorted.size() <= 256;
}

uint8_t PngPixels::Colours::indexOf(QRgb colour) const
{
    return m_slots[slotOf(colour)].index;
}

std::optional<PngPixels::Colours> PngPixels::Colours::of(const QImage& image)
{
    // Far rows first: where colours are many, a glance shows it.
    constexpr int stride = 64;
    const int width = image.width();
    Colours colours;
    for (int first = 0; first < stride; ++first) {
        for (int y = first; y < image.height(); y += stride) {
            const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            QRgb last = 0;
            for (int x = 0; x < width; ++x) {
                const QRgb colour = line[x] | opaque;
                if (colour != last && !colours.add(colour))
                    return std::nullopt;
                last = colour;
            }
        }
    }
    std::ranges::sort(colours.m_sorted);
    for (size_t index = 0; index < colours.m_sorted.size(); ++index)
        colours.m_slots[colours.slotOf(colours.m_sorted[index])].index = uint8_t(index);
    return colours;
}

PngPixels::PngPixels(const QImage& image)
{
    if (ImageCodec::hasVisibleTransparency(image)) {
        m_image = image;
        m_layout = Layout::rgba;
        return;
    }
    m_image = inWholeBytes(image);
    m_colours = Colours::of(m_image);
    m_layout = m_colours ? Layout::palette : Layout::rgb;
}

size_t PngPixels::bytesPerPixel() const
{
    return m_layout == Layout::palette ? 1 : m_layout == Layout::rgb ? 3 : 4;
}

QByteArray PngPixels::palette() const
{
    QByteArray bytes;
    for (const QRgb colour : m_colours->sorted())
        bytes.append(char(qRed(colour))).append(char(qGreen(colour))).append(char(qBlue(colour)));
    return bytes;
}

void PngPixels::readIndices(const QRgb* line, uint8_t* out) const
{
    const int width = m_image.width();
    QRgb last = 0;
    uint8_t index = 0;
    for (int x = 0; x < width; ++x) {
        const QRgb colour = line[x] | opaque;
        if (colour != last)
            index = m_colours->indexOf(colour);
        last = colour;
        out[x] = index;
    }
}

void PngPixels::readRow(int y, uint8_t* out) const
{
    const uchar* line = m_image.constScanLine(y);
    if (m_layout == Layout::rgba) {
        const QImage row(line, m_image.width(), 1, m_image.bytesPerLine(), m_image.format());
        const QImage straight = row.convertToFormat(QImage::Format_RGBA8888);
        std::copy_n(straight.constBits(), bytesPerRow(), out);
    } else if (m_layout == Layout::palette) {
        readIndices(reinterpret_cast<const QRgb*>(line), out);
    } else {
        toRgb(reinterpret_cast<const QRgb*>(line), m_image.width(), out);
    }
}

} // namespace Kovrel
