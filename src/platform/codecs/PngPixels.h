#pragma once

#include <QImage>

#include <cstdint>
#include <optional>
#include <vector>

namespace Kovrel {

// The pixels of a picture in the layout in which a PNG file holds them: red, green and blue, with alpha (not
// premultiplied) where something shines through, or one index byte for each pixel where there are few colours.
// Reading is safe from several threads.
class PngPixels {
public:
    enum class Layout : uint8_t { rgb = 2, palette = 3, rgba = 6 }; // PNG's colour types

    explicit PngPixels(const QImage& image);

    Layout layout() const { return m_layout; }

    size_t bytesPerPixel() const;

    int height() const { return m_image.height(); }

    size_t bytesPerRow() const { return size_t(m_image.width()) * bytesPerPixel(); }

    // Red, green, blue of each colour in turn.
    QByteArray palette() const;

    // Writes `bytesPerRow()` bytes.
    void readRow(int y, uint8_t* out) const;

private:
    // The colours of an opaque picture when there are at most 256 of them.
    class Colours {
    public:
        static std::optional<Colours> of(const QImage& image);

        uint8_t indexOf(QRgb colour) const;

        const std::vector<QRgb>& sorted() const { return m_sorted; }

    private:
        Colours();
        bool add(QRgb colour); // false when there are too many
        size_t slotOf(QRgb colour) const;

        struct Slot {
            QRgb colour = 0; // 0, which no opaque pixel has: free
            uint8_t index = 0;
        };

        std::vector<Slot> m_slots;
        std::vector<QRgb> m_sorted;
    };

    void readIndices(const QRgb* line, uint8_t* out) const;

    QImage m_image;
    Layout m_layout = Layout::rgb;
    std::optional<Colours> m_colours;
};

} // namespace Kovrel
