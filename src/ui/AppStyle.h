#pragma once

#include <QProxyStyle>

#include <functional>

namespace Kovrel {

// The desktop's own style, with tool tips that come when the user setting says.
class AppStyle : public QProxyStyle {
public:
    explicit AppStyle(std::function<int()> toolTipDelay) : m_toolTipDelay(std::move(toolTipDelay)) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_ToolTip_WakeUpDelay)
            return m_toolTipDelay();
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    std::function<int()> m_toolTipDelay;
};

} // namespace Kovrel
