// encode [IMAGE...]: time and size of our PNG files against the toolkit's, for generated screens at 4K or for image
// files.

#include "bench/BenchPictures.h"
#include "platform/codecs/PngEncoder.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>

using namespace Kovrel;

namespace {

struct Measured {
    double milliseconds = 0;
    QByteArray bytes;
};

// The best of a few runs.
template <class Encode>
Measured measure(int runs, Encode encode)
{
    Measured best;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        best.bytes = encode();
        const double milliseconds = double(timer.nsecsElapsed()) / 1e6;
        best.milliseconds = run == 0 ? milliseconds : qMin(best.milliseconds, milliseconds);
    }
    return best;
}

QByteArray savedByToolkit(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return buffer.data();
}

std::vector<Bench::Picture> picturesOf(const QStringList& paths)
{
    std::vector<Bench::Picture> pictures;
    for (const QString& path : paths)
        pictures.push_back({QFileInfo(path).fileName(), QImage(path).convertToFormat(QImage::Format_RGB32)});
    return pictures;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList paths = application.arguments().mid(1);
    std::printf("%-32s %10s %10s %10s %10s %6s %6s\n", "picture", "ours ms", "bytes", "Qt ms", "bytes", "time", "size");
    for (const auto& [name, image] : paths.isEmpty() ? Bench::pictures() : picturesOf(paths)) {
        const Measured ours = measure(5, [&] { return *PngEncoder::encode(image); });
        const Measured theirs = measure(1, [&] { return savedByToolkit(image); });
        std::printf("%-32s %10.1f %10lld %10.1f %10lld %6.2f %6.3f\n", qUtf8Printable(name), ours.milliseconds,
                    qlonglong(ours.bytes.size()), theirs.milliseconds, qlonglong(theirs.bytes.size()),
                    ours.milliseconds / theirs.milliseconds, double(ours.bytes.size()) / double(theirs.bytes.size()));
    }
}
