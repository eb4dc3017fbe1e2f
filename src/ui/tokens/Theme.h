#pragma once

#include "ui/tokens/ColorScheme.h"

#include <QColor>

class QPalette;

namespace Kovrel {

// The colours of Kovrel's windows by their meaning. All but `shadow` and `cardEdge` are opaque. Texts stand out from
// every ground they are meant for by 4.5 to 1 at least, edges of high contrast by 7 to 1.
struct Theme {
    QColor window;
    QColor card; // what floats above other windows, or lies on one
    QColor cardEdge;
    QColor text;
    QColor secondaryText;
    QColor disabledText;
    QColor accent; // ground of what is done first
    QColor accentHovered;
    QColor accentPressed;
    QColor onAccent;     // text on these three
    QColor accentText;   // symbols and links
    QColor accentGround; // behind a symbol
    QColor warning;
    QColor warningGround;
    QColor separator;
    QColor hoverGround;
    QColor pressedGround;
    QColor canvas; // around pictures that are worked on: no colour of its own
    QColor focusRing;
    QColor shadow; // of one layer of a shadow, which is faint

    static const Theme& of(ColorScheme scheme);
    // As the palette of the application asks for now. Main thread.
    static const Theme& current();

    // For controls that the desktop's style paints.
    QPalette palette() const;
};

} // namespace Kovrel
