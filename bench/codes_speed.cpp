// codes_speed: the search for codes in screens without any, against the same looks of the engine one after the other on
// one thread. The pictures that are looked at are made beforehand for the latter, but not for the search.

#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "platform/PluginCodeReader.h"
#include "recognition/QRCodeDetector.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdio>
#include <mutex>

using namespace Kovrel;

namespace {

constexpr int rounds = 9;

// Keeps what it is asked to look at.
class Recorder : public CodeReader {
public:
    Outcome read(const QImage& grey, Engine engine) const override
    {
        const std::lock_guard locked(m_lock);
        m_looks.push_back(grey.copy());
        return m_reader.read(grey, engine);
    }

    void repeat() const
    {
        for (const QImage& grey : m_looks)
            m_reader.read(grey, Engine::zxing).value();
    }

    size_t lookCount() const { return m_looks.size(); }

private:
    PluginCodeReader m_reader;
    mutable std::mutex m_lock;
    mutable std::vector<QImage> m_looks;
};

void search(const QImage& image, const CodeReader& reader)
{
    const auto codes = QRCodeDetector::detectCodesSync(image, true, true, CodeReader::Engine::zxing, reader);
    if (!codes || !codes->empty())
        qFatal("This screen has no codes");
}

template <class Work>
double milliseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::printf("%-20s %6s %10s %14s %6s\n", "3840 x 2160", "looks", "kovrel ms", "one thread ms", "ratio");
    const PluginCodeReader reader;
    for (const auto& [name, image] : Bench::pictures()) {
        const Recorder recorder;
        search(image, recorder);
        Bench::Samples ours;
        Bench::Samples serial;
        for (int round = 0; round < rounds; ++round) {
            ours.add(milliseconds([&] { search(image, reader); }));
            serial.add(milliseconds([&] { recorder.repeat(); }));
        }
        std::printf("%-20s %6d %10.1f %14.1f %6.2f\n", qUtf8Printable(name), int(recorder.lookCount()), ours.median(),
                    serial.median(), ours.median() / serial.median());
    }
}
