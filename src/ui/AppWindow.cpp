#include "ui/AppWindow.h"

#include "ui/LookChanges.h"
#include "ui/tokens/Theme.h"

#include <QPalette>

namespace Kovrel {

AppWindow::AppWindow()
{
    takeColors();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &AppWindow::takeColors);
}

void AppWindow::takeColors()
{
    setPalette(Theme::current().palette());
}

} // namespace Kovrel
