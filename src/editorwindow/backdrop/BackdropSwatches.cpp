#include "editorwindow/backdrop/BackdropSwatches.h"

#include "editor/OwnBackdropPicture.h"
#include "editor/backdrop/EditorBackdropRenderer.h"
#include "imaging/Resampling.h"
#include "platform/Guarded.h"

namespace Kovrel {

namespace {

constexpr QSize samplePoints(320, 200);

// The upper left of what the picture is about, where windows have their titles.
EditorCapture sampleOf(EditorCapture capture)
{
    QRect part = capture.image.rect();
    if (capture.subject)
        part &= QRectF(capture.subject->rect.x, capture.subject->rect.y, capture.subject->rect.width,
                       capture.subject->rect.height)
                    .toAlignedRect();
    part.setSize(part.size().boundedTo((QSizeF(samplePoints) * capture.scale).toSize()));
    capture.image = capture.image.copy(part);
    capture.subject.reset();
    return capture;
}

EditorBackdropRenderer rendererFor(const BackdropFill& fill)
{
    EditorBackdropRenderer renderer;
    if (const auto own = OwnBackdropPicture::read(fill); own && *own)
        renderer.setPicture(fill.value, **own);
    return renderer;
}

QImage fillPicture(const EditorBackdrop& backdrop, QSize pixels)
{
    EditorBackdropRenderer renderer = rendererFor(backdrop.fill);
    return renderer.canvas({.canvas = pixels}, backdrop);
}

QImage lookPicture(const EditorCapture& sample, EditorBackdrop look, QSize pixels)
{
    look.aspect = AspectRatio{pixels.width(), pixels.height()};
    EditorBackdropRenderer renderer = rendererFor(look.fill);
    const QImage picture = renderer.render(sample.image, sample.scale, look);
    return picture.isNull() ? picture : Resampling::resampledExactly(picture, pixels).value_or(QImage());
}

} // namespace

BackdropSwatches::BackdropSwatches(MainLoop& loop, Workers& workers, EditorCapture capture, std::function<void()> drawn)
    : m_sample(sampleOf(std::move(capture))), m_drawn(std::move(drawn)), m_scope(loop, workers)
{
}

QImage BackdropSwatches::fill(const BackdropFill& fill, QSize pixels)
{
    EditorBackdrop backdrop = EditorBackdrop::none;
    backdrop.fill = fill;
    return drawn({backdrop.encode().toStdString(), false, pixels.width(), pixels.height()},
                 [backdrop, pixels] { return fillPicture(backdrop, pixels); });
}

QImage BackdropSwatches::look(const EditorBackdrop& look, QSize pixels)
{
    return drawn({look.encode().toStdString(), true, pixels.width(), pixels.height()},
                 [sample = m_sample, look, pixels] { return lookPicture(sample, look, pixels); });
}

QImage BackdropSwatches::drawn(const Key& key, const std::function<QImage()>& job)
{
    const auto there = m_swatches.find(key);
    if (there != m_swatches.end())
        return there->second;
    if (m_awaited.insert(key).second)
        Scope::start(draw(key, Guarded::orElse(job, QImage())), "drawing a swatch");
    return {};
}

QCoro::Task<> BackdropSwatches::draw(Key key, std::function<QImage()> job)
{
    const QImage swatch = co_await m_scope.onWorker(Lane::utility, QualityOfService::userInteractive, std::move(job));
    m_swatches[key] = swatch;
    m_awaited.erase(key);
    m_drawn();
}

} // namespace Kovrel
