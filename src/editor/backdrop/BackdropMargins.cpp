#include "editor/backdrop/BackdropMargins.h"

#include <algorithm>
#include <cstdlib>

namespace Kovrel {

namespace {

// What lossy formats make of an even colour.
constexpr int tolerance = 6;

// Whether a pixel is of another colour than the page.
struct Differs {
    QRgb page;

    bool operator()(QRgb pixel) const
    {
        const auto isFar = [](int one, int other) { return std::abs(one - other) > tolerance; };
        return isFar(qRed(pixel), qRed(page)) || isFar(qGreen(pixel), qGreen(page)) ||
               isFar(qBlue(pixel), qBlue(page)) || isFar(qAlpha(pixel), qAlpha(page));
    }
};

// Finds the rows and columns that hold anything but the colour of the upper left pixel.
class Content {
public:
    explicit Content(const QImage& image)
        : m_image(image.convertToFormat(QImage::Format_ARGB32_Premultiplied)), m_differs{row(0)[0]}
    {
    }

    // Nothing where there is no content.
    QRect box() const
    {
        int top = 0;
        int bottom = m_image.height();
        while (top < bottom && isPage(top, 0, m_image.width()))
            ++top;
        while (bottom > top && isPage(bottom - 1, 0, m_image.width()))
            --bottom;
        int left = m_image.width();
        int right = 0;
        for (int y = top; y < bottom; ++y) {
            const QRgb* const pixels = row(y);
            left = int(std::find_if(pixels, pixels + left, m_differs) - pixels);
            if (!isPage(y, right, m_image.width()))
                right = lastContent(y) + 1;
        }
        return {left, top, right - left, bottom - top};
    }

private:
    const QRgb* row(int y) const { return reinterpret_cast<const QRgb*>(m_image.constScanLine(y)); }

    bool isPage(int y, int from, int to) const { return std::none_of(row(y) + from, row(y) + to, m_differs); }

    int lastContent(int y) const
    {
        int last = m_image.width() - 1;
        while (!m_differs(row(y)[last]))
            --last;
        return last;
    }

    QImage m_image;
    Differs m_differs;
};

} // namespace

BackdropMargins BackdropMargins::scaled(double factor) const
{
    return {left * factor, top * factor, right * factor, bottom * factor};
}

BackdropMargins BackdropMargins::measured(const QImage& image)
{
    if (image.isNull())
        return {};
    const QRect box = Content(image).box();
    if (box.isEmpty())
        return {};
    return {double(box.left()), double(box.top()), double(image.width() - 1 - box.right()),
            double(image.height() - 1 - box.bottom())};
}

} // namespace Kovrel
