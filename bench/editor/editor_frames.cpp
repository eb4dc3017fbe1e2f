// editor_frames: what a frame of the editor costs at 3840 x 2160 with 100 marks, beside plain blits of the whole
// capture; what opening costs beside decoding the file; and what 200 undo steps hold. Ends with 1 when a bound is
// missed.
//
//     QT_QPA_PLATFORM=offscreen bench_editor_frames
#include "bench/BenchPictures.h"
#include "bench/Samples.h"
#include "editor/backdrop/EditorBackdrop.h"
#include "editor/marks/RedactionSources.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "preferences/Preferences.h"
#include "tests/support/TempFolder.h"
#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QBuffer>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QPainter>

#include <cstdio>
#include <malloc.h>
#include <random>

using namespace Kovrel;

namespace {

using Kind = Annotation::Kind;

constexpr QSize pixels(3840, 2160);
constexpr int frames = 25;

bool report(const QString& name, double ours, double theirs, double most)
{
    const double ratio = ours / theirs;
    std::printf("%-44s %8.2f ms %8.2f ms %6.2f  (at most %.2f)%s\n", qPrintable(name), ours, theirs, ratio, most,
                ratio > most ? "  MISSED" : "");
    return ratio <= most;
}

Annotation randomMark(std::mt19937& random)
{
    const auto below = [&random](int end) { return double(random() % unsigned(end)); };
    static const std::array kinds{Kind::pen,  Kind::arrow, Kind::line,    Kind::rectangle, Kind::ellipse,
                                  Kind::text, Kind::step,  Kind::measure, Kind::blackout,  Kind::image};
    static const QImage pasted = Bench::pictures({300, 200}).front().image;
    const Point at{below(3400) + 100, below(1800) + 100};
    Annotation mark{.kind = kinds[random() % kinds.size()], .colorHex = "#FF3B30", .lineWidth = 4};
    mark.points = {at, {at.x + 40 + below(200), at.y + 30 + below(200)}};
    mark.text = "A label of some words";
    mark.textStyle = Annotation::TextStyle(random() % 4);
    mark.fillStyle = Annotation::FillStyle(random() % 4);
    if (mark.kind == Kind::image)
        mark.image = pasted;
    return mark;
}

EditorDocument hundredMarks()
{
    std::mt19937 random(7);
    EditorDocument document;
    while (document.marks.size() < 100)
        document.marks.push_back(randomMark(random));
    return document;
}

// An editor's canvas.
struct Rig {
    Rig(const QImage& image, EditorDocument document, QSize size) : capture{QUuid::createUuid(), image, 1, std::nullopt}
    {
        Preferences::registerDefaults(defaults);
        session = std::make_unique<EditorSession>(capture, std::move(document), preferences);
        session->setTool(EditorTool::select);
        view = std::make_unique<AnnotationCanvasView>(*session, MeasureUnit::pixels);
        if (!session->document().marks.empty())
            view->setRedactions({RedactionSources::blurred(image, 1), RedactionSources::pixelated(image, 1)});
        view->resize(size);
        view->show();
        settle();
    }

    // As large as the capture, at 100 percent.
    explicit Rig(const QImage& image, EditorDocument document = hundredMarks())
        : Rig(image, std::move(document), pixels)
    {
        view->setZoomPercent(100);
        settle();
        drawExactly();
    }

    static void settle()
    {
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
    }

    // What is stretched while somebody zooms is drawn at its own size when that rests.
    static void drawExactly()
    {
        const QDeadlineTimer rest(300);
        while (!rest.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }

    void paint() const
    {
        QEvent wanted(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(view.get(), &wanted);
    }

    void send(QEvent::Type type, QPointF at, Qt::MouseButton button) const
    {
        const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.get(), &event);
    }

    // The median frame of a drag from a place, in image points.
    double drag(Point at) const
    {
        const QPointF from(at.x, pixels.height() - at.y);
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, from + QPointF(20, 20), Qt::NoButton);
        settle();
        Bench::Samples samples;
        for (int frame = 1; frame <= frames; ++frame)
            samples.add(Bench::milliseconds([&] {
                send(QEvent::MouseMove, from + QPointF(20 + 6 * frame, 20 + 4 * frame), Qt::NoButton);
                paint();
            }));
        send(QEvent::MouseButtonRelease, from + QPointF(200, 150), Qt::LeftButton);
        settle();
        return samples.median();
    }

    EditorCapture capture;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    std::unique_ptr<EditorSession> session;
    std::unique_ptr<AnnotationCanvasView> view;
};

double blit(const QImage& image)
{
    QImage target(image.size(), QImage::Format_RGB32);
    target.fill(Qt::white);
    Bench::Samples samples;
    for (int round = 0; round < frames; ++round)
        samples.add(Bench::milliseconds([&] {
            QPainter painter(&target);
            painter.drawImage(0, 0, image);
        }));
    return samples.median();
}

double fullRepaint(const Rig& rig)
{
    Bench::Samples samples;
    for (int round = 0; round < 5; ++round)
        samples.add(Bench::milliseconds([&] {
            CanvasPicture picture(rig.capture);
            picture.setDocument(rig.session->document());
            picture.picture();
            rig.view->update();
            rig.paint();
        }));
    return samples.median();
}

// --- Drags

// On its ink, and on no handle.
Point heldAt(Kind kind)
{
    switch (kind) {
    case Kind::text:
        return {1830, 1145};
    case Kind::step:
        return {2040, 1160};
    default:
        return {1860, 1040};
    }
}

bool measureDrag(const QImage& image, Kind kind, double most)
{
    EditorDocument document = hundredMarks();
    Annotation mark{.kind = kind, .points = {{1800, 1000}, {2040, 1160}}, .colorHex = "#FFDC2C", .lineWidth = 6};
    mark.fillStyle = Annotation::FillStyle::filled;
    mark.text = "Dragged";
    document.marks.push_back(mark);
    const Rig rig(image, std::move(document));
    rig.session->select({mark.id});
    const double took = rig.drag(heldAt(kind));
    if (rig.session->document().mark(mark.id)->points.front() == mark.points.front())
        std::printf("%s was not dragged\n", qPrintable(rawString(kind)));
    return report("drag a " + QString(rawString(kind)) + " | a blit", took, blit(image), most);
}

bool measureDrags(const QImage& image)
{
    bool holds = true;
    for (const Kind kind : {Kind::arrow, Kind::line, Kind::rectangle, Kind::ellipse, Kind::text, Kind::step, Kind::pen,
                            Kind::measure, Kind::blackout})
        holds &= measureDrag(image, kind, 0.5);
    for (const Kind kind : {Kind::blur, Kind::pixelate, Kind::spotlight, Kind::highlighter})
        holds &= measureDrag(image, kind, 1);
    return holds;
}

// --- Other frames

bool measureSlider(const QImage& image)
{
    const Rig rig(image);
    Bench::Samples samples;
    for (int frame = 0; frame < frames; ++frame) {
        EditorDocument next = rig.session->document();
        next.composition.backdrop = EditorBackdrop();
        next.composition.backdrop.padding = 0.1 + 0.01 * frame;
        samples.add(Bench::milliseconds([&] {
            rig.session->change(next, "padding");
            rig.paint();
        }));
    }
    return report("a slider of the backdrop | a blit", samples.median(), blit(image), 2);
}

bool measureUndo(const QImage& image)
{
    const Rig rig(image, {});
    for (const Annotation& mark : hundredMarks().marks) {
        EditorDocument next = rig.session->document();
        next.marks.push_back(mark);
        rig.session->change(std::move(next));
        rig.paint();
    }
    rig.session->selectAll();
    rig.session->removeSelected();
    rig.paint();
    double worst = 0;
    double whole = 0; // of what the slowest one shows
    while (rig.session->canUndo()) {
        const double took = Bench::milliseconds([&] {
            rig.session->undo();
            rig.paint();
        });
        if (took > worst)
            whole = fullRepaint(rig);
        worst = std::max(worst, took);
    }
    return report("the slowest undo | drawing everything", worst, whole, 1);
}

// As a window shows it: fitted into its canvas.
void openFitted(const QImage& image, QSize view)
{
    const Rig rig(image, EditorDocument(), view);
    rig.paint();
}

bool measureOpening(const QImage& image, QSize view)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    Bench::Samples decoding;
    Bench::Samples opening;
    for (int round = 0; round < 5; ++round) {
        decoding.add(Bench::milliseconds([&] { QImage::fromData(file, "PNG"); }));
        opening.add(Bench::milliseconds([&] { openFitted(QImage::fromData(file, "PNG"), view); }));
    }
    const QString name = QString("open in %1 x %2 | decoding").arg(view.width()).arg(view.height());
    return report(name, opening.median(), decoding.median(), 1.5);
}

void reportMemory(const QImage& image)
{
    const Rig rig(image);
    const size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    for (int step = 0; step < 200; ++step) {
        rig.session->select({rig.session->document().marks[size_t(step) % 100].id});
        rig.session->moveBy({3, 2}, {});
    }
    const size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
    std::printf("%-44s %8.1f MB, %.1f MB of them by 200 steps\n", "memory of a 4K capture in its editor",
                double(after) / 1e6, double(after - before) / 1e6);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    bool holds = true;
    for (const auto& [name, image] : Bench::pictures(pixels)) {
        std::printf("%s\n", qPrintable(name));
        holds &= measureDrags(image);
        holds &= measureSlider(image);
        holds &= measureUndo(image);
        holds &= measureOpening(image, {980, 640});
        holds &= measureOpening(image, pixels);
        reportMemory(image);
        if (argc > 1)
            break; // one picture is enough for a first look
    }
    return holds ? 0 : 1;
}
