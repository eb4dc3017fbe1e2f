#include "recognition/codes/RegionSearch.h"

#include "recognition/codes/CodePlaces.h"
#include "recognition/codes/GreyPicture.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int enlargedSide = 2 * CodeRegions::tileSide;
constexpr int mostEnlarged = 3;

int longSide(const QImage& image)
{
    return std::max(image.width(), image.height());
}

} // namespace

CodeReader::Outcome RegionSearch::run(const QImage& grey, const CodeRegions::Region& region)
{
    const QImage part = region.isReduced ? GreyPicture::halved(grey) : GreyPicture::view(grey, region.pixels);
    lookPlainly(part);
    if (m_codes.empty() && isSmall(part))
        lookFiltered(part);
    if (m_codes.empty() && isSmall(part))
        lookEnlarged(part);
    if (!m_error.isEmpty())
        return std::unexpected(m_error);
    const double scale = region.isReduced ? 2 : 1;
    for (CodeReader::Code& code : m_codes)
        code.box = {region.pixels.topLeft() + code.box.topLeft() * scale, code.box.size() * scale};
    return std::move(m_codes);
}

bool RegionSearch::isSmall(const QImage& image)
{
    return longSide(image) <= CodeRegions::tileSide;
}

void RegionSearch::lookPlainly(const QImage& part)
{
    look(part, 1);
    look(GreyPicture::inverted(part), 1);
}

// Noisy photographs, and codes made of dots.
void RegionSearch::lookFiltered(const QImage& part)
{
    const QImage soft = GreyPicture::softened(part);
    look(soft, 1);
    if (m_codes.empty())
        look(GreyPicture::sharpened(part, soft), 1);
}

// Codes of hardly a pixel for each module, and blurred ones.
void RegionSearch::lookEnlarged(const QImage& part)
{
    const int factor = std::min(enlargedSide / longSide(part), mostEnlarged);
    for (const QRect& place : CodePlaces::of(part)) {
        const size_t known = m_codes.size();
        QImage enlarged = GreyPicture::enlarged(GreyPicture::view(part, place), factor);
        look(enlarged, 1.0 / factor);
        if (m_codes.size() == known)
            look(GreyPicture::inverted(std::move(enlarged)), 1.0 / factor);
        for (size_t code = known; code < m_codes.size(); ++code)
            m_codes[code].box.translate(place.topLeft());
    }
}

void RegionSearch::look(const QImage& picture, double scale)
{
    const CodeReader::Outcome seen = m_reader.read(picture, m_engine);
    if (!seen) {
        m_error = seen.error();
        return;
    }
    for (const CodeReader::Code& code : *seen)
        m_codes.push_back({code.payload, {code.box.topLeft() * scale, code.box.size() * scale}});
}

} // namespace Kovrel
