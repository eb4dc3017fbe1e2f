#pragma once

#include "editor/backdrop/CardAlignment.h"

#include <QWidget>

#include <vector>

namespace Kovrel {

class Button;

// Towards which side of its canvas a capture is pushed: nine places, of which the arrow keys go from one to the next.
// Main thread.
class AlignmentPad : public QWidget {
    Q_OBJECT

public:
    AlignmentPad();

    void setAlignment(CardAlignment alignment);

Q_SIGNALS:
    void alignmentChosen(CardAlignment alignment);

private:
    std::vector<Button*> m_places; // in the order of the alignments
};

} // namespace Kovrel
