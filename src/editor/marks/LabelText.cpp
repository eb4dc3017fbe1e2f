#include "editor/marks/LabelText.h"

#include "editor/marks/Annotation.h"
#include "model/Contrast.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Qt takes whole pixel sizes only; from this one all others are scaled.
constexpr int layoutSize = 64;
// White is still read well on a strong orange or green.
constexpr double lightPlate = 0.5;
constexpr double unbounded = 1e7;
// More is not read by anybody, and laying it out would take seconds.
constexpr qsizetype longestText = 20'000;

TextAttributes attributes(double fontSize, QFont::Weight weight, const std::optional<QColor>& color)
{
    QFont font;
    font.setFamilies({"Inter", "Noto Sans", "DejaVu Sans", "Noto Color Emoji"});
    font.setPixelSize(layoutSize);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): Qt takes them together
    font.setStyleStrategy(QFont::StyleStrategy(QFont::NoSubpixelAntialias | QFont::PreferQuality));
    return {font, fontSize / layoutSize, color};
}

// Its glyphs are pictures. Asking such a font for an outline would leave it at a wrong size, too.
bool hasPictures(const QRawFont& font)
{
    return !font.fontTable("CBLC").isEmpty() || !font.fontTable("sbix").isEmpty() || !font.fontTable("COLR").isEmpty();
}

QString withLineSeparators(QString text)
{
    text.truncate(longestText);
    return text.replace("\r\n", "\n").replace(u'\n', QChar(QChar::LineSeparator));
}

} // namespace

TextAttributes textAttributes(double fontSize, const std::optional<QColor>& color)
{
    return attributes(fontSize, QFont::DemiBold, color);
}

TextAttributes boldTextAttributes(double fontSize, const std::optional<QColor>& color)
{
    return attributes(fontSize, QFont::Bold, color);
}

QColor textColorOn(const QColor& plate)
{
    return relativeLuminance(plate) > lightPlate ? QColor(0x1c, 0x1c, 0x1e) : QColor(Qt::white);
}

LabelText::LabelText(const QString& text, double fontSize, std::optional<double> wrapWidth)
    : LabelText(text, textAttributes(fontSize, std::nullopt), wrapWidth)
{
}

LabelText::LabelText(const QString& text, const TextAttributes& attributes, std::optional<double> wrapWidth)
    : m_attributes(attributes), m_layout(withLineSeparators(text), attributes.font)
{
    if (!(attributes.scale > 0))
        return;
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    option.setAlignment(text.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    m_layout.setTextOption(option);
    layOut(wrapWidth ? std::min(*wrapWidth / attributes.scale, unbounded) : unbounded);
    // Once more, so that lines which end on the right end where the longest one does.
    layOut(std::ceil(m_size.width));
    m_size = {m_size.width * attributes.scale, m_size.height * attributes.scale};
}

void LabelText::layOut(double width)
{
    m_size = {};
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({0, m_size.height});
        m_size.width = std::max(m_size.width, double(line.naturalTextWidth()));
        m_size.height += line.height();
    }
    m_layout.endLayout();
}

double LabelText::lineHeight(double fontSize)
{
    const TextAttributes attributes = textAttributes(fontSize, std::nullopt);
    const QFontMetricsF metrics(attributes.font);
    return (metrics.ascent() + metrics.descent() + metrics.leading()) * attributes.scale;
}

void LabelText::draw(QPainter& painter, QPointF origin, double scale, const QColor& color) const
{
    painter.save();
    painter.translate(origin.x(), origin.y());
    painter.scale(scale * m_attributes.scale, -scale * m_attributes.scale);
    painter.setPen(color);
    for (int index = 0; index < m_layout.lineCount(); ++index)
        m_layout.lineAt(index).draw(&painter, {});
    painter.restore();
}

std::vector<QPainterPath> LabelText::outlines(QPointF origin, double scale) const
{
    QTransform place = QTransform::fromTranslate(origin.x(), origin.y());
    place.scale(scale * m_attributes.scale, -scale * m_attributes.scale);
    std::vector<QPainterPath> paths;
    for (const QGlyphRun& run : m_layout.glyphRuns()) {
        if (hasPictures(run.rawFont()))
            continue;
        const auto glyphs = run.glyphIndexes();
        const auto positions = run.positions();
        for (qsizetype index = 0; index < glyphs.size(); ++index)
            paths.push_back(place.map(run.rawFont().pathForGlyph(glyphs[index]).translated(positions[index])));
    }
    return paths;
}

} // namespace Kovrel
