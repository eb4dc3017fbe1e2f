#pragma once

#include "welcome/FirstRunDrawing.h"
#include "welcome/FirstRunPage.h"

namespace Kovrel {

// What the program is good for, in three drawings.
class GreetingPage : public FirstRunPage {
    Q_OBJECT

public:
    GreetingPage();

private:
    static QWidget* makePart(FirstRunDrawing::Subject subject, const QString& title, const QString& text);
};

} // namespace Kovrel
