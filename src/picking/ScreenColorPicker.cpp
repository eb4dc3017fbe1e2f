#include "picking/ScreenColorPicker.h"

namespace Kovrel {

ScreenColorPicker::ScreenColorPicker(Environment environment) : m_environment(std::move(environment)) {}

void ScreenColorPicker::run()
{
    m_environment.pick([environment = m_environment](const PickedColor& hex) {
        if (!hex) {
            if (!hex.error().isEmpty())
                environment.fail(hex.error());
            return;
        }
        const QString text = environment.text(*hex);
        environment.copy(text);
        environment.confirm(text, *hex);
    });
}

} // namespace Kovrel
