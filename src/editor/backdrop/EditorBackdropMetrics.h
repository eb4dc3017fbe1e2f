#pragma once

#include "editor/backdrop/BackdropLayout.h"
#include "editor/backdrop/BackdropMargins.h"
#include "editor/backdrop/EditorBackdrop.h"
#include "model/CaptureSubject.h"
#include "model/Geometry.h"

#include <optional>

namespace Kovrel {

// Places a capture on its canvas. Any thread.
//
// Rectangles are image points with their origin at the lower left of the image, y up, unless something else is said.
// Subjects and margins are image points too, a subject's rectangle with its origin at the upper left of the image:
// what is measured in pixels is divided by the export scale first (`inPoints`, `BackdropMargins::scaled`).
namespace EditorBackdropMetrics {

CaptureSubject inPoints(const CaptureSubject& subject, double exportScale);

// The canvas. For a backdrop that is none, the image's rectangle itself.
Rect canvasRect(Size imageSize, const EditorBackdrop& backdrop, const std::optional<CaptureSubject>& subject = {},
                const BackdropMargins& margins = {});

// The image's rectangle; with auto-balance, less what one of its margins is wider than the one across from it. The
// margins are those around the subject, or else the given ones. Nothing but margin is ever taken off.
Rect balancedRect(Size imageSize, const EditorBackdrop& backdrop, const std::optional<CaptureSubject>& subject = {},
                  const BackdropMargins& margins = {});

// Widened or heightened about its centre to the aspect ratio.
Rect shaped(const Rect& rect, const std::optional<AspectRatio>& to);

// How far the shadow of a framed card may spread: the least free space between it and the canvas on the sides that the
// light throws shadows to, on all four for light from the front. A side without space does not count; nothing where no
// side does.
std::optional<double> shadowRoom(const Rect& framed, const Rect& canvas, ShadowLight direction);

// The card, which corners, frame and shadow belong to: the subject's window, or else the balanced image.
Rect cardRect(Size imageSize, const EditorBackdrop& backdrop, const std::optional<CaptureSubject>& subject = {},
              const BackdropMargins& margins = {});

// All of that at `scale` pixels to a point, for an image of so many pixels whose own scale is `exportScale`; subject
// and margins in pixels of the image. Here alone positions are rounded to whole pixels. Nothing for a scale that is
// none, an empty image and a canvas of more than `mostPixels`.
std::optional<BackdropLayout> layout(QSize imagePixels, double exportScale, double scale,
                                     const EditorBackdrop& backdrop, const std::optional<CaptureSubject>& subject = {},
                                     const BackdropMargins& margins = {});

inline constexpr double mostPixels = 500e6;
inline constexpr double longestSide = 32767;

} // namespace EditorBackdropMetrics

} // namespace Kovrel
