#pragma once

#include "bench/pages/RandomText.h"

#include <QFont>
#include <QImage>
#include <QPainter>

namespace Kovrel::Bench {

// How a page is drawn.
struct PageStyle {
    QString family;
    int pixelSize = 16; // of the font
    bool isHinted = false;
    bool isColourful = false; // literals have colours of their own
    QColor ink;
    QColor ground;
    QColor literal; // of strings and numbers

    bool isDark() const { return ground.lightness() < 128; }
};

// Writes on a page and notes what it wrote. Coordinates are pixels, origin top-left; a text stands on its baseline.
class PageWriter {
public:
    explicit PageWriter(const PageStyle& style);

    const PageStyle& style() const { return m_style; }

    int lineHeight() const { return m_style.pixelSize * 3 / 2; }

    int advance(const QString& text) const { return QFontMetrics(m_font).horizontalAdvance(text); }

    // Until the next call.
    void setFont(double scale, bool isBold = false, bool isItalic = false, bool isUnderlined = false);

    void setInk(const QColor& ink) { m_ink = ink; }

    // The place of the next line; going on widens it by the font's height.
    int y() const { return m_y; }

    void skip(double lines) { m_y += int(lines * lineHeight()); }

    // At a place. What stands behind two spaces and more is a text of its own.
    void write(int x, int baseline, const QString& text);
    // The next line, indented by so many spaces.
    void line(const QString& text, int indent = 0);
    // On a ground of its own, which is as wide as the page's longest text.
    void lineOn(const QColor& ground, const QString& text);

    // For shapes, which are no text.
    QPainter& painter() { return m_painter; }

    // What was drawn there belongs to the page.
    void include(const QRect& area) { m_used |= area; }

    QStringList texts() const { return m_texts; }

    // What was used of the page, and a margin.
    QImage finished(int margin);

private:
    void drawRun(int& x, int baseline, const QString& run, bool isLiteral);

    PageStyle m_style;
    QImage m_image;
    QPainter m_painter;
    QFont m_font;
    QColor m_ink;
    int m_y;
    QRect m_used;
    QStringList m_texts;
};

} // namespace Kovrel::Bench
