#pragma once

#include <QProxyStyle>

#include <functional>

namespace Kovrel {

// The desktop's own style, with scroll bars and lists of ours, and tool tips that come when the user setting says. Main
// thread.
class AppStyle : public QProxyStyle {
    Q_OBJECT

public:
    // `toolTipDelay`: milliseconds. Null: the desktop's own style below.
    explicit AppStyle(std::function<int()> toolTipDelay, QStyle* below = nullptr);

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    std::function<int()> m_toolTipDelay;
};

} // namespace Kovrel
