// cards: how soon a capture of a 4K screen is seen as a card, beside one smooth scaling of its picture to the card's
// size on one thread, and how much of the processor a frame takes in which a pile of twenty cards moves. Needs a
// display with a compositor; the scale is the toolkit's (QT_SCALE_FACTOR). Ends with 1 when a bound is missed.
#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "bench/cards/CardRig.h"
#include "cards/CardFace.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QScreen>
#include <QThreadPool>

#include <cstdio>
#include <ctime>

using namespace Kovrel;

using Bench::CardRig;

namespace {

constexpr double mostToFirstFrame = 1.5; // of one scaling
constexpr double longestFrame = 4;       // milliseconds of our own work
constexpr int runs = 7;
constexpr int pileSize = 20;

DisplayList screens()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double scale = screen->devicePixelRatio();
    const QSize points = screen->size();
    return {{.id = 1,
             .name = screen->name(),
             .frame = {0, 0, double(points.width()), double(points.height())},
             .visibleFrame = {0, 0, double(points.width()), double(points.height())},
             .pixelRect = QRect(QPoint(), points * scale),
             .scale = scale,
             .isPrimary = true}};
}

// Whether a window with a face was painted since it was last asked.
struct PaintWatch : QObject {
    bool hasPainted = false;

    bool eventFilter(QObject* object, QEvent* event) override
    {
        const auto* panel = event->type() == QEvent::Paint ? qobject_cast<CardPanel*>(object) : nullptr;
        hasPainted |= panel && !panel->look().face.isNull();
        return false;
    }
};

// Until the card before has faded out and no window has anything to hear any more.
void rest()
{
    const QDeadlineTimer deadline(400);
    while (!deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

double firstFrame(CardRig& rig, PaintWatch& watch, const QImage& image)
{
    // As while the screen is being read.
    rig.controller.prepareForIncomingCapture(1);
    rest();
    watch.hasPainted = false;
    QUuid id;
    const double took = Bench::milliseconds([&] {
        id = rig.present(image);
        while (!watch.hasPainted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
    rig.controller.remove(id);
    rest();
    return took;
}

// The toolkit shares it out among the threads of its pool, unless it is asked by one of them.
double scalingOnOneThread(const QImage& image, QSize face)
{
    double took = 0;
    QThreadPool::globalInstance()->start([&] {
        took = Bench::milliseconds([&] {
            const QImage scaled = image.scaled(face, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            Q_ASSERT(!scaled.isNull());
        });
    });
    QThreadPool::globalInstance()->waitForDone();
    return took;
}

bool measureFirstFrames()
{
    QtMainLoop loop;
    ThreadWorkers workers;
    CardRig rig(loop, workers, screens());
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    bool holds = true;
    std::printf("%-14s %12s %12s %8s\n", "4K screen", "card, ms", "scaling, ms", "ratio");
    for (const Bench::Picture& picture : Bench::pictures()) {
        const double scale = rig.displays.displays.front().scale;
        const QSize face = CardFace::room(CardFace::cardSize(picture.image.size()), scale);
        Bench::Samples cards;
        Bench::Samples scalings;
        firstFrame(rig, watch, picture.image);
        for (int run = 0; run < runs; ++run) {
            cards.add(firstFrame(rig, watch, picture.image));
            rest();
            scalings.add(scalingOnOneThread(picture.image, face));
        }
        const double ratio = cards.median() / scalings.median();
        holds &= ratio <= mostToFirstFrame;
        std::printf("%-14s %12.1f %12.1f %8.2f\n", qPrintable(picture.name), cards.median(), scalings.median(), ratio);
    }
    qApp->removeEventFilter(&watch);
    return holds;
}

// All cards of the pile make room, or close up again.
double worstFrame(CardRig& rig, Testing::FakeMainLoop& loop, bool makesRoom, Bench::Samples& frames)
{
    using namespace std::chrono_literals;
    double worst = 0;
    if (makesRoom)
        rig.controller.prepareForIncomingCapture(1);
    else
        rig.controller.settleAfterAbandonedCapture();
    while (loop.pendingTimers() > 0) {
        const std::clock_t before = std::clock();
        loop.advance(16ms);
        QCoreApplication::processEvents();
        const double took = 1000.0 * double(std::clock() - before) / CLOCKS_PER_SEC;
        frames.add(took);
        worst = std::max(worst, took);
    }
    return worst;
}

bool measureMotion()
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    CardRig rig(loop, workers, screens());
    QImage image({1920, 1200}, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    for (int card = 0; card < pileSize; ++card) {
        rig.present(image);
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }
    loop.advance(std::chrono::seconds(2));
    QCoreApplication::processEvents();
    Bench::Samples frames;
    double worst = 0;
    for (int round = 0; round < runs; ++round)
        worst = std::max(worst, worstFrame(rig, loop, round % 2 == 0, frames));
    std::printf("\n%d cards on their way: a frame takes %.2f ms, %.2f ms at most\n", pileSize, frames.median(), worst);
    return worst <= longestFrame;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::printf("scale %.2g\n", QGuiApplication::primaryScreen()->devicePixelRatio());
    const bool comesSoon = measureFirstFrames();
    const bool movesSmoothly = measureMotion();
    return comesSoon && movesSmoothly ? 0 : 1;
}
