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

struct ParagraphText {
    QString text;
    QList<QTextLayout::FormatRange> emoji;
    std::vector<qsizetype> origins; // of each character, in the paragraph as it was given
};

void addText(QStringView text, qsizetype origin, ParagraphText& paragraph)
{
    for (qsizetype index = 0; index < text.size(); ++index)
        paragraph.origins.push_back(origin + index);
    paragraph.text += text;
}

void addEmoji(QStringView emoji, qsizetype origin, ParagraphText& paragraph)
{
    QTextCharFormat format;
    format.setFontFamilies({emojiFamily});
    const qsizetype start = paragraph.text.size();
    for (qsizetype index = 0; index < emoji.size(); ++index)
        if (emoji[index] != emojiSelector)
            addText(emoji.sliced(index, 1), origin + index, paragraph);
    paragraph.emoji.push_back({int(start), int(paragraph.text.size() - start), format});
}

// Signs that are text in other fonts are pictures where a selector or a key cap follows them, with all they are joined
// to. The toolkit would take the first font that has them, and another one for the selector, which keeps it from
// joining them; so the selectors are left out.
ParagraphText withEmoji(const QString& text)
{
    static const QRegularExpression sequence(
        R"([0-9#*]\x{FE0F}?\x{20E3}|(?:\p{Extended_Pictographic}[\x{1F3FB}-\x{1F3FF}]?\x{FE0F}?\x{200D}?)+)");
    ParagraphText paragraph;
    qsizetype end = 0;
    for (auto matches = sequence.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        if (!match.capturedView().contains(emojiSelector) && !match.capturedView().contains(keyCap))
            continue;
        addText(QStringView(text).mid(end, match.capturedStart() - end), end, paragraph);
        addEmoji(match.capturedView(), match.capturedStart(), paragraph);
        end = match.capturedEnd();
    }
    addText(QStringView(text).mid(end), end, paragraph);
    paragraph.origins.push_back(text.size());
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
    qsizetype start = 0;
    for (const QString& line : paragraphsOf(text)) {
        ParagraphText paragraph = withEmoji(line);
        for (qsizetype& origin : paragraph.origins)
            origin += start;
        Paragraph& added = m_paragraphs.emplace_back();
        added.origins = std::move(paragraph.origins);
        added.layout.setText(paragraph.text);
        added.layout.setFont(attributes.font);
        added.layout.setTextOption(optionFor(paragraph.text));
        added.layout.setFormats(paragraph.emoji);
        start += line.size() + 1;
    }
    layOut(wrapWidth ? std::min(*wrapWidth / attributes.scale, unbounded) : unbounded);
    // Once more, so that lines which end on the right end where the longest one does.
    layOut(std::ceil(m_size.width));
    m_size = {m_size.width * attributes.scale, m_size.height * attributes.scale};
}

void LabelText::layOut(double width)
{
    m_size = {};
    for (Paragraph& paragraph : m_paragraphs) {
        QTextLayout& layout = paragraph.layout;
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
    for (const Paragraph& paragraph : m_paragraphs)
        for (int index = 0; index < paragraph.layout.lineCount(); ++index)
            paragraph.layout.lineAt(index).draw(&painter, {});
    painter.restore();
}

std::vector<QPainterPath> LabelText::outlines(QPointF origin, double scale) const
{
    QTransform place = QTransform::fromTranslate(origin.x(), origin.y());
    place.scale(scale * m_attributes.scale, -scale * m_attributes.scale);
    std::vector<QPainterPath> paths;
    for (const Paragraph& paragraph : m_paragraphs)
        for (const QGlyphRun& run : paragraph.layout.glyphRuns())
            if (!hasPictures(run.rawFont()))
                addGlyphs(run, place, paths);
    return paths;
}

// --- Editing

const LabelText::Paragraph& LabelText::paragraphOf(qsizetype position) const
{
    const auto found = std::ranges::find_if(
        m_paragraphs, [position](const Paragraph& paragraph) { return position <= paragraph.origins.back(); });
    return found == m_paragraphs.end() ? m_paragraphs.back() : *found;
}

// A character that is left out counts as the next one.
int LabelText::within(const Paragraph& paragraph, qsizetype position)
{
    return int(std::ranges::lower_bound(paragraph.origins, position) - paragraph.origins.begin());
}

QLineF LabelText::caret(qsizetype position) const
{
    if (m_paragraphs.empty())
        return {};
    const Paragraph& paragraph = paragraphOf(position);
    const int place = std::min(within(paragraph, position), int(paragraph.layout.text().size()));
    const QTextLine line = paragraph.layout.lineForTextPosition(place);
    const double x = line.cursorToX(place) * m_attributes.scale;
    return {x, line.y() * m_attributes.scale, x, (line.y() + line.height()) * m_attributes.scale};
}

qsizetype LabelText::positionAt(QPointF point) const
{
    if (m_paragraphs.empty())
        return 0;
    const QPointF at = point / m_attributes.scale;
    const Paragraph* nearest = nullptr;
    QTextLine line;
    for (const Paragraph& paragraph : m_paragraphs)
        for (int index = 0; index < paragraph.layout.lineCount(); ++index)
            if (!nearest || paragraph.layout.lineAt(index).y() <= at.y()) {
                nearest = &paragraph;
                line = paragraph.layout.lineAt(index);
            }
    return nearest->origins[size_t(line.xToCursor(at.x()))];
}

std::vector<QRectF> LabelText::selection(qsizetype from, qsizetype to) const
{
    std::vector<QRectF> rects;
    for (const Paragraph& paragraph : m_paragraphs)
        for (int index = 0; index < paragraph.layout.lineCount(); ++index) {
            const QTextLine line = paragraph.layout.lineAt(index);
            const int first = std::max(within(paragraph, from), line.textStart());
            const int last = std::min(within(paragraph, to), line.textStart() + line.textLength());
            if (first >= last || from > paragraph.origins.back())
                continue;
            const double left = line.cursorToX(first);
            const double right = line.cursorToX(last);
            const QRectF rect(std::min(left, right), line.y(), std::abs(right - left), line.height());
            rects.emplace_back(rect.topLeft() * m_attributes.scale, rect.size() * m_attributes.scale);
        }
    return rects;
}

bool LabelText::isRightToLeft(qsizetype position) const
{
    return !m_paragraphs.empty() && paragraphOf(position).layout.text().isRightToLeft();
}

} // namespace Kovrel
