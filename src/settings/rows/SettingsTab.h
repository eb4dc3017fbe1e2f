#pragma once

#include "model/RawStrings.h"

#include <QCoreApplication>

namespace Kovrel {

// The tabs of the settings window, in their order.
enum class SettingsTab { general, capture, afterCapture, saving, editor, shortcuts, history, text, sounds };

template <>
struct RawStrings<SettingsTab> {
    static constexpr std::array table{
        std::pair{SettingsTab::general, "general"},    std::pair{SettingsTab::capture, "capture"},
        std::pair{SettingsTab::afterCapture, "after"}, std::pair{SettingsTab::saving, "saving"},
        std::pair{SettingsTab::editor, "editor"},      std::pair{SettingsTab::shortcuts, "shortcuts"},
        std::pair{SettingsTab::history, "history"},    std::pair{SettingsTab::text, "text"},
        std::pair{SettingsTab::sounds, "sounds"},
    };
};

// What is read of a tab.
class SettingsTabs {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SettingsTabs)

public:
    static QString title(SettingsTab tab);
    static QString symbol(SettingsTab tab);
};

} // namespace Kovrel
