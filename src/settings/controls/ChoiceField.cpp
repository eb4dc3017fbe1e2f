#include "settings/controls/ChoiceField.h"

#include "ui/controls/ChoiceBox.h"

#include <algorithm>

namespace Kovrel {

ChoiceField::ChoiceField(SettingControls::Choice choice) : m_choice(std::move(choice)), m_box(new ChoiceBox)
{
    for (const auto& option : m_choice.options)
        m_box->addItem(option.title, option.value);
    add(m_box);
    connect(m_box, &QComboBox::activated, this, [this](int index) { Q_EMIT changed(m_box->itemData(index)); });
}

void ChoiceField::setValue(const QVariant& value)
{
    const int known = int(m_choice.options.size());
    const auto option = std::ranges::find(m_choice.options, value, &SettingControls::Option::value);
    while (m_box->count() > known)
        m_box->removeItem(known);
    if (option == m_choice.options.end() && m_choice.other)
        m_box->addItem(m_choice.other(value), value);
    m_box->setCurrentIndex(int(option - m_choice.options.begin()));
}

} // namespace Kovrel
