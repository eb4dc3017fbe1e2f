#include "welcome/FirstRunPage.h"

#include "ui/Label.h"
#include "ui/tokens/Metrics.h"

#include <QVBoxLayout>

namespace Kovrel {

FirstRunPage::FirstRunPage()
    : m_layout(new QVBoxLayout(this)),
      m_title(new Label(TextStyle::headline)),
      m_text(new Label(TextStyle::body, Label::Role::secondary))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(Spacing::small);
    m_layout->addStretch(1);
    for (Label* label : {m_title, m_text}) {
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        m_layout->addWidget(label);
    }
    m_layout->addStretch(2);
}

void FirstRunPage::setTexts(const QString& title, const QString& text)
{
    m_title->setText(title);
    m_text->setText(text);
}

void FirstRunPage::addAbove(QWidget* widget)
{
    m_layout->insertWidget(1, widget, 0, Qt::AlignHCenter);
    m_layout->insertSpacing(2, Spacing::medium);
}

void FirstRunPage::addBelow(QWidget* widget)
{
    const int end = m_layout->count() - 1; // before the stretch
    m_layout->insertSpacing(end, Spacing::small);
    m_layout->insertWidget(end + 1, widget);
}

} // namespace Kovrel
