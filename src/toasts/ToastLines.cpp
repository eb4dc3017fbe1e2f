#include "toasts/ToastLines.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>
#include <ranges>

namespace Kovrel {

namespace {

constexpr qsizetype shortestPath = 9; // characters

QStringList wrapped(const QString& text, const QFont& font, double width)
{
    QTextLayout layout(text, font);
    layout.setTextOption([] {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

// A path says most at its ends.
QString shortened(const QString& path, qsizetype length)
{
    if (path.size() <= length)
        return path;
    const qsizetype end = length / 2;
    return path.left(length - end - 1) + QChar(0x2026) + path.right(end);
}

// In a message a path ends where its reason, or another clause, begins. One with blanks counts up to the first of them:
// nothing tells what follows it from a reason.
QString withPathsOf(const QString& text, qsizetype length)
{
    static const QRegularExpression path("/[^:;\\s]+");
    QString result;
    qsizetype end = 0;
    for (auto found = path.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        result += text.mid(end, match.capturedStart() - end) + shortened(match.captured(), length);
        end = match.capturedEnd();
    }
    return result + text.mid(end);
}

} // namespace

QStringList ToastLines::of(const QString& text, const QFont& font, double width, qsizetype mostLines)
{
    if (text.isEmpty())
        return {};
    // The longest paths that fit, and the shortest where none do.
    const auto withPaths = [&](qsizetype length) { return wrapped(withPathsOf(text, length), font, width); };
    const auto fits = [&](qsizetype length) { return withPaths(length).size() <= mostLines; };
    const std::ranges::iota_view lengths(shortestPath + 1, std::max(text.size(), shortestPath) + 1);
    QStringList lines = withPaths(*std::ranges::partition_point(lengths, fits) - 1);
    if (lines.size() > mostLines) {
        lines[mostLines - 1] =
            QFontMetricsF(font).elidedText(lines.mid(mostLines - 1).join(' '), Qt::ElideRight, width);
        lines.resize(mostLines);
    }
    return lines;
}

} // namespace Kovrel
