// editor: what the editor does to a 3840 x 2160 capture, each against a plain way to do it. Ends with 1 when a bound is
// missed.

#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "editor/AnnotationFlattener.h"
#include "editor/marks/AnnotationDrawing.h"
#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/RedactionSources.h"

#include <QGuiApplication>
#include <QPainter>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>
#include <cstring>
#include <random>

using namespace Kovrel;

namespace {

using Kind = Annotation::Kind;
using Marks = std::vector<Annotation>;

constexpr double scale = 2;
constexpr QSize pixels(3840, 2160);
constexpr QRect dirty(1700, 900, 400, 400);
constexpr int rounds = 9;

// What is drawn with, made once.
struct Capture {
    QImage image;
    QImage blurred;
    QImage pixelated;
};

bool report(const char* name, double ours, double theirs, double most)
{
    const double ratio = ours / theirs;
    std::printf("%-58s %8.2f ms %8.2f ms %6.2f  (at most %.2f)%s\n", name, ours, theirs, ratio, most,
                ratio > most ? "  MISSED" : "");
    return ratio <= most;
}

// The best of several rounds, side by side.
template <class Ours, class Theirs>
bool compare(const char* name, Ours ours, Theirs theirs, double most)
{
    Bench::Samples mine;
    Bench::Samples other;
    for (int round = 0; round < rounds; ++round) {
        mine.add(Bench::milliseconds(ours));
        other.add(Bench::milliseconds(theirs));
    }
    return report(name, mine.best(), other.best(), most);
}

// --- Sources of redactions

cv::Mat matOf(const QImage& image)
{
    return {image.height(), image.width(), CV_8UC4, const_cast<uchar*>(image.constBits()),
            size_t(image.bytesPerLine())};
}

// OpenCV's own 8-bit blur cuts its kernel off at three sigmas; what it makes of floats is within a tenth of a level.
double greatestDifference(const QImage& image, const QImage& blurredImage, double sigma)
{
    cv::Mat exact;
    matOf(image).convertTo(exact, CV_32FC4);
    cv::GaussianBlur(exact, exact, {}, sigma, sigma, cv::BORDER_REPLICATE);
    cv::Mat ours;
    matOf(blurredImage).convertTo(ours, CV_32FC4);
    cv::Mat difference;
    cv::absdiff(ours, exact, difference);
    double most = 0;
    std::vector<cv::Mat> planes;
    cv::split(difference, planes);
    for (int channel = 0; channel < 3; ++channel) {
        double here = 0;
        cv::minMaxLoc(planes[size_t(channel)], nullptr, &here);
        most = std::max(most, here);
    }
    return most;
}

bool measureBlur(const QImage& capture)
{
    QImage ours;
    cv::Mat theirs;
    const double sigma = RedactionSources::blurSigma(scale);
    const bool isFast = compare(
        "blur source | OpenCV's Gaussian", [&] { ours = RedactionSources::blurred(capture, scale); },
        [&] { cv::GaussianBlur(matOf(capture), theirs, {}, sigma, sigma, cv::BORDER_REPLICATE); }, 0.7);
    const double difference = greatestDifference(capture, ours, sigma);
    std::printf("%-58s %.2f levels (at most 2)\n", "  greatest difference from OpenCV's blur of floats", difference);
    return isFast && difference <= 2;
}

bool measurePixelate(const QImage& capture)
{
    QImage result;
    QImage copy;
    return compare(
        "pixelate source | 3 copies", [&] { result = RedactionSources::pixelated(capture, scale); },
        [&] {
            for (int times = 0; times < 3; ++times)
                copy = capture.copy();
        },
        1);
}

// --- Marks

Annotation randomMark(std::mt19937& random, const QRectF& area)
{
    static const QImage pasted = Bench::pictures({80, 60}).front().image;
    const auto& kinds = RawStrings<Kind>::table;
    const auto within = [&](double from, double length) { return from + length * double(random() % 1000) / 1000; };
    Annotation mark{.kind = kinds[random() % kinds.size()].first, .colorHex = "#FF3B30", .lineWidth = 4};
    const Point at{within(area.left(), area.width()), within(area.top(), area.height())};
    mark.points = {at, {at.x + 40, at.y + 35}, {at.x + within(40, 80), at.y + within(30, 60)}};
    mark.text = "A label";
    mark.textStyle = Annotation::TextStyle(random() % 4);
    mark.fillStyle = Annotation::FillStyle(random() % 4);
    if (mark.kind == Kind::image)
        mark.image = pasted;
    if ((mark.kind == Kind::arrow || mark.kind == Kind::line) && random() % 5 == 0)
        mark.curveControl = Point{at.x + 60, at.y};
    return mark;
}

Marks randomMarks(int count, const QRectF& area)
{
    std::mt19937 random(7);
    Marks marks;
    while (int(marks.size()) < count) {
        marks.push_back(randomMark(random, area));
        // The shade of a spotlight is not one mark's, but the whole picture's.
        if (marks.back().kind == Kind::spotlight)
            marks.pop_back();
    }
    return marks;
}

AnnotationDrawing::Scene sceneOf(const Capture& capture)
{
    const QRectF full({}, pixels);
    return {.scale = scale,
            .blurredFull = capture.blurred,
            .pixelatedFull = capture.pixelated,
            .fullRect = full,
            .shadeRegion = {full}};
}

// A painter with y up.
struct Canvas {
    explicit Canvas(QImage& image) : painter(&image)
    {
        painter.setTransform(QTransform(1, 0, 0, -1, 0, image.height()));
    }

    QPainter painter;
};

bool measureFlatten(const Capture& capture)
{
    const Marks marks = randomMarks(100, {100, 100, 1600, 800});
    EditorBackdropRenderer renderer;
    QImage picture;
    const auto oneByOne = [&] {
        picture = capture.image.copy();
        Canvas canvas(picture);
        for (const Annotation& mark : marks)
            AnnotationDrawing::draw(canvas.painter, mark, sceneOf(capture));
    };
    const AnnotationFlattener::Input input{.base = capture.image,
                                           .annotations = marks,
                                           .exportScale = scale,
                                           .blurredFull = capture.blurred,
                                           .pixelatedFull = capture.pixelated};
    QImage flat;
    return compare(
        "flatten 100 marks | a copy and the marks one by one",
        [&] { flat = AnnotationFlattener::render(input, renderer); }, oneByOne, 1.2);
}

void redraw(QImage& picture, const Marks& marks, const AnnotationDrawing::Scene& scene)
{
    for (int times = 0; times < 20; ++times) {
        Canvas canvas(picture);
        canvas.painter.setClipRect(QRectF(dirty.left(), pixels.height() - dirty.bottom() - 1, 400, 400));
        AnnotationDrawing::drawAll(canvas.painter, marks, scene);
    }
}

bool measureRedraw(const Capture& capture)
{
    const Marks marks = randomMarks(100, {100, 100, 1600, 800});
    AnnotationDrawing::Scene culled = sceneOf(capture);
    culled.culledTo = QRectF(dirty.left(), pixels.height() - dirty.bottom() - 1, 400, 400);
    Marks inside;
    for (const Annotation& mark : marks)
        if (AnnotationExtent::rotatedVisualExtent(mark, scale).intersects(*culled.culledTo))
            inside.push_back(mark);
    Marks many = marks;
    for (const Annotation& mark : randomMarks(1000, {100, 760, 1600, 250}))
        many.push_back(mark);
    QImage picture = capture.image.copy();
    std::printf("  %zu of 100 marks reach into the 400 x 400 pixels; 20 redraws\n", inside.size());
    const bool isFast = compare(
        "redraw with 100 marks | those inside alone", [&] { redraw(picture, marks, culled); },
        [&] { redraw(picture, inside, sceneOf(capture)); }, 1.5);
    return compare(
               "redraw with 1,000 more outside | with 100", [&] { redraw(picture, many, culled); },
               [&] { redraw(picture, marks, culled); }, 1.1) &&
           isFast;
}

bool measureRedactions(const Capture& capture)
{
    const auto flatten = [&](const Marks& marks) {
        EditorBackdropRenderer renderer;
        const QImage flat =
            AnnotationFlattener::render({.base = capture.image, .annotations = marks, .exportScale = scale}, renderer);
    };
    const auto measure = [&](Kind kind, const char* name) {
        Marks twenty;
        for (int index = 0; index < 20; ++index)
            twenty.push_back({.kind = kind, .points = {{80.0 * index, 100}, {80.0 * index + 70, 400}}});
        const Marks one{twenty.front()};
        return compare(name, [&] { flatten(twenty); }, [&] { flatten(one); }, 1.1);
    };
    const bool isGood = measure(Kind::blur, "export of 20 blurs | of one");
    return measure(Kind::pixelate, "export of 20 pixelates | of one") && isGood;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    bool isGood = true;
    for (const auto& [name, image] : Bench::pictures(pixels)) {
        std::printf("%s\n", qPrintable(name));
        const Capture capture{image, RedactionSources::blurred(image, scale),
                              RedactionSources::pixelated(image, scale)};
        isGood &= measureBlur(image);
        isGood &= measurePixelate(image);
        isGood &= measureFlatten(capture);
        isGood &= measureRedraw(capture);
        isGood &= measureRedactions(capture);
    }
    return isGood ? 0 : 1;
}
