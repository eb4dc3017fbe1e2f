#pragma once

#include "platform/UserDefaults.h"

#include <QProxyStyle>

namespace Kovrel {

// The desktop's own style, with tool tips that come when the user setting says.
class AppStyle : public QProxyStyle {
public:
    explicit AppStyle(const UserDefaults& defaults) : m_defaults(defaults) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_ToolTip_WakeUpDelay)
            return int(m_defaults.integer("NSInitialToolTipDelay"));
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    const UserDefaults& m_defaults;
};

} // namespace Kovrel
