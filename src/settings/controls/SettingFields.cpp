#include "settings/controls/SettingFields.h"

#include "settings/controls/ActionField.h"
#include "settings/controls/ChoiceField.h"
#include "settings/controls/ColorField.h"
#include "settings/controls/CornerField.h"
#include "settings/controls/FolderField.h"
#include "settings/controls/HotkeyField.h"
#include "settings/controls/LanguagesField.h"
#include "settings/controls/SliderField.h"
#include "settings/controls/TextLineField.h"
#include "settings/controls/ToggleField.h"

namespace Kovrel {

namespace {

struct Maker {
    SettingField* operator()(const SettingControls::Toggle&) const { return new ToggleField; }

    SettingField* operator()(const SettingControls::Choice& kind) const { return new ChoiceField(kind); }

    SettingField* operator()(const SettingControls::Slider& kind) const { return new SliderField(kind); }

    SettingField* operator()(const SettingControls::Text&) const { return new TextLineField; }

    SettingField* operator()(const SettingControls::Color& kind) const { return new ColorField(kind); }

    SettingField* operator()(const SettingControls::Folder& kind) const { return new FolderField(kind); }

    SettingField* operator()(const SettingControls::Hotkey& kind) const { return new HotkeyField(kind); }

    SettingField* operator()(const SettingControls::Corner&) const { return new CornerField; }

    SettingField* operator()(const SettingControls::Languages& kind) const { return new LanguagesField(kind); }

    SettingField* operator()(const SettingControls::Action& kind) const { return new ActionField(kind); }
};

} // namespace

SettingField* SettingFields::make(const SettingControl& control)
{
    return std::visit(Maker(), control);
}

} // namespace Kovrel
