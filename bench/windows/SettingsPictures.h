#pragma once

#include "preferences/Preferences.h"

#include <QWidget>

#include <functional>

namespace Kovrel {

// Every state of the settings window: each tab, a search, a recorder that listens, a conflict. It is handed over shown.
namespace SettingsPictures {

void take(Preferences& preferences, const std::function<void(const QString& name, QWidget& window)>& save);

} // namespace SettingsPictures

} // namespace Kovrel
