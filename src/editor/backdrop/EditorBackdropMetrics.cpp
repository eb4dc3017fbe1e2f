#include "editor/backdrop/EditorBackdropMetrics.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Kovrel {

namespace {

constexpr double frameToSide = 0.1;
constexpr double paddingToSide = 0.8;
// Of the padding, this much stays on the side that the image is pushed to.
constexpr double keptPadding = 0.4;
constexpr double noRoom = 1e-6;
// Beyond lies a thousandth of a Gaussian: less than half a level of 255 in any shadow.
constexpr double reachInSigmas = 3;

Rect grown(const Rect& rect, double by)
{
    return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

Rect intersection(const Rect& one, const Rect& other)
{
    const double left = std::max(one.minX(), other.minX());
    const double bottom = std::max(one.minY(), other.minY());
    return {left, bottom, std::max(0.0, std::min(one.maxX(), other.maxX()) - left),
            std::max(0.0, std::min(one.maxY(), other.maxY()) - bottom)};
}

double shorterSide(Size imageSize, const std::optional<CaptureSubject>& subject)
{
    const Size size = subject ? Size{subject->rect.width, subject->rect.height} : imageSize;
    return std::max(0.0, std::min(size.width, size.height));
}

Rect fromTopLeft(const Rect& rect, double imageHeight)
{
    return {rect.x, imageHeight - rect.maxY(), rect.width, rect.height};
}

// The subject within the image, which somebody else's numbers may reach beyond.
std::optional<Rect> windowRect(Size imageSize, const std::optional<CaptureSubject>& subject)
{
    if (!subject)
        return std::nullopt;
    const Rect window =
        intersection(fromTopLeft(subject->rect, imageSize.height), {0, 0, imageSize.width, imageSize.height});
    return window.isEmpty() ? std::nullopt : std::optional(window);
}

BackdropMargins marginsAround(const Rect& window, Size imageSize)
{
    return {.left = window.minX(),
            .top = imageSize.height - window.maxY(),
            .right = imageSize.width - window.maxX(),
            .bottom = window.minY()};
}

// Where along one axis the canvas begins, of an image that is pushed to its lower (0), middle (0.5) or upper (1) end.
double pushedOrigin(double imageStart, double extra, double cap, double towards)
{
    const double slack = std::min(extra / 2, cap);
    return imageStart - slack - towards * (extra - 2 * slack);
}

// --- In pixels

int wholePixels(double points, double scale)
{
    return int(std::lround(points * scale));
}

// Places rectangles, in points with y upwards, in pixels of the canvas. The image's origin is rounded, and all else
// lies whole pixels from it, so that what is at a pixel of the image stays there.
class ToPixels {
public:
    ToPixels(const Rect& canvas, double imageHeight, double scale)
        : m_imageHeight(imageHeight),
          m_scale(scale),
          m_origin(wholePixels(-canvas.minX(), scale), wholePixels(canvas.maxY() - imageHeight, scale))
    {
    }

    QRect operator()(const Rect& rect) const
    {
        const int left = wholePixels(rect.minX(), m_scale);
        const int top = wholePixels(m_imageHeight - rect.maxY(), m_scale);
        const int right = wholePixels(rect.maxX(), m_scale);
        const int bottom = wholePixels(m_imageHeight - rect.minY(), m_scale);
        return QRect(left, top, right - left, bottom - top).translated(m_origin);
    }

private:
    double m_imageHeight;
    double m_scale;
    QPoint m_origin;
};

bool isDrawable(const Rect& canvas, double scale)
{
    const double width = canvas.width * scale;
    const double height = canvas.height * scale;
    const auto isLength = [](double length) { return length >= 0.5 && length <= EditorBackdropMetrics::longestSide; };
    return isLength(width) && isLength(height) && width * height <= EditorBackdropMetrics::mostPixels;
}

ShadowLight withinUnit(ShadowLight light)
{
    const double length = std::hypot(light.x, light.y);
    return length > 1 ? ShadowLight{light.x / length, light.y / length} : light;
}

// How much of a shadow that reaches so far is left when it has so much room.
double share(double reach, double room)
{
    return reach > room ? room / reach : 1;
}

// The layers, each made smaller until it neither leaves the canvas on the sides that the light throws it to, nor
// reaches farther than the shorter side of the canvas or the subject. None where there is no room on any side.
std::vector<BackdropLayout::ShadowLayer> shadowLayers(const EditorBackdrop& backdrop, double side, double scale,
                                                      const Rect& framed, const Rect& canvas)
{
    const ShadowLight light = withinUnit(backdrop.shadowLight);
    const auto least = EditorBackdropMetrics::shadowRoom(framed, canvas, {0, 0});
    if (!least)
        return {};
    const double room = std::min(
        {EditorBackdropMetrics::shadowRoom(framed, canvas, light).value_or(*least), canvas.width, canvas.height, side});
    std::vector<BackdropLayout::ShadowLayer> layers;
    for (const Shadow::Layer& layer : backdrop.shadow.layers) {
        const double blur = reachInSigmas * layer.radius / 2 * side;
        const double offset = std::abs(layer.offset) * std::hypot(light.x, light.y) * side;
        const double pixels = share(blur + offset, room) * side * scale;
        layers.push_back({.x = layer.offset * light.x * pixels,
                          .y = layer.offset * light.y * pixels,
                          .sigma = layer.radius / 2 * pixels,
                          .opacity = layer.opacity});
    }
    return layers;
}

} // namespace

CaptureSubject EditorBackdropMetrics::inPoints(const CaptureSubject& subject, double exportScale)
{
    const Rect& rect = subject.rect;
    return {.rect = {rect.x / exportScale, rect.y / exportScale, rect.width / exportScale, rect.height / exportScale},
            .cornerRadius = subject.cornerRadius / exportScale};
}

Rect EditorBackdropMetrics::shaped(const Rect& rect, const std::optional<AspectRatio>& to)
{
    if (!to || rect.isEmpty())
        return rect;
    const double width = std::max(rect.width, rect.height * to->width / to->height);
    const double height = std::max(rect.height, rect.width * to->height / to->width);
    return {rect.centre().x - width / 2, rect.centre().y - height / 2, width, height};
}

Rect EditorBackdropMetrics::balancedRect(Size imageSize, const EditorBackdrop& backdrop,
                                         const std::optional<CaptureSubject>& subject, const BackdropMargins& margins)
{
    const Rect image{0, 0, imageSize.width, imageSize.height};
    if (!backdrop.autoBalance)
        return image;
    const auto window = windowRect(imageSize, subject);
    const auto [left, top, right, bottom] = window ? marginsAround(*window, imageSize) : margins;
    const double fromLeft = std::max(0.0, left - right);
    const double fromRight = std::max(0.0, right - left);
    const double fromBottom = std::max(0.0, bottom - top);
    const double fromTop = std::max(0.0, top - bottom);
    return intersection(
        image, {fromLeft, fromBottom, imageSize.width - fromLeft - fromRight, imageSize.height - fromBottom - fromTop});
}

Rect EditorBackdropMetrics::cardRect(Size imageSize, const EditorBackdrop& backdrop,
                                     const std::optional<CaptureSubject>& subject, const BackdropMargins& margins)
{
    return windowRect(imageSize, subject).value_or(balancedRect(imageSize, backdrop, subject, margins));
}

Rect EditorBackdropMetrics::canvasRect(Size imageSize, const EditorBackdrop& backdrop,
                                       const std::optional<CaptureSubject>& subject, const BackdropMargins& margins)
{
    if (backdrop.isNone())
        return {0, 0, imageSize.width, imageSize.height};
    const double side = shorterSide(imageSize, subject);
    const double padding = backdrop.padding * paddingToSide * side;
    const Rect framed = grown(balancedRect(imageSize, backdrop, subject, margins), backdrop.frame * frameToSide * side);
    const Rect canvas = shaped(grown(framed, padding), backdrop.aspect);
    if (backdrop.alignment == CardAlignment::center)
        return canvas;
    const double cap = keptPadding * padding;
    const double extraWidth = std::max(0.0, canvas.width - framed.width);
    const double extraHeight = std::max(0.0, canvas.height - framed.height);
    return {pushedOrigin(framed.minX(), extraWidth, cap, column(backdrop.alignment) * 0.5),
            pushedOrigin(framed.minY(), extraHeight, cap, 1 - row(backdrop.alignment) * 0.5), canvas.width,
            canvas.height};
}

std::optional<double> EditorBackdropMetrics::shadowRoom(const Rect& framed, const Rect& canvas, ShadowLight direction)
{
    const bool isFromFront = std::abs(direction.x) <= noRoom && std::abs(direction.y) <= noRoom;

    struct Side {
        bool counts;
        double room;
    };

    const std::array sides{Side{direction.x < -noRoom, framed.minX() - canvas.minX()},
                           Side{direction.x > noRoom, canvas.maxX() - framed.maxX()},
                           Side{direction.y > noRoom, framed.minY() - canvas.minY()},
                           Side{direction.y < -noRoom, canvas.maxY() - framed.maxY()}};
    std::optional<double> least;
    for (const auto& [counts, room] : sides)
        if ((counts || isFromFront) && room > noRoom)
            least = std::min(room, least.value_or(room));
    return least;
}

std::optional<BackdropLayout> EditorBackdropMetrics::layout(QSize imagePixels, double exportScale, double scale,
                                                            const EditorBackdrop& backdrop,
                                                            const std::optional<CaptureSubject>& subject,
                                                            const BackdropMargins& margins)
{
    if (imagePixels.isEmpty() || !(exportScale > 0) || !(scale > 0))
        return std::nullopt;
    const Size imageSize{imagePixels.width() / exportScale, imagePixels.height() / exportScale};
    const auto window = subject ? std::optional(inPoints(*subject, exportScale)) : std::nullopt;
    const BackdropMargins empty = margins.scaled(1 / exportScale);
    const Rect canvas = canvasRect(imageSize, backdrop, window, empty);
    if (!isDrawable(canvas, scale))
        return std::nullopt;
    const ToPixels toPixels(canvas, imageSize.height, scale);
    BackdropLayout result{.scale = scale,
                          .canvas = {wholePixels(canvas.width, scale), wholePixels(canvas.height, scale)},
                          .image = toPixels({0, 0, imageSize.width, imageSize.height})};
    result.card = result.image;
    if (backdrop.isNone())
        return result;

    const double side = shorterSide(imageSize, window);
    const double frame = backdrop.frame * frameToSide * side;
    const Rect card = cardRect(imageSize, backdrop, window, empty);
    result.card = toPixels(card);
    const double radius = std::max(backdrop.corners, window ? window->cornerRadius : 0.0) * scale;
    result.cardRadius = std::clamp(radius, 0.0, std::min(result.card.width(), result.card.height()) / 2.0);
    result.frame = wholePixels(frame, scale);
    result.shadow = shadowLayers(backdrop, side, scale, grown(card, frame), canvas);
    return result;
}

} // namespace Kovrel
