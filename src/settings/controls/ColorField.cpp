#include "settings/controls/ColorField.h"

#include "ui/Label.h"
#include "ui/controls/ColorWell.h"

namespace Kovrel {

ColorField::ColorField(const SettingControls::Color& kind)
    : m_hex(new Label(TextStyle::body, Label::Role::secondary)), m_well(new ColorWell({}, kind.pick))
{
    m_well->setFocusPolicy(Qt::StrongFocus);
    setMain(m_well);
    add(m_hex);
    add(m_well);
    connect(m_well, &ColorWell::colorChosen, this, [this](const QString& hex) { Q_EMIT changed(hex); });
}

void ColorField::setValue(const QVariant& value)
{
    m_hex->setText(value.toString());
    m_well->setColor(value.toString());
}

// The description is the colour.
void ColorField::setTexts(const QString& name, const QString&)
{
    m_well->setAccessibleName(name);
}

} // namespace Kovrel
