#include "recognition/codes/RegionSearch.h"

#include "recognition/codes/CodePlaces.h"
#include "recognition/codes/GreyPicture.h"

#include <algorithm>
#include <functional>

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
        lookAtPlaces(part);
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

// Noisy photographs, codes made of dots, and codes in a shadow.
void RegionSearch::lookFiltered(const QImage& part)
{
    const QImage soft = GreyPicture::softened(part);
    look(soft, 1);
    if (m_codes.empty())
        look(GreyPicture::sharpened(part, soft), 1);
    if (m_codes.empty())
        look(GreyPicture::levelled(part), 1);
}

void RegionSearch::lookAtPlaces(const QImage& part)
{
    const int factor = std::min(enlargedSide / longSide(part), mostEnlarged);
    for (const QRect& place : CodePlaces::of(part)) {
        const size_t known = m_codes.size();
        lookClosely(GreyPicture::view(part, place), factor);
        for (size_t code = known; code < m_codes.size(); ++code)
            m_codes[code].box.translate(place.topLeft());
    }
}

// Codes of hardly a pixel for each module and blurred ones are seen enlarged, those under much noise softened twice.
void RegionSearch::lookClosely(const QImage& place, int factor)
{
    const auto soft = [&] { return GreyPicture::softened(GreyPicture::softened(place)); };
    const auto enlarged = [&] { return GreyPicture::enlarged(place, factor); };

    struct Look {
        std::function<QImage()> picture;
        double scale;
    };

    const Look looks[] = {
        {enlarged, 1.0 / factor},
        {[&] { return GreyPicture::inverted(enlarged()); }, 1.0 / factor},
        {[&] { return GreyPicture::levelled(soft()); }, 1},
        {[&] { return GreyPicture::halved(soft()); }, 2},
        {[&] { return GreyPicture::enlarged(GreyPicture::sharpened(place, soft()), factor); }, 1.0 / factor},
    };
    const size_t known = m_codes.size();
    for (const Look& one : looks)
        if (m_codes.size() == known)
            look(one.picture(), one.scale);
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
