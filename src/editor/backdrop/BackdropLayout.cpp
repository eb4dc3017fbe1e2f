#include "editor/backdrop/BackdropLayout.h"

namespace Kovrel {

QPainterPath BackdropLayout::captureClip() const
{
    QPainterPath path;
    path.addRoundedRect(card, cardRadius, cardRadius);
    return path;
}

} // namespace Kovrel
