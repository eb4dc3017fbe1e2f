#include "editor/backdrop/BackdropPicture.h"

#include "editor/backdrop/GradientBitmap.h"
#include "model/HexColor.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

using DitheredImage::Line;

namespace {

// Red, green and blue from 0 to 255, and how much of them covers what is behind.
struct Paint {
    std::array<float, 3> color;
    float alpha;
};

Paint paintOf(const QString& hex)
{
    const QColor color = HexColor::parse(hex).value_or(QColor(Qt::gray));
    return {{float(color.red()), float(color.green()), float(color.blue())}, float(color.alphaF())};
}

// 0 up to -1/2, 1 from 1/2 on, smooth between.
float smoothStep(float value)
{
    const float t = std::clamp(value + 0.5f, 0.0f, 1.0f);
    return t * t * (3 - 2 * t);
}

// A ridge on a canvas, in pixels from the top.
class PlacedRidge {
public:
    PlacedRidge(const BackdropPicture::Ridge& ridge, QSize canvas)
        : m_crest(paintOf(ridge.crest)),
          m_foot(paintOf(ridge.foot)),
          m_depth(float(ridge.depth * canvas.height())),
          m_softness(std::max(1.0f, float(ridge.softness * canvas.height()))),
          m_shade(float(ridge.shade)),
          m_shadeReach(std::max(1.0f, float(ridge.shadeReach * canvas.height())))
    {
        for (int x = 0; x < canvas.width(); ++x) {
            const double place = (x + 0.5) / canvas.width();
            double height = ridge.level + ridge.slope * place;
            double top = height;
            for (const auto& [amplitude, length, phase] : ridge.waves) {
                height += amplitude * std::sin(2 * std::numbers::pi * (place / length + phase));
                top += amplitude;
            }
            m_crests.push_back(float((1 - height) * canvas.height()));
            m_tops.push_back(ridge.followsWaves ? m_crests.back() : float((1 - top) * canvas.height()));
        }
        m_top = *std::ranges::min_element(m_crests) - std::max(m_softness, m_shadeReach);
    }

    void paint(Line& line, int y) const
    {
        if (float(y) + 1 < m_top)
            return;
        for (size_t x = 0; x < m_crests.size(); ++x) {
            const float below = float(y) + 0.5f - m_crests[x];
            if (below > -std::max(m_softness, m_shadeReach))
                paintPixel(line, x, below, float(y) + 0.5f - m_tops[x]);
        }
    }

private:
    void paintPixel(Line& line, size_t x, float below, float belowTop) const
    {
        const float covering = smoothStep(below / m_softness);
        const float depth = std::clamp(belowTop / m_depth, 0.0f, 1.0f);
        const float alpha = covering * (m_crest.alpha + depth * (m_foot.alpha - m_crest.alpha));
        const float lit = below < 0 ? 1 - m_shade * shadeAt(-below) : 1 - m_shade;
        for (size_t channel = 0; channel < line.size(); ++channel) {
            const float color = m_crest.color[channel] + depth * (m_foot.color[channel] - m_crest.color[channel]);
            float& value = line[channel][x];
            value = lit * value * (1 - alpha) + alpha * color;
        }
    }

    float shadeAt(float above) const
    {
        const float rest = std::max(0.0f, 1 - above / m_shadeReach);
        return rest * rest;
    }

    Paint m_crest;
    Paint m_foot;
    float m_depth;
    float m_softness;
    float m_shade;
    float m_shadeReach;
    std::vector<float> m_crests; // of each column
    std::vector<float> m_tops;   // where its depth begins
    float m_top = 0;             // above it the ridge changes nothing
};

} // namespace

QImage BackdropPicture::bitmap(QSize size, double sigma) const
{
    if (size.isEmpty())
        return {};
    const GradientGrid gradient(PreparedGradient(ground), size);
    std::vector<PlacedRidge> placed;
    placed.reserve(ridges.size());
    for (const Ridge& ridge : ridges)
        placed.emplace_back(ridge, size);
    return DitheredImage::paintedSoftly(size, sigma, [&](Line& line, int y) {
        gradient.fill(line, y);
        for (const PlacedRidge& ridge : placed)
            ridge.paint(line, y);
    });
}

} // namespace Kovrel
