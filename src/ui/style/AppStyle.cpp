#include "ui/style/AppStyle.h"

#include "ui/style/ScrollBarLook.h"

#include <QStyleOption>

namespace Kovrel {

namespace {

const QStyleOptionSlider* scrollBar(QStyle::ComplexControl control, const QStyleOption* option)
{
    return control == QStyle::CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
}

} // namespace

AppStyle::AppStyle(std::function<int()> toolTipDelay, QStyle* below)
    : QProxyStyle(below), m_toolTipDelay(std::move(toolTipDelay))
{
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const
{
    if (hint == SH_ToolTip_WakeUpDelay)
        return m_toolTipDelay();
    if (hint == SH_ComboBox_Popup)
        return 0; // a list below its field, in the field's colours, where others show a menu over it in the desktop's
    return QProxyStyle::styleHint(hint, option, widget, data);
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    return metric == PM_ScrollBarExtent ? ScrollBarLook::extent : QProxyStyle::pixelMetric(metric, option, widget);
}

QRect AppStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                               const QWidget* widget) const
{
    if (const auto* const bar = scrollBar(control, option))
        return ScrollBarLook::partOf(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                  const QWidget* widget) const
{
    if (const auto* const bar = scrollBar(control, option))
        return ScrollBarLook::paint(*painter, *bar);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace Kovrel
