#include "welcome/TryOutPage.h"

namespace Kovrel {

namespace {

constexpr int drawingWidth = 300;

} // namespace

TryOutPage::TryOutPage() : m_drawing(new FirstRunDrawing(FirstRunDrawing::Subject::tryOut, drawingWidth))
{
    addAbove(m_drawing);
}

void TryOutPage::show(bool hasCaptured, const QString& keys, bool hasCard)
{
    if (hasCaptured) {
        m_drawing->setSubject(FirstRunDrawing::Subject::card);
        setTexts(tr("There it is"), hasCard ? tr("Point at the card in the corner: copy, save, edit or pin the capture "
                                                 "from there, or drag it into any program. It waits while you look.")
                                            : tr("Your capture went where the settings send it, and into Recent "
                                                 "Captures."));
        return;
    }
    m_drawing->setSubject(FirstRunDrawing::Subject::tryOut);
    setTexts(tr("Try it now"), keys.isEmpty() ? tr("This window steps aside. Drag a rectangle around anything; Escape "
                                                   "lets it be.")
                                              : tr("Press %1, or the button below. This window steps aside; drag a "
                                                   "rectangle around anything. Escape lets it be.")
                                                    .arg(keys));
}

} // namespace Kovrel
