#pragma once

#include "model/ColorPick.h"

namespace Kovrel {

// "Pick Color": what is done with a colour that was picked. Main thread.
class ScreenColorPicker {
public:
    // What it works on, so that it runs without a screen.
    struct Environment {
        std::function<void(ColorCompletion)> pick;
        std::function<QString(const QString& hex)> text; // as the loupe showed it
        std::function<void(const QString& text)> copy;
        std::function<void(const QString& text, const QString& hex)> confirm;
        std::function<void(const QString& reason)> fail;
    };

    explicit ScreenColorPicker(Environment environment);

    // Copies the colour, and confirms that, or says why there can be none. Nothing is done when the user wanted none.
    void run();

private:
    Environment m_environment;
};

} // namespace Kovrel
