#include "settings/rows/SettingsTab.h"

namespace Kovrel {

QString SettingsTabs::title(SettingsTab tab)
{
    switch (tab) {
    case SettingsTab::general:
        return tr("General");
    case SettingsTab::capture:
        return tr("Capture");
    case SettingsTab::afterCapture:
        return tr("After Capture");
    case SettingsTab::saving:
        return tr("Saving");
    case SettingsTab::editor:
        return tr("Editor");
    case SettingsTab::shortcuts:
        return tr("Shortcuts");
    case SettingsTab::history:
        return tr("History");
    case SettingsTab::text:
        return tr("Text Recognition");
    case SettingsTab::sounds:
        return tr("Sounds");
    }
    Q_UNREACHABLE();
}

QString SettingsTabs::symbol(SettingsTab tab)
{
    switch (tab) {
    case SettingsTab::general:
        return "gearshape";
    case SettingsTab::capture:
        return "viewfinder";
    case SettingsTab::afterCapture:
        return "doc.on.doc";
    case SettingsTab::saving:
        return "square.and.arrow.down";
    case SettingsTab::editor:
        return "pencil";
    case SettingsTab::shortcuts:
        return "keyboard";
    case SettingsTab::history:
        return "clock";
    case SettingsTab::text:
        return "text.viewfinder";
    case SettingsTab::sounds:
        return "speaker";
    }
    Q_UNREACHABLE();
}

} // namespace Kovrel
