#pragma once

#include "platform/x11/X11ImageReader.h"
#include "platform/x11/windows/X11Frame.h"

#include <QObject>

namespace Kovrel {

// KWin draws a window's decoration only on the screen: in the pixels that the server keeps of the frame there is
// whatever was there before.
namespace KWinDecoration {

bool isDrawnApart(X11Connection& connection, xcb_window_t window, const X11Frame& frame);

// What `frame.visible` covers, as KWin shows it with nothing in front. No value where KWin does not answer within a
// second, or where the frame can't be told from its shadow, as of translucent windows. Blocks the thread.
std::optional<QImage> read(X11ImageReader& reader, xcb_window_t window, const X11Frame& frame);

} // namespace KWinDecoration

// Hears of the picture that KWin makes.
class KWinPicture : public QObject {
    Q_OBJECT

public:
    xcb_pixmap_t pixmap() const { return m_pixmap; }

Q_SIGNALS:
    void arrived();

public Q_SLOTS:
    void created(qulonglong handle);

private:
    xcb_pixmap_t m_pixmap = XCB_NONE;
};

} // namespace Kovrel
