#pragma once

#include "capture/pixels/DesktopPictureCache.h"
#include "capture/pixels/WindowBackdrop.h"
#include "preferences/Preferences.h"

#include <QBrush>
#include <QPainter>

#include <variant>

namespace Kovrel {

// Sets a captured window on its backdrop: room around it, the desktop picture or a colour behind it, its shadow between
// them. Lengths are pixels of the window's image, origin top-left.
class WindowBackdropCompositor : public WindowBackdrop {
public:
    WindowBackdropCompositor(MainLoop& loop, Workers& workers, DesktopPicture& desktop, Displays& displays,
                             const Preferences& preferences);

    // WindowBackdrop
    void captureWallpaper(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override;
    void compose(QImage window, WindowBackdropStyle style, std::optional<QImage> wallpaper,
                 Reply<ComposedCapture> reply) override;

    // The rest is the work itself, for any thread.

    // A picture that fills the canvas, or what the canvas is painted with: a gradient is stretched over it, and where
    // nothing is painted the canvas stays transparent.
    using Background = std::variant<QImage, QBrush>;

    struct Shadow {
        double blurRadius;
        double offset; // downwards
    };

    // On every side of the window.
    static int canvasPadding(QSize window);
    static Shadow shadow(QSize window);
    // The window with padding, shadow and background: Format_RGB32, or Format_ARGB32_Premultiplied where the background
    // is transparent. A null image when memory is short.
    static QImage composite(const QImage& window, const Background& background);
    // Scaled to cover the rectangle, what is too much cut off evenly.
    static void drawScaledToFill(const QImage& image, const QRect& rect, QPainter& painter);

    // Of the top-left corner, 0 when it is square, read off a square of `sample` pixels. Where a round corner of radius
    // r crosses the diagonal, x = y = r * (1 - 1/sqrt(2)).
    static double cornerRadius(const QImage& window, int sample = largestSample);
    static constexpr int largestSample = 128;

    // The window inside the composed image, in whose middle it lies.
    static CaptureSubject subject(const QImage& window, const QImage& composed);
    // The same for an image that tells nothing of how it was made: the box around what is more opaque than a shadow, or
    // the whole image where nothing is.
    static CaptureSubject subject(const QImage& rereadOn);

private:
    QCoro::Task<> composeAndReply(QImage window, std::optional<Background> background, Reply<ComposedCapture> reply);

    const Preferences& m_preferences;
    DesktopPictureCache m_pictures;
    Scope m_scope;
};

} // namespace Kovrel
