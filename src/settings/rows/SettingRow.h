#pragma once

#include "model/Question.h"
#include "settings/rows/SettingBinding.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

// What is said below a setting as it is now; empty: nothing.
struct SettingRemark {
    QString text = {};
    bool isWarning = false;

    bool operator==(const SettingRemark&) const = default;
};

// One setting in the window. Functions are called on the main thread and don't block.
struct SettingRow {
    QString label;
    SettingControl control;
    SettingBinding binding = {};
    QString hint = {};     // what it is good for
    QString keywords = {}; // what else people call it

    std::function<bool()> isEnabled = {}; // null: always
    std::function<void(Reply<SettingRemark>)> remark = {};
    // What is asked before the setting becomes this.
    std::function<std::optional<Question>(const QVariant& value)> question = {};
    std::function<void()> changed = {}; // the user has changed it here
    std::optional<SettingControls::Action> action = {};
};

// Settings that belong together.
struct SettingGroup {
    QString title = {};
    std::vector<SettingRow> rows;
    QString help = {}; // said below them
};

} // namespace Kovrel
