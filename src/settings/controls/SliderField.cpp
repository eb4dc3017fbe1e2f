#include "settings/controls/SliderField.h"

#include "ui/Label.h"
#include "ui/controls/Slider.h"

#include <QSignalBlocker>

#include <cmath>

namespace Kovrel {

namespace {

constexpr int sliderLength = 170;

int positionOf(double number, double step)
{
    return int(std::lround(number / step));
}

} // namespace

SliderField::SliderField(SettingControls::Slider kind)
    : m_kind(std::move(kind)), m_slider(new Slider), m_number(new Label(TextStyle::control))
{
    m_slider->setRange(positionOf(m_kind.least, m_kind.step), positionOf(m_kind.most, m_kind.step));
    m_slider->setFixedWidth(sliderLength);
    m_slider->setTracking(false);
    m_number->setWordWrap(false);
    m_number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_number->setMinimumWidth(m_number->fontMetrics().horizontalAdvance(m_kind.text(m_kind.most)));
    add(m_slider);
    add(m_number);
    connect(m_slider, &QSlider::sliderMoved, this, &SliderField::showNumber);
    connect(m_slider, &QSlider::valueChanged, this, [this](int position) {
        showNumber(position);
        Q_EMIT changed(position * m_kind.step);
    });
}

// A hand on the slider goes on.
void SliderField::setValue(const QVariant& value)
{
    if (m_slider->isSliderDown())
        return;
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(positionOf(value.toDouble(), m_kind.step));
    showNumber(m_slider->value());
}

void SliderField::showNumber(int position)
{
    m_number->setText(m_kind.text(position * m_kind.step));
}

} // namespace Kovrel
