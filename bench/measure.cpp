// measure: bench_measure [FOLDER] measures how long a run through a line of 3840 pixels takes beside a bare loop that
// compares the same bytes, and how well borders are found that are too faint to end a run by their colour: of cards
// drawn on grounds of several kinds, and on the flat places of the pictures in FOLDER.

#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "imaging/GaussianBlur.h"
#include "imaging/MeasureSampler.h"

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <random>

using namespace Kovrel;
using Axis = MeasureSampler::Axis;

namespace {

constexpr int tolerance = 40;
constexpr int edgeFloor = 12; // four levels of each channel

// --- Speed

int bareRun(const uchar* pixel, qsizetype stride, int length)
{
    const int red = pixel[0];
    const int green = pixel[1];
    const int blue = pixel[2];
    int index = 0;
    for (; index < length; ++index, pixel += stride) {
        if (std::abs(pixel[0] - red) > 8 || std::abs(pixel[1] - green) > 8 || std::abs(pixel[2] - blue) > 8)
            break;
    }
    return index;
}

void measureSpeed(Axis axis)
{
    QImage image(axis == Axis::horizontal ? QSize(3840, 2160) : QSize(2160, 3840), QImage::Format_RGBA8888);
    image.fill(QColor(120, 130, 140));
    const MeasureSampler sampler(image);
    const qsizetype stride = axis == Axis::horizontal ? 4 : image.bytesPerLine();
    Bench::Samples ours;
    Bench::Samples bare;
    volatile int sink = 0;
    for (int round = 0; round < 400; ++round) {
        const int cross = 20 + round;
        const uchar* first = image.constBits() + (axis == Axis::horizontal ? image.bytesPerLine() : 4) * cross;
        bare.add(Bench::milliseconds([&] { sink = bareRun(first, stride, 3840); }));
        ours.add(Bench::milliseconds([&] {
            const bool isRow = axis == Axis::horizontal;
            sink = sampler.span(isRow ? 1700 : cross, isRow ? cross : 1700, axis, 8)->length();
        }));
    }
    std::printf("%-12s %8.2f us %8.2f us   %.2f\n", axis == Axis::horizontal ? "row" : "column", bare.median() * 1e3,
                ours.median() * 1e3, ours.median() / bare.median());
}

// --- Borders

// The rule that comes to mind first, beside ours.
bool isSteep(const MeasureSampler& sampler, Axis axis, int at, int cross)
{
    return std::abs(sampler.signedStep(axis, at, cross).value_or(0)) > edgeFloor;
}

std::optional<int> firstSteep(const MeasureSampler& sampler, Axis axis, int start, int cross)
{
    for (int at = start + 1; at < sampler.length(axis); ++at) {
        if (isSteep(sampler, axis, at, cross))
            return at;
    }
    return std::nullopt;
}

struct Score {
    int borders = 0;
    int found = 0;
    int early = 0; // something was taken for a border before the real one
    int steepFound = 0;
    int steepEarly = 0;

    // `border` is where it was drawn; the run starts inside of it.
    void add(const MeasureSampler& sampler, Axis axis, int start, int cross, double border)
    {
        const bool isRow = axis == Axis::horizontal;
        const double ours =
            sampler.span(isRow ? start : cross, isRow ? cross : start, axis, tolerance, edgeFloor)->upper + 1;
        const double steep = firstSteep(sampler, axis, start, cross).value_or(1e9);
        ++borders;
        found += std::abs(ours - border) <= 1.5;
        early += ours < border - 1.5;
        steepFound += std::abs(steep - border) <= 1.5;
        steepEarly += steep < border - 1.5;
    }

    void print(const char* name) const
    {
        const auto percent = [&](int count) { return 100.0 * count / std::max(borders, 1); };
        std::printf("%-28s %7d %9.1f %9.1f %14.1f %9.1f\n", name, borders, percent(found), percent(early),
                    percent(steepFound), percent(steepEarly));
    }
};

void printHeader(const char* first)
{
    std::printf("\n%-28s %7s %9s %9s %14s %9s\n", first, "borders", "found %", "early %", "steep: found %", "early %");
}

class Cards {
public:
    double between(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }

    // A border through both axes of a card that differs from its ground by 5 to 16 levels.
    void measure(Score& score, const QImage& ground, double blur, bool isWorn)
    {
        const QRectF frame(between(40, 90), between(40, 90), between(60, 140), between(50, 110));
        QImage card(ground.size(), QImage::Format_ARGB32_Premultiplied);
        card.fill(Qt::transparent);
        QPainter painter(&card);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const int level = qGray(ground.pixel(frame.center().toPoint())) < 128 ? 255 : 0;
        painter.setBrush(QColor(level, level, level, int(between(11, 24))));
        painter.drawRoundedRect(frame, 5, 5);
        painter.end();
        if (blur > 0)
            card = GaussianBlur::blurred(card, blur, GaussianBlur::Edges::transparent);
        measure(score, ground, card, frame, isWorn);
    }

private:
    static void measure(Score& score, const QImage& ground, const QImage& card, const QRectF& frame, bool isWorn)
    {
        QImage image = ground;
        QPainter(&image).drawImage(0, 0, card);
        if (isWorn)
            image = worn(image);
        const MeasureSampler sampler(image);
        const QPoint start = frame.center().toPoint();
        score.add(sampler, Axis::horizontal, start.x(), start.y(), frame.right());
        score.add(sampler, Axis::vertical, start.y(), start.x(), frame.bottom());
    }

    static QImage worn(const QImage& image)
    {
        QBuffer buffer;
        buffer.open(QIODevice::ReadWrite);
        image.save(&buffer, "JPEG", 85);
        return QImage::fromData(buffer.data());
    }

    std::mt19937 m_random{11};
};

QImage flatGround(Cards& cards)
{
    QImage image(320, 260, QImage::Format_RGB32);
    image.fill(
        QColor::fromHsvF(float(cards.between(0, 0.99)), float(cards.between(0, 0.5)), float(cards.between(0.1, 1))));
    return image;
}

QImage gradientGround(Cards& cards)
{
    QImage image = flatGround(cards);
    QLinearGradient gradient(0, 0, cards.between(0, 320), 260);
    gradient.setColorAt(0, image.pixelColor(0, 0));
    gradient.setColorAt(1, image.pixelColor(0, 0).darker(int(cards.between(105, 150))));
    QPainter(&image).fillRect(image.rect(), gradient);
    return image;
}

QImage noisyGround(Cards& cards)
{
    QImage image = flatGround(cards);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const auto off = [&](int value) {
                return std::clamp(value + int(std::lround(cards.between(-1.5, 1.5))), 0, 255);
            };
            image.setPixel(x, y, qRgb(off(color.red()), off(color.green()), off(color.blue())));
        }
    }
    return image;
}

void measureDrawnBorders()
{
    struct Kind {
        const char* name;
        QImage (*ground)(Cards&);
        double blur;
        bool isWorn;
    };

    constexpr Kind kinds[] = {
        {"antialiased, flat", flatGround, 0, false},          {"blurred by 1, flat", flatGround, 1, false},
        {"blurred by 2, flat", flatGround, 2, false},         {"antialiased, gradient", gradientGround, 0, false},
        {"blurred by 1, gradient", gradientGround, 1, false}, {"antialiased, noise", noisyGround, 0, false},
        {"antialiased, JPEG", flatGround, 0, true},           {"blurred by 1, JPEG", flatGround, 1, true},
    };
    Cards cards;
    printHeader("cards drawn");
    for (const Kind& kind : kinds) {
        Score score;
        for (int round = 0; round < 300; ++round)
            cards.measure(score, kind.ground(cards), kind.blur, kind.isWorn);
        score.print(kind.name);
    }
}

// Places without edges of their own, where a card's borders are the only ones.
std::optional<QRect> flatPlace(const MeasureSampler& sampler, Cards& cards)
{
    for (int attempt = 0; attempt < 200; ++attempt) {
        const QPoint at(int(cards.between(0, sampler.width() - 320)), int(cards.between(0, sampler.height() - 260)));
        bool isFlat = true;
        for (int y = at.y(); y < at.y() + 260 && isFlat; y += 4)
            isFlat = sampler.span(at.x(), y, Axis::horizontal, 10)->upper >= at.x() + 319;
        if (isFlat)
            return QRect(at, QSize(320, 260));
    }
    return std::nullopt;
}

void measureScreens(const QString& folder)
{
    Cards cards;
    Score score;
    int boundaries = 0;
    int edges = 0;
    for (const QFileInfo& file : QDir(folder).entryInfoList({"*.png", "*.jpg"}, QDir::Files)) {
        const QImage image = QImage(file.filePath()).convertToFormat(QImage::Format_RGB32);
        if (image.width() < 400 || image.height() < 400)
            continue;
        const MeasureSampler sampler(image);
        for (int round = 0; round < 20; ++round) {
            const auto place = flatPlace(sampler, cards);
            if (!place)
                break;
            cards.measure(score, image.copy(*place), 0, false);
            const int row = place->center().y();
            for (int at = place->left() + 1; at <= place->right(); ++at) {
                ++boundaries;
                edges += sampler.qualifiesAsEdge(Axis::horizontal, at, row, edgeFloor);
            }
        }
    }
    printHeader("on screens");
    score.print("antialiased");
    std::printf("edges in flat places without cards: %d of %d boundaries\n", edges, boundaries);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication app(argc, argv);
    std::printf("%-12s %11s %11s   ratio\n", "a run", "bare loop", "span");
    measureSpeed(Axis::horizontal);
    measureSpeed(Axis::vertical);
    measureDrawnBorders();
    if (argc > 1)
        measureScreens(QString::fromLocal8Bit(argv[1]));
    return 0;
}
