// decode_images FOLDER: decodes every file that FOLDER/manifest.tsv names and compares with what it expects. Ends with
// 1 when one of them differs.

#include "bench/Manifest.h"
#include "platform/ImageCodec.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>

#include <cstdio>

using namespace Kovrel;

namespace {

using Row = QHash<QString, QString>;

QColor meanColour(const QImage& image, const QRect& area)
{
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    const double count = double(area.width()) * area.height();
    return QColor(qRound(double(red) / count), qRound(double(green) / count), qRound(double(blue) / count));
}

// The mean colours of the quarters, over white.
QList<QColor> quadrants(const QImage& image)
{
    QImage page(image.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter(&page).drawImage(QPoint(), image);
    const int halfWidth = qMax(1, image.width() / 2);
    const int halfHeight = qMax(1, image.height() / 2);
    const int left = image.width() - halfWidth;
    const int top = image.height() - halfHeight;
    const QSize half(halfWidth, halfHeight);
    return {meanColour(page, QRect(QPoint(0, 0), half)), meanColour(page, QRect(QPoint(left, 0), half)),
            meanColour(page, QRect(QPoint(0, top), half)), meanColour(page, QRect(QPoint(left, top), half))};
}

int difference(const QColor& one, const QColor& other)
{
    return qMax(qAbs(one.red() - other.red()),
                qMax(qAbs(one.green() - other.green()), qAbs(one.blue() - other.blue())));
}

// Empty when the picture is as it should be.
QString complaint(const QImage& image, const Row& row)
{
    const QSize expected(row["width"].toInt(), row["height"].toInt());
    if (image.size() != expected)
        return QString("is %1 x %2").arg(image.width()).arg(image.height());
    const QStringList colours = row["quadrants_over_white"].split(u',', Qt::SkipEmptyParts);
    const auto actual = quadrants(image);
    for (qsizetype index = 0; index < qMin(colours.size(), actual.size()); ++index)
        if (difference(actual[index], QColor("#" + colours[index])) > row["tolerance"].toInt())
            return QString("quarter %1 is %2").arg(index + 1).arg(actual[index].name());
    return {};
}

QString verdict(const std::expected<QImage, ImageCodec::Failure>& result, const Row& row)
{
    if (row["verdict"] == "either")
        return {};
    if (row["verdict"] == "corrupt")
        return result ? "was decoded" : QString();
    return result ? complaint(*result, row) : "failed";
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QDir folder(application.arguments().value(1));
    const auto rows = Bench::readManifest(folder.filePath("manifest.tsv"));
    int wrong = 0;
    for (const Row& row : rows) {
        const auto result = ImageCodec::decodeFile(folder.filePath(row["file"]));
        const QString problem = verdict(result, row);
        const QString reason = result ? QString() : result.error().message;
        wrong += !problem.isEmpty();
        std::printf("%-5s %-8s %-44s %s %s\n", problem.isEmpty() ? "ok" : "WRONG", qUtf8Printable(row["verdict"]),
                    qUtf8Printable(row["file"]), qUtf8Printable(problem), qUtf8Printable(reason));
    }
    std::printf("%d of %d as expected\n", int(rows.size()) - wrong, int(rows.size()));
    return wrong == 0 && !rows.isEmpty() ? 0 : 1;
}
