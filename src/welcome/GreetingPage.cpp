#include "welcome/GreetingPage.h"

#include "ui/Label.h"
#include "ui/ProgramIcon.h"
#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>

namespace Kovrel {

namespace {

constexpr int drawingWidth = 144;

} // namespace

GreetingPage::GreetingPage()
{
    using enum FirstRunDrawing::Subject;
    addAbove(new ProgramIcon);
    setTexts(tr("Welcome to Kovrel"), tr("Captures, kept and found again. Everything stays on this computer."));
    auto* const parts = new QWidget;
    auto* const layout = new QHBoxLayout(parts);
    layout->setContentsMargins(0, Spacing::large, 0, 0);
    layout->setSpacing(Spacing::large);
    layout->addWidget(makePart(capture, tr("Capture"), tr("An area, a window or the whole screen")));
    layout->addWidget(makePart(mark, tr("Mark up"), tr("Arrows, labels, redactions, backdrops")));
    layout->addWidget(makePart(find, tr("Find again"), tr("By any word that was on the screen")));
    addBelow(parts);
}

QWidget* GreetingPage::makePart(FirstRunDrawing::Subject subject, const QString& title, const QString& text)
{
    auto* const part = new QWidget;
    auto* const layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::tight);
    layout->addWidget(new FirstRunDrawing(subject, drawingWidth), 0, Qt::AlignHCenter);
    layout->addSpacing(Spacing::small);
    auto* const name = new Label(TextStyle::emphasis);
    name->setText(title);
    auto* const line = new Label(TextStyle::body, Label::Role::secondary);
    line->setText(text);
    for (Label* label : {name, line}) {
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        layout->addWidget(label);
    }
    layout->addStretch();
    return part;
}

} // namespace Kovrel
