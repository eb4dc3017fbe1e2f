#pragma once

#include "preferences/Preferences.h"

#include <QWidget>

#include <functional>

namespace Kovrel {

// The program's own windows in every state: home, each page of the first run, and what is shown where nothing can be
// captured, and the one for feedback. Each is handed over shown.
namespace WelcomePictures {

void take(Preferences& preferences, const std::function<void(const QString& name, QWidget& window)>& save);

} // namespace WelcomePictures

} // namespace Kovrel
