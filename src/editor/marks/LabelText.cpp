#include "editor/marks/LabelText.h"

#include "editor/marks/Annotation.h"
#include "model/Contrast.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QRegularExpression>

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

constexpr QChar emojiSelector(0xfe0f);
constexpr QChar keyCap(0x20e3);
const QString emojiFamily = "Noto Color Emoji";
// Behind Inter, which has Latin, Greek and Cyrillic only, faces of its proportions and weights for other scripts.
const QStringList families{"Inter",          "Noto Sans",        "Noto Sans Hebrew", "Noto Sans Arabic",
                           "Noto Sans Thai", "Noto Sans CJK SC", "Noto Sans CJK JP", "DejaVu Sans",
                           emojiFamily};

TextAttributes attributes(double fontSize, QFont::Weight weight, const std::optional<QColor>& color)
{
    QFont font;
    font.setFamilies(families);
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

void addGlyphs(const QGlyphRun& run, const QTransform& place, std::vector<QPainterPath>& paths)
{
    const auto glyphs = run.glyphIndexes();
    const auto positions = run.positions();
    for (qsizetype index = 0; index < glyphs.size(); ++index)
        paths.push_back(place.map(run.rawFont().pathForGlyph(glyphs[index]).translated(positions[index])));
}

QStringList paragraphsOf(const QString& text)
{
    return text.left(longestText).replace("\r\n", "\n").split(u'\n');
}

struct Paragraph {
    QString text;
    QList<QTextLayout::FormatRange> emoji;
};

void addEmoji(QString emoji, Paragraph& paragraph)
{
    QTextCharFormat format;
    format.setFontFamilies({emojiFamily});
    emoji.remove(emojiSelector);
    paragraph.emoji.push_back({int(paragraph.text.size()), int(emoji.size()), format});
    paragraph.text += emoji;
}

// Signs that are text in other fonts are pictures where a selector or a key cap follows them, with all they are joined
// to. The toolkit would take the first font that has them, and another one for the selector, which keeps it from
// joining them; so the selectors are left out.
Paragraph withEmoji(const QString& text)
{
    static const QRegularExpression sequence(
        R"([0-9#*]\x{FE0F}?\x{20E3}|(?:\p{Extended_Pictographic}[\x{1F3FB}-\x{1F3FF}]?\x{FE0F}?\x{200D}?)+)");
    Paragraph paragraph;
    qsizetype end = 0;
    for (auto matches = sequence.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        if (!match.capturedView().contains(emojiSelector) && !match.capturedView().contains(keyCap))
            continue;
        paragraph.text += text.mid(end, match.capturedStart() - end);
        addEmoji(match.captured(), paragraph);
        end = match.capturedEnd();
    }
    paragraph.text += text.mid(end);
    return paragraph;
}

QTextOption optionFor(const QString& paragraph)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    option.setAlignment(paragraph.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
    return option;
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
    : m_attributes(attributes)
{
    if (!(attributes.scale > 0))
        return;
    for (const QString& line : paragraphsOf(text)) {
        const Paragraph paragraph = withEmoji(line);
        QTextLayout& layout = m_paragraphs.emplace_back(paragraph.text, attributes.font);
        layout.setTextOption(optionFor(paragraph.text));
        layout.setFormats(paragraph.emoji);
    }
    layOut(wrapWidth ? std::min(*wrapWidth / attributes.scale, unbounded) : unbounded);
    // Once more, so that lines which end on the right end where the longest one does.
    layOut(std::ceil(m_size.width));
    m_size = {m_size.width * attributes.scale, m_size.height * attributes.scale};
}

void LabelText::layOut(double width)
{
    m_size = {};
    for (QTextLayout& layout : m_paragraphs) {
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLeadingIncluded(true);
            line.setLineWidth(width);
            line.setPosition({0, m_size.height});
            m_size.width = std::max(m_size.width, double(line.naturalTextWidth()));
            m_size.height += line.height();
        }
        layout.endLayout();
    }
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
    for (const QTextLayout& layout : m_paragraphs)
        for (int index = 0; index < layout.lineCount(); ++index)
            layout.lineAt(index).draw(&painter, {});
    painter.restore();
}

std::vector<QPainterPath> LabelText::outlines(QPointF origin, double scale) const
{
    QTransform place = QTransform::fromTranslate(origin.x(), origin.y());
    place.scale(scale * m_attributes.scale, -scale * m_attributes.scale);
    std::vector<QPainterPath> paths;
    for (const QTextLayout& layout : m_paragraphs)
        for (const QGlyphRun& run : layout.glyphRuns())
            if (!hasPictures(run.rawFont()))
                addGlyphs(run, place, paths);
    return paths;
}

} // namespace Kovrel
