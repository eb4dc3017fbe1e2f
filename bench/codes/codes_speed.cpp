// codes_speed [PICTURE...]: the search for codes in screens without any, against the same passes one after the other on
// one thread. Without pictures it makes some.

#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "platform/plugins/PluginCodeReader.h"
#include "recognition/codes/GreyPicture.h"
#include "recognition/codes/QRCodeDetector.h"
#include "recognition/codes/RegionSearch.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr int rounds = 9;

const PluginCodeReader reader;

bool search(const QImage& image)
{
    const auto codes = QRCodeDetector::detectCodesSync(image, true, true, CodeReader::Engine::zxing, reader);
    return codes && codes->empty();
}

bool searchOnOneThread(const QImage& image)
{
    const QImage grey = GreyPicture::of(image);
    bool isEmpty = true;
    for (const CodeRegions::Region& region : CodeRegions::regions(image.size(), true, true)) {
        const auto codes = RegionSearch(reader, CodeReader::Engine::zxing).run(grey, region);
        isEmpty &= codes && codes->empty();
    }
    return isEmpty;
}

std::vector<Bench::Picture> screens(const QStringList& paths)
{
    if (paths.isEmpty())
        return Bench::pictures();
    std::vector<Bench::Picture> pictures;
    for (const QString& path : paths)
        pictures.push_back({QFileInfo(path).fileName(), QImage(path)});
    return pictures;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::printf("%-28s %12s %10s %14s %6s\n", "screen", "size", "kovrel ms", "one thread ms", "ratio");
    for (const auto& [name, image] : screens(application.arguments().mid(1))) {
        Bench::Samples ours;
        Bench::Samples serial;
        bool isEmpty = true;
        for (int round = 0; round < rounds; ++round) {
            ours.add(Bench::milliseconds([&] { isEmpty &= search(image); }));
            serial.add(Bench::milliseconds([&] { isEmpty &= searchOnOneThread(image); }));
        }
        std::printf("%-28s %5d x %4d %10.1f %14.1f %6.2f %s\n", qUtf8Printable(name), image.width(), image.height(),
                    ours.best(), serial.best(), ours.best() / serial.best(), isEmpty ? "" : "(has codes)");
    }
}
