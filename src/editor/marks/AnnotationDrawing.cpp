#include "editor/marks/AnnotationDrawing.h"

#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/AnnotationInk.h"
#include "editor/marks/HighlighterInk.h"
#include "editor/marks/LabelInk.h"
#include "editor/marks/LabelText.h"
#include "editor/marks/MarkShadow.h"
#include "editor/marks/MarkSprites.h"
#include "imaging/BlendMode.h"
#include "imaging/PainterPixels.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

using AnnotationDrawing::Scene;

namespace {

using Kind = Annotation::Kind;
using Marks = std::vector<const Annotation*>;

constexpr double translucentFill = 0.25;
// Of the hatching, in image points.
constexpr double hatchDistance = 8;
constexpr double hatchWidth = 1.5;
constexpr QSize tileSize(512, 64); // pixels
constexpr qint64 largestSprite = 1'000'000;
// Of the number in a step, by the radius: beyond, it would come near the ring.
constexpr double widestNumber = 1.5;

bool isBlackout(const Annotation& mark)
{
    return mark.kind == Kind::blackout;
}

bool isSoftRedaction(const Annotation& mark)
{
    return mark.kind == Kind::blur || mark.kind == Kind::pixelate;
}

bool isHighlighter(const Annotation& mark)
{
    return mark.kind == Kind::highlighter;
}

bool isSpotlight(const Annotation& mark)
{
    return mark.kind == Kind::spotlight;
}

bool isOther(const Annotation& mark)
{
    return !isSoftRedaction(mark) && !isBlackout(mark) && !isHighlighter(mark) && !isSpotlight(mark);
}

// As a path its coverage is the same however the painter is clipped; that of a rectangle is not, by a 255th in a row.
QPainterPath rectPath(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

// Whether nothing of the mark would be seen. A spotlight darkens everything else and a highlighter counts for its
// layer, so none is culled here; a label is drawn so much more slowly than it is measured that it is measured first.
bool isCulled(const Annotation& mark, const Scene& scene)
{
    if (!scene.culledTo || isSpotlight(mark) || isHighlighter(mark))
        return false;
    if (!scene.culledTo->intersects(AnnotationExtent::cullBound(mark, scene.scale)))
        return true;
    const double shadow = MarkShadow::reach * scene.scale;
    return mark.kind == Kind::text &&
           !scene.culledTo->intersects(
               AnnotationExtent::rotatedVisualExtent(mark, scene.scale).adjusted(-shadow, -shadow, shadow, shadow));
}

// The marks to draw, in their order.
Marks drawn(std::span<const Annotation> annotations, const Scene& scene)
{
    Marks marks;
    for (const Annotation& mark : annotations) {
        const bool isExcluded = mark.kind == Kind::text && scene.excludingTextID == mark.id;
        if (!isExcluded && !isCulled(mark, scene) && AnnotationInk::isDrawable(mark, scene.scale))
            marks.push_back(&mark);
    }
    return marks;
}

template <class Belongs>
Marks chosen(const Marks& marks, Belongs belongs)
{
    Marks some;
    std::ranges::copy_if(marks, std::back_inserter(some), [&](const Annotation* mark) { return belongs(*mark); });
    return some;
}

// A painter whose state comes back.
class Painting {
public:
    explicit Painting(QPainter& painter) : m_painter(painter)
    {
        m_painter.save();
        m_painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    }

    ~Painting() { m_painter.restore(); }

    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

private:
    QPainter& m_painter;
};

// The painter in pixels, y down, clipped to whole ones.
QRect clipToPixels(QPainter& painter, const QRectF& rect, const std::optional<QPainterPath>& clip)
{
    const QRect pixels = painter.combinedTransform().mapRect(rect).toAlignedRect();
    if (clip) {
        QPainterPath path = *clip;
        path.setFillRule(Qt::WindingFill);
        painter.setClipPath(path, Qt::IntersectClip);
    }
    painter.resetTransform();
    painter.setClipRect(pixels, Qt::IntersectClip);
    return pixels;
}

// Stripes where x - y is the same, counted from a place of the shape's own, so that they go with it and are the same
// in a capture that is cropped. Each pixel is as much in a stripe as its centre says, which takes no longer for many
// stripes than for a few.
QImage hatching(const QRect& area, const QTransform& fromDevice, const QColor& color, double scale)
{
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    const double distance = hatchDistance * scale;
    const double half = hatchWidth * scale / 2;
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QPointF point = fromDevice.map(QPointF(area.left() + x + 0.5, area.top() + y + 0.5));
            const double across = (point.x() - point.y()) / std::numbers::sqrt2;
            const double away = std::abs(across - distance * std::round(across / distance));
            const double covered = std::clamp(half - away + 0.5, 0.0, 1.0);
            row[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), int(covered * color.alpha() + 0.5)));
        }
    }
    return image;
}

void hatch(QPainter& painter, const QPainterPath& shape, QPointF origin, const QColor& color, double scale)
{
    const QTransform toDevice = painter.combinedTransform();
    const QPainterPath outline = toDevice.map(shape);
    const QRect area = outline.boundingRect().toAlignedRect() & PainterPixels::clip(painter);
    if (area.isEmpty())
        return;
    const QTransform toOrigin = toDevice.inverted() * QTransform::fromTranslate(-origin.x(), -origin.y());
    QBrush brush(hatching(area, toOrigin, color, scale));
    brush.setTransform(QTransform::fromTranslate(area.left(), area.top()));
    painter.save();
    painter.resetTransform();
    painter.fillPath(outline, brush);
    painter.restore();
}

// Filling the outline of a stroke gives the same pixels however the painter is clipped; a stroke does not.
void stroke(QPainter& painter, const QPainterPath& path, const QPen& pen)
{
    if (pen.widthF() > 0)
        painter.fillPath(QPainterPathStroker(pen).createStroke(path), pen.color());
}

void drawShape(QPainter& painter, const Annotation& mark, double scale)
{
    painter.save();
    painter.setTransform(AnnotationInk::rotation(mark, scale), true);
    const QPainterPath shape = AnnotationInk::shapePath(mark, scale);
    QColor color = AnnotationInk::colorOf(mark);
    if (mark.fillStyle == Annotation::FillStyle::hatched)
        hatch(painter, shape, QPointF(mark.points.front().x, mark.points.front().y) * scale, color, scale);
    if (mark.fillStyle == Annotation::FillStyle::translucent)
        color.setAlphaF(float(translucentFill * color.alphaF()));
    if (mark.fillStyle == Annotation::FillStyle::filled || mark.fillStyle == Annotation::FillStyle::translucent)
        painter.fillPath(shape, color);
    stroke(painter, shape, AnnotationInk::pen(mark, scale));
    painter.restore();
}

// Interpolation alone skips pixels where a picture is made less than half as large.
QImage fitting(const QImage& image, QSize pixels)
{
    if (2 * pixels.width() >= image.width() && 2 * pixels.height() >= image.height())
        return image;
    return image.scaled(pixels.boundedTo(image.size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Of a place, the tiles that are seen, counted from its upper left corner.
template <class Draw>
void forEachTile(const QRect& place, const QRect& seen, Draw draw)
{
    const QRect part = place & seen;
    if (part.isEmpty())
        return;
    const auto first = [](int from, int at, int side) { return from + (at - from) / side * side; };
    for (int y = first(place.top(), part.top(), tileSize.height()); y <= part.bottom(); y += tileSize.height())
        for (int x = first(place.left(), part.left(), tileSize.width()); x <= part.right(); x += tileSize.width())
            draw(QRect(QPoint(x, y), tileSize) & place);
}

// Tile by tile from where the picture begins: interpolated pixels depend a little on where drawing begins, and both a
// clip and the image that is painted on may begin anywhere.
void drawTransformed(QPainter& painter, const QImage& image, const QSizeF& size)
{
    const QTransform toDevice = painter.combinedTransform();
    const QRect place = toDevice.mapRect(QRectF({}, size)).toAlignedRect();
    const QRect clip = PainterPixels::clip(painter);
    painter.resetTransform();
    forEachTile(place, clip, [&](const QRect& tile) {
        QImage layer(tile.size(), QImage::Format_ARGB32_Premultiplied);
        layer.fill(Qt::transparent);
        QPainter layerPainter(&layer);
        layerPainter.setRenderHints(painter.renderHints());
        layerPainter.setTransform(toDevice * QTransform::fromTranslate(-tile.left(), -tile.top()));
        layerPainter.drawImage(QRectF({}, size), image);
        painter.drawImage(tile.topLeft(), layer);
    });
}

void drawSticker(QPainter& painter, const Annotation& mark, double scale)
{
    const QRectF rect = AnnotationInk::scaled(mark.boundingRect(), scale);
    if (!mark.image || mark.image->isNull() || rect.isEmpty())
        return;
    painter.save();
    painter.setTransform(AnnotationInk::rotation(mark, scale), true);
    painter.translate(rect.left(), rect.bottom());
    painter.scale(1, -1);
    drawTransformed(painter, fitting(*mark.image, rect.size().toSize().expandedTo({1, 1})), rect.size());
    painter.restore();
}

void drawPen(QPainter& painter, const Annotation& mark, double scale)
{
    const auto pieces = AnnotationInk::penInk(mark, scale);
    if (pieces.size() == 1)
        painter.fillPath(pieces.front(), AnnotationInk::colorOf(mark));
    else
        Blending::fillPaths(painter, pieces, AnnotationInk::colorOf(mark), BlendMode::normal);
}

// What has a shadow, or is set in letters, takes long to draw.
void drawShadowed(QPainter& painter, const Annotation& mark, double scale)
{
    const QColor color = AnnotationInk::colorOf(mark);
    if (mark.kind == Kind::text)
        return LabelInk::drawText(painter, mark, scale);
    if (mark.kind == Kind::step)
        return AnnotationDrawing::drawStep(painter, mark, scale, color);
    const QPainterPath arrow = AnnotationInk::inkPath(mark, scale);
    MarkShadow::draw(painter, {arrow}, scale);
    painter.fillPath(arrow, color);
}

MarkSprite spriteOf(const Annotation& mark, double scale)
{
    const double margin = MarkShadow::reach * scale + 1;
    const QRect area =
        AnnotationExtent::rotatedVisualExtent(mark, scale).adjusted(-margin, -margin, margin, margin).toAlignedRect();
    if (qint64(area.width()) * area.height() > largestSprite)
        return {};
    MarkSprite sprite{QImage(area.size(), QImage::Format_ARGB32_Premultiplied), area};
    sprite.picture.fill(Qt::transparent);
    QPainter painter(&sprite.picture);
    const Painting painting(painter);
    painter.setTransform(QTransform(1, 0, 0, -1, -area.left(), area.top() + area.height()));
    drawShadowed(painter, mark, scale);
    return sprite;
}

// Whole pixels, neither turned nor stretched: what is drawn elsewhere fits.
bool isOnPixels(const QTransform& toDevice)
{
    return toDevice.m11() == 1 && toDevice.m22() == -1 && toDevice.m12() == 0 && toDevice.m21() == 0 &&
           toDevice.dx() == std::round(toDevice.dx()) && toDevice.dy() == std::round(toDevice.dy());
}

// The same pixels whether its sprite was kept or not.
void drawFromSprite(QPainter& painter, const Annotation& mark, const Scene& scene)
{
    const auto drawn = [&] { return spriteOf(mark, scene.scale); };
    const QTransform toDevice = painter.combinedTransform();
    if (!isOnPixels(toDevice))
        return drawShadowed(painter, mark, scene.scale);
    const MarkSprite sprite = scene.sprites ? scene.sprites->of(mark, scene.scale, drawn) : drawn();
    if (sprite.picture.isNull())
        return drawShadowed(painter, mark, scene.scale);
    painter.save();
    painter.resetTransform();
    painter.drawImage(toDevice.map(QPoint(sprite.area.left(), sprite.area.top() + sprite.area.height())),
                      sprite.picture);
    painter.restore();
}

void drawOne(QPainter& painter, const Annotation& mark, const Scene& scene)
{
    const QRectF rect = AnnotationInk::scaled(mark.boundingRect(), scene.scale);
    const QColor color = AnnotationInk::colorOf(mark);
    switch (mark.kind) {
    case Kind::blur:
        return AnnotationDrawing::drawRegion(painter, scene.blurredFull, rect, scene.fullRect, scene.regionClip);
    case Kind::pixelate:
        return AnnotationDrawing::drawRegion(painter, scene.pixelatedFull, rect, scene.fullRect, scene.regionClip);
    case Kind::blackout:
        return AnnotationDrawing::drawBlackout(painter, rect & scene.fullRect, scene.regionClip);
    case Kind::highlighter:
        return HighlighterInk::drawHighlightLayer(painter, {&mark}, scene.scale);
    case Kind::spotlight:
        return AnnotationDrawing::drawSpotlightShade(painter, {&mark}, scene.shadeRegion, scene.scale);
    case Kind::pen:
        return drawPen(painter, mark, scene.scale);
    case Kind::line:
        return painter.fillPath(AnnotationInk::inkPath(mark, scene.scale), color);
    case Kind::rectangle:
    case Kind::ellipse:
        return drawShape(painter, mark, scene.scale);
    case Kind::arrow:
    case Kind::text:
    case Kind::step:
        return drawFromSprite(painter, mark, scene);
    case Kind::measure:
        return MeasureInk::drawMeasure(painter, mark, scene.scale, scene.reading);
    case Kind::image:
        return drawSticker(painter, mark, scene.scale);
    }
}

void drawMarksOnCapture(QPainter& painter, const Marks& marks, const Scene& scene)
{
    const Painting painting(painter);
    for (const Annotation* const mark : chosen(marks, isSoftRedaction))
        drawOne(painter, *mark, scene);
    for (const Annotation* const mark : chosen(marks, isBlackout))
        drawOne(painter, *mark, scene);
    HighlighterInk::drawHighlightLayer(painter, chosen(marks, isHighlighter), scene.scale, scene.culledTo);
    AnnotationDrawing::drawSpotlightShade(painter, chosen(marks, isSpotlight), scene.shadeRegion, scene.scale);
}

void drawMarksAbove(QPainter& painter, const Marks& marks, const Scene& scene)
{
    const Painting painting(painter);
    for (const Annotation* const mark : chosen(marks, isOther))
        drawOne(painter, *mark, scene);
}

} // namespace

void AnnotationDrawing::drawAll(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene)
{
    const Marks marks = drawn(annotations, scene);
    drawMarksOnCapture(painter, marks, scene);
    drawMarksAbove(painter, marks, scene);
}

void AnnotationDrawing::drawOnCapture(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene)
{
    drawMarksOnCapture(painter, drawn(annotations, scene), scene);
}

void AnnotationDrawing::drawAbove(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene)
{
    drawMarksAbove(painter, drawn(annotations, scene), scene);
}

void AnnotationDrawing::draw(QPainter& painter, const Annotation& annotation, const Scene& scene)
{
    const Painting painting(painter);
    if (AnnotationInk::isDrawable(annotation, scene.scale))
        drawOne(painter, annotation, scene);
}

void AnnotationDrawing::drawRegion(QPainter& painter, const QImage& source, const QRectF& rect, const QRectF& fullRect,
                                   const std::optional<QPainterPath>& clip)
{
    if (source.isNull() || fullRect.isEmpty())
        return;
    const double sx = source.width() / fullRect.width();
    const double sy = source.height() / fullRect.height();
    const QRectF wanted((rect.left() - fullRect.left()) * sx, source.height() - sy * (rect.bottom() - fullRect.top()),
                        rect.width() * sx, rect.height() * sy);
    const QRect piece = wanted.toAlignedRect() & source.rect();
    if (piece.isEmpty() || rect.isEmpty())
        return;
    const QRectF place(fullRect.left() + piece.left() / sx,
                       fullRect.top() + (source.height() - piece.top() - piece.height()) / sy, piece.width() / sx,
                       piece.height() / sy);
    painter.save();
    const QRectF target = painter.combinedTransform().mapRect(place);
    clipToPixels(painter, rect & fullRect, clip);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(target, source, piece);
    painter.restore();
}

void AnnotationDrawing::drawBlackout(QPainter& painter, const QRectF& rect, const std::optional<QPainterPath>& clip)
{
    if (rect.isEmpty())
        return;
    painter.save();
    const QRect pixels = clipToPixels(painter, rect, clip);
    painter.fillRect(pixels, Qt::black);
    painter.restore();
}

void AnnotationDrawing::drawStep(QPainter& painter, const Annotation& step, double scale, const QColor& color)
{
    const QPointF centre = AnnotationInk::scaled(step.points.back(), scale);
    const double radius = AnnotationInk::stepRadius(step, scale);
    MarkShadow::draw(painter, {AnnotationInk::inkPath(step, scale)}, scale);
    painter.setBrush(color);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(centre, radius, radius);
    QPainterPath ring;
    ring.addEllipse(centre, radius, radius);
    stroke(painter, ring, QPen(Qt::white, AnnotationInk::stepRingWidth(step, scale)));
    const LabelText number(QString::number(step.stepNumber), boldTextAttributes(radius, std::nullopt), std::nullopt);
    const double fitting = std::min(1.0, widestNumber * radius / number.size().width);
    const QPointF half = QPointF(-number.size().width, number.size().height) * fitting / 2;
    number.draw(painter, centre + half, fitting, textColorOn(color));
}

void AnnotationDrawing::drawSpotlightShade(QPainter& painter, const std::vector<const Annotation*>& spotlights,
                                           const std::vector<QRectF>& shadeRegion, double scale)
{
    if (spotlights.empty())
        return;
    const QRect area = PainterPixels::clip(painter);
    QImage shade(area.size(), QImage::Format_Alpha8); // black
    if (shade.isNull())
        return;
    shade.fill(0);
    QPainter shadePainter(&shade);
    shadePainter.setRenderHint(QPainter::Antialiasing);
    shadePainter.setTransform(painter.combinedTransform() * QTransform::fromTranslate(-area.left(), -area.top()));
    for (const QRectF& rect : shadeRegion)
        shadePainter.fillPath(rectPath(rect), Qt::black);
    shadePainter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    for (const Annotation* const spotlight : spotlights) {
        const QRectF rect = AnnotationInk::scaled(spotlight->boundingRect(), scale);
        if (rect.width() > 1 && rect.height() > 1)
            shadePainter.fillPath(AnnotationInk::shapePath(*spotlight, scale), Qt::black);
    }
    shadePainter.end();
    painter.save();
    painter.resetTransform();
    painter.setOpacity(std::clamp(spotlights.back()->dimLevel, 0.0, 1.0));
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.drawImage(area.topLeft(), shade);
    painter.restore();
}

} // namespace Kovrel
