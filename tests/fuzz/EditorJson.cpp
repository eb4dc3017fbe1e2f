// Any bytes as what an editor stores: marks, and a backdrop. What is read must be written and read again as the same,
// and both must be drawable.

#include "editor/AnnotationFlattener.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "editor/backdrop/EditorBackdropRenderer.h"
#include "editor/json/AnnotationJson.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

using namespace Kovrel;

namespace {

constexpr double mostPixels = 1e6; // of a canvas that is drawn

void require(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "violated: %s\n", what);
        std::abort();
    }
}

QByteArray rewritten(const std::vector<Annotation>& annotations)
{
    const auto again = AnnotationJson::decoded(AnnotationJson::encoded(annotations));
    require(again && again->size() == annotations.size(), "a list that was written is read");
    return AnnotationJson::encoded(*again);
}

void tryAnnotations(const QByteArray& json)
{
    const auto annotations = AnnotationJson::decoded(json);
    if (!annotations)
        return;
    require(rewritten(*annotations) == AnnotationJson::encoded(*annotations), "marks read as they were written");
    static const QImage capture = [] {
        QImage image(300, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    }();
    EditorBackdropRenderer renderer;
    require(!AnnotationFlattener::render({.base = capture, .annotations = *annotations}, renderer).isNull(),
            "marks are drawn");
}

void tryBackdrop(const QByteArray& json)
{
    const auto backdrop = EditorBackdrop::decode(json);
    if (!backdrop)
        return;
    require(EditorBackdrop::decode(backdrop->encode()) == backdrop, "a backdrop reads as it was written");
    const auto layout = EditorBackdropMetrics::layout({80, 60}, 2, 1, *backdrop);
    if (!layout)
        return;
    require(!layout->canvas.isEmpty(), "a canvas has pixels");
    const double pixels = double(layout->canvas.width()) * layout->canvas.height();
    if (pixels > mostPixels || backdrop->fill.kind == BackdropFill::Kind::picture) // a picture takes long
        return;
    EditorBackdropRenderer renderer;
    require(renderer.canvas(*layout, *backdrop).size() == layout->canvas, "a canvas is drawn");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), qsizetype(size));
    tryAnnotations(json);
    tryBackdrop(json);
    return 0;
}
