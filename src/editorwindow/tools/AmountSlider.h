#pragma once

#include <QWidget>

#include <functional>

class QLabel;

namespace Kovrel {

class Slider;

// An amount to be chosen: its name, a slider, and, where a format is given, what it says. Clicks leave the keyboard to
// whoever has it. Main thread.
class AmountSlider : public QWidget {
    Q_OBJECT

public:
    struct Range {
        double least = 0;
        double most = 1;
        double step = 0.01;
    };

    AmountSlider(const QString& name, Range range, std::function<QString(double)> format = {});

    // Is shown, not told.
    void setAmount(double amount);

    // For screen readers, where the name alone does not say of what.
    void setSpokenName(const QString& name);

    // In points, so that sliders below each other begin at one place.
    void setNameWidth(int width);

Q_SIGNALS:
    // Chosen by the user.
    void amountChosen(double amount);
    // The slider was let go.
    void finished();

private:
    void showValue();

    Range m_range;
    std::function<QString(double)> m_format;
    QLabel* m_name;
    Slider* m_slider;
    QLabel* m_value = nullptr;
};

} // namespace Kovrel
