// shadow: time and greatest difference of the blur behind a window's shadow against OpenCV's of the same picture.

#include "bench/Samples.h"
#include "imaging/GaussianBlur.h"

#include <QPainter>
#include <QPainterPath>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr QSize windowSize(2000, 1200);
constexpr int padding = 140;
constexpr double sigma = GaussianBlur::sigmaOfBlurRadius(72);
constexpr int rounds = 15;

struct Shape {
    const char* name;
    QImage alpha; // Format_Alpha8, the canvas of a window capture
};

QImage canvas()
{
    QImage image(windowSize.grownBy({padding, padding, padding, padding}), QImage::Format_Alpha8);
    image.fill(0);
    return image;
}

QImage drawn(const QPainterPath& path)
{
    QImage image = canvas();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(padding, padding);
    painter.fillPath(path, Qt::black);
    return image;
}

// Something and nothing side by side, as in text, and everything in between.
QImage noise()
{
    QImage image = canvas();
    quint32 state = 1;
    for (int y = padding; y < padding + windowSize.height(); ++y) {
        for (int x = padding; x < padding + windowSize.width(); ++x) {
            state = state * 1664525 + 1013904223;
            const bool isInk = ((x / 7) ^ (y / 13)) % 3 == 0;
            image.scanLine(y)[x] = isInk ? uchar(state >> 24) : 0;
        }
    }
    return image;
}

std::vector<Shape> shapes()
{
    QPainterPath window;
    window.addRoundedRect(QRectF({0, 0}, windowSize), 24, 24);
    QPainterPath circle;
    circle.addEllipse(QRectF(400, 0, 1200, 1200));
    return {{"window with round corners", drawn(window)}, {"circle", drawn(circle)}, {"noise like text", noise()}};
}

cv::Mat blurredByOpenCv(const QImage& alpha)
{
    const cv::Mat source(alpha.height(), alpha.width(), CV_8UC1, const_cast<uchar*>(alpha.constBits()),
                         size_t(alpha.bytesPerLine()));
    cv::Mat result;
    cv::GaussianBlur(source, result, {}, sigma, sigma, cv::BORDER_CONSTANT);
    return result;
}

int greatestDifference(const QImage& ours, const cv::Mat& theirs)
{
    int greatest = 0;
    for (int y = 0; y < ours.height(); ++y)
        for (int x = 0; x < ours.width(); ++x)
            greatest = std::max(greatest, std::abs(ours.constScanLine(y)[x] - theirs.ptr(y)[x]));
    return greatest;
}

} // namespace

int main()
{
    const int allThreads = cv::getNumThreads();
    std::printf("OpenCV %s, %d threads by default, AVX2 %s\n", cv::getVersionString().c_str(), allThreads,
                cv::checkHardwareSupport(CV_CPU_AVX2) ? "used" : "absent");
    std::printf("%-28s %9s %14s %9s %14s %9s %10s\n", "2280 x 1480, sigma 36", "kovrel ms", "opencv 1 ms", "ratio",
                "opencv all ms", "ratio", "difference");
    for (const auto& [name, alpha] : shapes()) {
        Bench::Samples ours;
        Bench::Samples single;
        Bench::Samples all;
        QImage result;
        cv::Mat expected;
        for (int round = 0; round < rounds; ++round) {
            ours.add(Bench::milliseconds(
                [&] { result = GaussianBlur::blurred(alpha, sigma, GaussianBlur::Edges::transparent); }));
            cv::setNumThreads(1);
            single.add(Bench::milliseconds([&] { expected = blurredByOpenCv(alpha); }));
            cv::setNumThreads(allThreads);
            all.add(Bench::milliseconds([&] { expected = blurredByOpenCv(alpha); }));
        }
        std::printf("%-28s %9.2f %14.2f %9.3f %14.2f %9.3f %10d\n", name, ours.median(), single.median(),
                    ours.median() / single.median(), all.median(), ours.median() / all.median(),
                    greatestDifference(result, expected));
    }
}
