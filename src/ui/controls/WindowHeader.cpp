#include "ui/controls/WindowHeader.h"

#include "ui/Label.h"
#include "ui/ProgramIcon.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>

namespace Kovrel {

WindowHeader::WindowHeader()
    : m_title(new Label(TextStyle::headline)), m_text(new Label(TextStyle::body, Label::Role::secondary))
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(Spacing::medium);
    layout->setVerticalSpacing(Spacing::tight);
    layout->addWidget(new ProgramIcon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(m_title, 0, 1, Qt::AlignBottom);
    layout->addWidget(m_text, 1, 1, Qt::AlignTop);
    layout->setColumnStretch(1, 1);
}

void WindowHeader::setTexts(const QString& title, const QString& text)
{
    m_title->setText(title);
    m_text->setText(text);
}

} // namespace Kovrel
