#include "welcome/DonePage.h"

#include "ui/Label.h"
#include "ui/controls/Card.h"
#include "ui/controls/ToggleSwitch.h"
#include "ui/tokens/Metrics.h"
#include "welcome/FirstRunDrawing.h"

#include <QHBoxLayout>

namespace Kovrel {

namespace {

constexpr int drawingWidth = 260;

} // namespace

DonePage::DonePage(bool hasTray, Login login) : m_login(std::move(login)), m_switch(new ToggleSwitch)
{
    addAbove(new FirstRunDrawing(FirstRunDrawing::Subject::done, drawingWidth));
    setTexts(tr("You are all set"), hasTray ? tr("Kovrel waits in the tray: everything it can do is in its menu there.")
                                            : tr("This desktop has no tray. Start Kovrel again whenever you want its "
                                                 "window; its keys work all the time."));
    addBelow(makeLoginRow());
}

QWidget* DonePage::makeLoginRow()
{
    auto* const card = new Card;
    auto* const label = new Label(TextStyle::control);
    label->setText(tr("Start Kovrel at login"));
    m_switch->setAccessibleName(label->text());
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) { m_login.set(isOn); });
    auto* const layout = new QHBoxLayout(card);
    layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    layout->addWidget(label, 1);
    layout->addWidget(m_switch);
    return card;
}

void DonePage::refresh()
{
    m_switch->setChecked(m_login.isOn());
}

} // namespace Kovrel
