#pragma once

#include "welcome/FirstRunPage.h"

#include <functional>

namespace Kovrel {

class ToggleSwitch;

// Where the program is from now on, and whether it starts with the session.
class DonePage : public FirstRunPage {
    Q_OBJECT

public:
    struct Login {
        std::function<bool()> isOn;
        std::function<void(bool)> set;
    };

    DonePage(bool hasTray, Login login);

    void refresh();

private:
    QWidget* makeLoginRow();

    Login m_login;
    ToggleSwitch* m_switch;
};

} // namespace Kovrel
