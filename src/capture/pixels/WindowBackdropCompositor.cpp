#include "capture/pixels/WindowBackdropCompositor.h"

#include "imaging/GaussianBlur.h"
#include "imaging/Resampling.h"
#include "platform/Guarded.h"

#include <QColorSpace>
#include <QLinearGradient>

#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using Background = WindowBackdropCompositor::Background;

constexpr double paddingToLength = 0.07;
constexpr int leastPadding = 48;

constexpr double blurToLength = 0.05;
constexpr double leastBlur = 12;
constexpr double mostBlur = 72;
constexpr double offsetToLength = 0.012;
constexpr double leastOffset = 4;
constexpr double mostOffset = 24;
constexpr double shadowOpacity = 0.45;

constexpr auto gradientStart = "#16297C";
constexpr auto gradientEnd = "#7A3DE8";

constexpr double crossingToRadius = 1 - 1 / std::numbers::sqrt2;
// Smoothed corners and recognisable noise still count as opaque.
constexpr double nearlyOpaque = 0.98;

int longerSide(QSize size)
{
    return std::max(size.width(), size.height());
}

QColor colourOf(const QString& hex)
{
    return QColor::isValidColor(hex) ? QColor(QColor(hex).rgb()) : QColor(Qt::white);
}

// From corner to corner, whatever is painted with it.
QBrush standInGradient()
{
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, QColor(gradientStart));
    gradient.setColorAt(1, QColor(gradientEnd));
    return gradient;
}

// No value where the window is kept as it is.
std::optional<Background> backgroundOf(WindowBackdropStyle style, const std::optional<QImage>& wallpaper,
                                       const QString& colourHex)
{
    switch (style) {
    case WindowBackdropStyle::wallpaper:
        return wallpaper && !wallpaper->isNull() ? Background(*wallpaper) : standInGradient();
    case WindowBackdropStyle::solidColor:
        return QBrush(colourOf(colourHex));
    case WindowBackdropStyle::transparent:
        return QBrush(Qt::NoBrush);
    case WindowBackdropStyle::trimShadow:
        break;
    }
    return std::nullopt;
}

void drawBackground(const Background& background, const QRect& canvas, QPainter& painter)
{
    if (const auto* picture = std::get_if<QImage>(&background))
        WindowBackdropCompositor::drawScaledToFill(*picture, canvas, painter);
    else
        painter.fillRect(canvas, std::get<QBrush>(background));
}

bool isTransparent(const Background& background)
{
    const auto* brush = std::get_if<QBrush>(&background);
    return brush && brush->style() == Qt::NoBrush;
}

// `place` is where the window lies on the canvas. A fraction of a pixel in the offset is lost in the blur.
void drawShadow(const QImage& window, QPoint place, QSize canvas, QPainter& painter)
{
    const auto [blurRadius, offset] = WindowBackdropCompositor::shadow(window.size());
    const QImage shape = window.convertToFormat(QImage::Format_Alpha8).copy({-place, canvas});
    const QImage shadow =
        GaussianBlur::blurred(shape, GaussianBlur::sigmaOfBlurRadius(blurRadius), GaussianBlur::Edges::transparent);
    painter.setOpacity(shadowOpacity);
    painter.drawImage(0, qRound(offset), shadow);
    painter.setOpacity(1);
}

std::vector<double> diagonalAlphas(const QImage& image, int sample)
{
    std::vector<double> alphas;
    for (int at = 0; at < std::min({sample, image.width(), image.height()}); ++at)
        alphas.push_back(qAlpha(image.pixel(at, at)));
    return alphas;
}

// How far along its side an edge at 45 degrees cuts a pixel on its diagonal, of which it leaves `bare` uncovered.
double cutOf(double bare)
{
    return bare < 0.5 ? std::sqrt(bare / 2) : 1 - std::sqrt((1 - bare) / 2);
}

// The box around the pixels whose alpha is above `alpha`.
QRect boxAbove(const QImage& image, int alpha)
{
    const QImage alphas = image.convertToFormat(QImage::Format_Alpha8);
    QRect box;
    for (int y = 0; y < alphas.height(); ++y) {
        const uchar* const row = alphas.constScanLine(y);
        const uchar* const end = row + alphas.width();
        const auto isAbove = [alpha](uchar value) { return value > alpha; };
        const uchar* const first = std::find_if(row, end, isAbove);
        if (first == end)
            continue;
        const auto last = std::find_if(std::reverse_iterator(end), std::reverse_iterator(row), isAbove).base() - 1;
        box |= QRect(QPoint(int(first - row), y), QPoint(int(last - row), y));
    }
    return box;
}

CaptureSubject subjectIn(const QRect& rect, double cornerRadius)
{
    return {
        .rect = {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())},
        .cornerRadius = std::min(cornerRadius, std::min(rect.width(), rect.height()) / 2.0),
    };
}

ComposedCapture composed(const QImage& window, const std::optional<Background>& background)
{
    const QImage image = background ? WindowBackdropCompositor::composite(window, *background) : QImage();
    const QImage& result = image.isNull() ? window : image; // rather the bare window than none
    return {result, WindowBackdropCompositor::subject(window, result)};
}

} // namespace

// --- The work itself

int WindowBackdropCompositor::canvasPadding(QSize window)
{
    return std::max(qRound(longerSide(window) * paddingToLength), leastPadding);
}

WindowBackdropCompositor::Shadow WindowBackdropCompositor::shadow(QSize window)
{
    const double length = longerSide(window);
    return {
        .blurRadius = std::clamp(length * blurToLength, leastBlur, mostBlur),
        .offset = std::clamp(length * offsetToLength, leastOffset, mostOffset),
    };
}

QImage WindowBackdropCompositor::composite(const QImage& window, const Background& background)
{
    const int padding = canvasPadding(window.size());
    const bool hasAlpha = isTransparent(background);
    QImage canvas(window.size().grownBy({padding, padding, padding, padding}),
                  hasAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (window.isNull() || canvas.isNull())
        return {};
    canvas.fill(hasAlpha ? Qt::transparent : Qt::black);
    canvas.setColorSpace(window.colorSpace());
    const QImage pixels = window.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    drawBackground(background, canvas.rect(), painter);
    drawShadow(pixels, {padding, padding}, canvas.size(), painter);
    painter.drawImage(padding, padding, pixels);
    return canvas;
}

void WindowBackdropCompositor::drawScaledToFill(const QImage& image, const QRect& rect, QPainter& painter)
{
    const QRect part = Resampling::coveringPart(image.size(), rect.size());
    painter.drawImage(rect.topLeft(),
                      image.copy(part).scaled(rect.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

double WindowBackdropCompositor::cornerRadius(const QImage& window, int sample)
{
    const auto alphas = diagonalAlphas(window, std::min(sample, largestSample));
    // A window may be translucent all over.
    const double opaque = alphas.empty() ? 0 : *std::ranges::max_element(alphas);
    const auto inside = std::ranges::find_if(alphas, [&](double alpha) { return alpha >= nearlyOpaque * opaque; });
    if (opaque == 0 || inside == alphas.begin())
        return 0;
    const auto edge = std::prev(inside); // only a part of it lies within the corner
    return (double(edge - alphas.begin()) + cutOf(1 - *edge / opaque)) / crossingToRadius;
}

CaptureSubject WindowBackdropCompositor::subject(const QImage& window, const QImage& composed)
{
    const QSize margins = (composed.size() - window.size()) / 2;
    return subjectIn({{margins.width(), margins.height()}, window.size()}, cornerRadius(window));
}

CaptureSubject WindowBackdropCompositor::subject(const QImage& rereadOn)
{
    constexpr int strongestShadow = int(255 * shadowOpacity) + 1;
    const QRect box = boxAbove(rereadOn, strongestShadow);
    if (box.isEmpty())
        return subjectIn(rereadOn.rect(), 0);
    const QSize corner = box.size().boundedTo({largestSample, largestSample});
    return subjectIn(box, cornerRadius(rereadOn.copy({box.topLeft(), corner})));
}

// --- Asked for on the main thread

WindowBackdropCompositor::WindowBackdropCompositor(MainLoop& loop, Workers& workers, DesktopPicture& desktop,
                                                   Displays& displays, const Preferences& preferences)
    : m_preferences(preferences), m_pictures(loop, workers, desktop, displays), m_scope(loop, workers)
{
}

void WindowBackdropCompositor::captureWallpaper(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply)
{
    m_pictures.captureWallpaper({displayID, maxPixelSize}, std::move(reply));
}

void WindowBackdropCompositor::compose(QImage window, WindowBackdropStyle style, std::optional<QImage> wallpaper,
                                       Reply<ComposedCapture> reply)
{
    const QString colourHex = m_preferences.get(Settings::windowBackdropColorHex);
    Scope::start(composeAndReply(std::move(window), backgroundOf(style, wallpaper, colourHex), std::move(reply)),
                 "The window's backdrop");
}

QCoro::Task<> WindowBackdropCompositor::composeAndReply(QImage window, std::optional<Background> background,
                                                        Reply<ComposedCapture> reply)
{
    const auto compose = [window, background] { return composed(window, background); };
    ComposedCapture capture =
        co_await m_scope.onWorker(Lane::capture, Guarded::orElse(compose, ComposedCapture{window, std::nullopt}));
    reply(std::move(capture));
}

} // namespace Kovrel
