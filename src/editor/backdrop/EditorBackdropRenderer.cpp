#include "editor/backdrop/EditorBackdropRenderer.h"

#include "editor/backdrop/AlphaSubject.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "imaging/Resampling.h"
#include "model/HexColor.h"

#include <QColorSpace>

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = BackdropFill::Kind;

QColor fillColor(const BackdropFill& fill)
{
    return HexColor::parse(fill.value).value_or(QColor(Qt::white));
}

QPainterPath rounded(const QRectF& rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void fillSmoothly(QPainter& painter, const QPainterPath& path, const QBrush& brush)
{
    const bool isSmooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, brush);
    painter.setRenderHint(QPainter::Antialiasing, isSmooth);
}

// The ring around the card. At round corners, whose pixels the capture covers only partly, it reaches a pixel under it:
// a hole with rounder corners than the card's leaves as much, or a smaller one where they are round all the way.
QPainterPath frameRing(const BackdropLayout& layout)
{
    constexpr double rounder = 3;
    const double most = std::min(layout.card.width(), layout.card.height()) / 2.0;
    const double radius = layout.cardRadius > 0 ? layout.cardRadius + rounder : 0;
    const double smaller = std::max(0.0, radius - most) / rounder;
    QPainterPath ring = rounded(layout.framed(), layout.framedRadius());
    ring.addPath(rounded(QRectF(layout.card).adjusted(smaller, smaller, -smaller, -smaller), radius));
    ring.setFillRule(Qt::OddEvenFill);
    return ring;
}

QImage emptyCanvas(const BackdropLayout& layout, const EditorBackdrop& backdrop)
{
    const bool opaque = EditorBackdropRenderer::isOpaque(backdrop.fill);
    QImage image(layout.canvas, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (!opaque)
        image.fill(Qt::transparent);
    return image;
}

// A sketch's is one of few.
QSize fillSize(QSize canvas, EditorBackdropRenderer::Precision precision)
{
    if (precision == EditorBackdropRenderer::Precision::exact)
        return canvas;
    constexpr int step = 64;
    const auto rounded = [](int length) { return (length + step - 1) / step * step; };
    return {rounded(canvas.width()), rounded(canvas.height())};
}

// A neighbour of the page's colour: lighter, or darker where the page is nearly white, so that the frame is seen.
QColor besidePage(const QColor& page)
{
    const bool isLight = qGray(page.rgb()) > 215;
    const double share = isLight ? 0.12 : 0.35;
    const int to = isLight ? 0 : 255;
    const auto mix = [&](int from) { return int(from + share * (to - from) + 0.5); };
    return {mix(page.red()), mix(page.green()), mix(page.blue())};
}

} // namespace

bool EditorBackdropRenderer::isOpaque(const BackdropFill& fill)
{
    return fill.kind == Kind::color ? fillColor(fill).alpha() == 255 : fill.kind != Kind::none;
}

void EditorBackdropRenderer::fillPainter(QPainter& painter, const BackdropLayout& layout,
                                         const EditorBackdrop& backdrop, Precision precision)
{
    const QRect canvas({0, 0}, layout.canvas);
    if (backdrop.fill.kind == Kind::color)
        painter.fillRect(canvas, fillColor(backdrop.fill));
    else if (backdrop.fill.kind != Kind::none)
        painter.drawImage(canvas, m_fills.bitmap(backdrop.fill, fillSize(layout.canvas, precision), backdrop.blur));
}

void EditorBackdropRenderer::drawShadow(QPainter& painter, const BackdropLayout& layout, const EditorBackdrop& backdrop)
{
    if (layout.shadow.empty() || !(backdrop.shadowOpacity > 0))
        return;
    const QRect framed = layout.framed();
    m_shadows.tile(framed.size(), layout.framedRadius(), layout.shadow)
        .drawOutside(painter, framed, backdrop.shadowOpacity);
}

QColor EditorBackdropRenderer::frameColor(const BackdropLayout& layout, const EditorBackdrop& backdrop,
                                          Precision precision)
{
    if (!backdrop.frameFollowsPage)
        return HexColor::parse(backdrop.frameColorHex).value_or(QColor(Qt::white));
    if (backdrop.fill.kind == Kind::color)
        return besidePage(fillColor(backdrop.fill));
    return besidePage(m_fills.mean(backdrop.fill, fillSize(layout.canvas, precision), backdrop.blur));
}

void EditorBackdropRenderer::drawFrame(QPainter& painter, const BackdropLayout& layout, const EditorBackdrop& backdrop,
                                       Precision precision)
{
    if (layout.frame <= 0)
        return;
    fillSmoothly(painter, frameRing(layout), frameColor(layout, backdrop, precision));
}

void EditorBackdropRenderer::drawCapture(QPainter& painter, const BackdropLayout& layout, const QImage& capture)
{
    const auto pixels = Resampling::resampledExactly(capture, layout.image.size());
    if (!pixels)
        return;
    QBrush brush(*pixels);
    brush.setTransform(QTransform::fromTranslate(layout.image.x(), layout.image.y()));
    fillSmoothly(painter, layout.captureClip(), brush);
}

QImage EditorBackdropRenderer::canvas(const BackdropLayout& layout, const EditorBackdrop& backdrop, Precision precision)
{
    QImage image = emptyCanvas(layout, backdrop);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    fillPainter(painter, layout, backdrop, precision);
    drawShadow(painter, layout, backdrop);
    drawFrame(painter, layout, backdrop, precision);
    return image;
}

QImage EditorBackdropRenderer::render(const QImage& capture, double exportScale, const EditorBackdrop& backdrop,
                                      const std::optional<CaptureSubject>& subject, const BackdropMargins& margins)
{
    if (backdrop.isNone())
        return capture;
    const auto layout = EditorBackdropMetrics::layout(capture.size(), exportScale, exportScale, backdrop,
                                                      subject ? subject : AlphaSubject::measured(capture), margins);
    QImage image = layout ? canvas(*layout, backdrop) : QImage();
    if (image.isNull())
        return {};
    image.setColorSpace(capture.colorSpace());
    image.setDotsPerMeterX(capture.dotsPerMeterX());
    image.setDotsPerMeterY(capture.dotsPerMeterY());
    QPainter painter(&image);
    drawCapture(painter, *layout, capture);
    return image;
}

} // namespace Kovrel
