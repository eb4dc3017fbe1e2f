#include "editorwindow/tools/AmountSlider.h"

#include "ui/controls/Slider.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Typography.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include <cmath>

namespace Kovrel {

namespace {

constexpr int usualLength = 110;
constexpr int shortestLength = 80;
constexpr QLatin1String widestValue("100 %"); // so that sliders below each other end at one place

int stepsOf(double amount, double step)
{
    return int(std::lround(amount / step));
}

QLabel* makeLabel(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setFont(Typography::font(TextStyle::caption));
    return label;
}

} // namespace

AmountSlider::AmountSlider(const QString& name, Range range, std::function<QString(double)> format)
    : m_range(range), m_format(std::move(format)), m_name(makeLabel(name)), m_slider(new Slider)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::tight);
    layout->addWidget(m_name);
    layout->addWidget(m_slider, 1);
    m_slider->setRange(stepsOf(range.least, range.step), stepsOf(range.most, range.step));
    m_slider->setMinimumWidth(m_format ? shortestLength : usualLength);
    m_slider->setFocusPolicy(Qt::TabFocus); // clicks leave the keyboard where it is
    m_slider->setAccessibleName(name);
    if (m_format) {
        m_value = makeLabel({});
        m_value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_value->setForegroundRole(QPalette::PlaceholderText);
        m_value->setMinimumWidth(m_value->fontMetrics().horizontalAdvance(widestValue));
        layout->addWidget(m_value);
    }
    connect(m_slider, &Slider::valueChanged, this, [this](int steps) {
        showValue();
        Q_EMIT amountChosen(steps * m_range.step);
    });
    connect(m_slider, &Slider::sliderReleased, this, &AmountSlider::finished);
    showValue();
}

void AmountSlider::setAmount(double amount)
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(stepsOf(amount, m_range.step));
    showValue();
}

void AmountSlider::setSpokenName(const QString& name)
{
    m_slider->setAccessibleName(name);
}

void AmountSlider::setNameWidth(int width)
{
    m_name->setFixedWidth(width);
}

void AmountSlider::showValue()
{
    if (!m_format)
        return;
    const QString text = m_format(m_slider->value() * m_range.step);
    m_value->setText(text);
    m_slider->setAccessibleDescription(text);
}

} // namespace Kovrel
