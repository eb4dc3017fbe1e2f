#include "bench/pages/PageWriter.h"

#include <QRegularExpression>

namespace Kovrel::Bench {

namespace {

constexpr QSize largestPage(3000, 2400);
constexpr int left = 60;
constexpr int widestBar = 60; // letters

} // namespace

PageWriter::PageWriter(const PageStyle& style)
    : m_style(style), m_image(largestPage, QImage::Format_RGB32), m_ink(style.ink), m_y(60 + style.pixelSize)
{
    m_image.fill(style.ground);
    m_painter.begin(&m_image);
    m_painter.setRenderHint(QPainter::Antialiasing);
    setFont(1);
}

void PageWriter::setFont(double scale, bool isBold, bool isItalic, bool isUnderlined)
{
    m_font = QFont(m_style.family);
    m_font.setPixelSize(qRound(m_style.pixelSize * scale));
    m_font.setBold(isBold);
    m_font.setItalic(isItalic);
    m_font.setUnderline(isUnderlined);
    m_font.setHintingPreference(m_style.isHinted ? QFont::PreferFullHinting : QFont::PreferNoHinting);
    m_painter.setFont(m_font);
}

void PageWriter::write(int x, int baseline, const QString& text)
{
    static const QRegularExpression literal(R"("[^"]*"|\b[0-9][0-9.]*\b)");
    static const QRegularExpression columnGap("  +");
    m_used |= QFontMetrics(m_font).boundingRect(text).translated(x, baseline);
    m_texts += text.split(columnGap, Qt::SkipEmptyParts);
    if (!m_style.isColourful)
        return drawRun(x, baseline, text, false);
    qsizetype done = 0;
    for (auto match = literal.globalMatch(text); match.hasNext();) {
        const auto found = match.next();
        drawRun(x, baseline, text.mid(done, found.capturedStart() - done), false);
        drawRun(x, baseline, found.captured(), true);
        done = found.capturedEnd();
    }
    drawRun(x, baseline, text.mid(done), false);
}

void PageWriter::drawRun(int& x, int baseline, const QString& run, bool isLiteral)
{
    m_painter.setPen(isLiteral ? m_style.literal : m_ink);
    m_painter.drawText(x, baseline, run);
    x += advance(run);
}

void PageWriter::line(const QString& text, int indent)
{
    write(left + indent * advance(" "), m_y, text);
    skip(1);
}

void PageWriter::lineOn(const QColor& ground, const QString& text)
{
    const QRect bar(left - 10, m_y - lineHeight() * 3 / 4, widestBar * advance("n"), lineHeight());
    m_painter.fillRect(bar, ground);
    include(bar);
    line(text);
}

QImage PageWriter::finished(int margin)
{
    m_painter.end();
    return m_image.copy(m_used.adjusted(-margin, -margin, margin, margin) & m_image.rect());
}

} // namespace Kovrel::Bench
