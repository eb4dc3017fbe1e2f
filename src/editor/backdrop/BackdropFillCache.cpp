#include "editor/backdrop/BackdropFillCache.h"

#include "editor/backdrop/BackdropCatalogue.h"
#include "editor/backdrop/GradientBitmap.h"
#include "imaging/GaussianBlur.h"
#include "imaging/Resampling.h"

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

// A picture of the user's that covers the canvas.
QImage covering(const QImage& picture, QSize canvas, double sigma)
{
    const QRect part = Resampling::coveringPart(picture.size(), canvas);
    const auto resampled = Resampling::resampledExactly(picture.copy(part), canvas);
    if (!resampled)
        return {};
    return DitheredImage::paintedSoftly(canvas, sigma, [pixels = *resampled](DitheredImage::Line& line, int y) {
        const auto* const row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        for (size_t x = 0; x < line[0].size(); ++x) {
            line[0][x] = float(qRed(row[x]));
            line[1][x] = float(qGreen(row[x]));
            line[2][x] = float(qBlue(row[x]));
        }
    });
}

QColor meanColor(const QImage& image)
{
    const auto one = Resampling::resampledExactly(image, {1, 1});
    return one ? one->pixelColor(0, 0) : QColor(Qt::gray);
}

} // namespace

void BackdropFillCache::setPicture(const QString& value, const QImage& picture)
{
    if (m_pictureValue == value && m_picture.cacheKey() == picture.cacheKey())
        return;
    m_pictureValue = value;
    m_picture = picture;
    m_entries.remove_if([&](const Entry& kept) { return kept.fill.value == value; });
}

QImage BackdropFillCache::rendered(const BackdropFill& fill, QSize canvas, double blur) const
{
    const double sigma = GaussianBlur::sigmaOfBlurRadius(blur * std::min(canvas.width(), canvas.height()));
    if (fill.kind == BackdropFill::Kind::gradient)
        if (const BackdropGradient* const gradient = BackdropCatalogue::gradient(fill.value))
            return gradientBitmap(PreparedGradient(*gradient), canvas);
    if (fill.kind == BackdropFill::Kind::picture) {
        if (const BackdropPicture* const picture = BackdropCatalogue::picture(fill.value))
            return picture->bitmap(canvas, sigma);
        if (fill.value == m_pictureValue && !m_picture.isNull())
            return covering(m_picture, canvas, sigma);
    }
    return plain(canvas);
}

BackdropFillCache::Entry& BackdropFillCache::entry(const BackdropFill& fill, QSize canvas, double blur)
{
    const auto isWanted = [&](const Entry& kept) {
        return kept.fill == fill && kept.canvas == canvas && kept.blur == blur;
    };
    const auto found = std::ranges::find_if(m_entries, isWanted);
    if (found != m_entries.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found);
    } else {
        m_entries.push_front({fill, canvas, blur, rendered(fill, canvas, blur)});
        m_entries.resize(std::min(m_entries.size(), mostEntries));
    }
    return m_entries.front();
}

QImage BackdropFillCache::bitmap(const BackdropFill& fill, QSize canvas, double blur)
{
    return entry(fill, canvas, blur).image;
}

QColor BackdropFillCache::mean(const BackdropFill& fill, QSize canvas, double blur)
{
    Entry& kept = entry(fill, canvas, blur);
    if (!kept.mean)
        kept.mean = meanColor(kept.image);
    return *kept.mean;
}

} // namespace Kovrel
