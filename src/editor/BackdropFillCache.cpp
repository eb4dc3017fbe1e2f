#include "editor/BackdropFillCache.h"

#include "editor/BackdropCatalogue.h"
#include "editor/GradientBitmap.h"
#include "imaging/GaussianBlur.h"

#include <algorithm>

namespace Kovrel {

namespace {

// One on the canvas, and the one before it, to which people go back to compare.
constexpr size_t mostEntries = 2;

QImage plain(QSize canvas)
{
    QImage image(canvas, QImage::Format_RGB32);
    image.fill(Qt::gray);
    return image;
}

QImage rendered(const BackdropFill& fill, QSize canvas, double blur)
{
    if (fill.kind == BackdropFill::Kind::gradient)
        if (const BackdropGradient* const gradient = BackdropCatalogue::gradient(fill.value))
            return gradientBitmap(PreparedGradient(*gradient), canvas);
    if (fill.kind == BackdropFill::Kind::picture)
        if (const BackdropPicture* const picture = BackdropCatalogue::picture(fill.value))
            return picture->bitmap(canvas,
                                   GaussianBlur::sigmaOfBlurRadius(blur * std::min(canvas.width(), canvas.height())));
    return plain(canvas);
}

} // namespace

QImage BackdropFillCache::bitmap(const BackdropFill& fill, QSize canvas, double blur)
{
    const auto isWanted = [&](const Entry& entry) {
        return entry.fill == fill && entry.canvas == canvas && entry.blur == blur;
    };
    const auto found = std::ranges::find_if(m_entries, isWanted);
    if (found != m_entries.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found);
    } else {
        m_entries.push_front({fill, canvas, blur, rendered(fill, canvas, blur)});
        m_entries.resize(std::min(m_entries.size(), mostEntries));
    }
    return m_entries.front().image;
}

} // namespace Kovrel
