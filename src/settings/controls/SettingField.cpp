#include "settings/controls/SettingField.h"

#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>

namespace Kovrel {

SettingField::SettingField()
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::small);
}

void SettingField::add(QWidget* control, int stretch)
{
    static_cast<QHBoxLayout*>(layout())->addWidget(control, stretch);
    if (!m_main)
        m_main = control;
}

void SettingField::takeFocus()
{
    m_main->setFocus();
}

void SettingField::setTexts(const QString& name, const QString& description)
{
    m_main->setAccessibleName(name);
    m_main->setAccessibleDescription(description);
}

} // namespace Kovrel
