#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace Kovrel {

// The program's windows that have a title, on the screen or minimised; neither panels nor menus nor the tray item.
// Main thread.
namespace TitledWindows {

struct Entry {
    QString title;
    bool isActive = false;
    std::function<void()> focus; // does nothing once the window is gone
};

std::vector<Entry> list();

// Answers whether there was one.
bool bringForward();
void close();

} // namespace TitledWindows

} // namespace Kovrel
