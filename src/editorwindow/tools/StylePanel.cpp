#include "editorwindow/tools/StylePanel.h"

#include "ui/controls/ColorWell.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"

#include <QHBoxLayout>

namespace Kovrel {

StylePanel::StylePanel(Preferences& preferences, ColorPick pick) : m_preferences(preferences)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::tight);
    m_color = new ColorWell([this] { return m_preferences.get(Settings::savedSwatches); }, std::move(pick));
    layout->addWidget(m_color);
    m_width = makeAmount(tr("Width"), {1, 20, 0.5}, &MarkStyle::lineWidth);
    m_fill = makeChoices<AnnotationFillStyle>({{"rectangle", tr("Outline")},
                                               {"rectangle.translucent", tr("Translucent")},
                                               {"rectangle.hatched", tr("Hatched")},
                                               {"rectangle.fill", tr("Filled")}},
                                              &MarkStyle::fillStyle);
    m_text = makeChoices<AnnotationTextStyle>({{"textformat", tr("Plain")},
                                               {"textformat.outlined", tr("Outlined")},
                                               {"textformat.plate", tr("On a Plate")},
                                               {"bubble", tr("Speech Bubble")}},
                                              &MarkStyle::textStyle);
    m_rounded = new SymbolButton("rectangle.rounded", tr("Rounded Corners"));
    m_rounded->setCheckable(true);
    layout->addWidget(m_rounded);
    m_dim = makeAmount(tr("Darkness"), {0.1, 0.9, 0.05}, &MarkStyle::dimLevel);
    m_tip = makeAmount(tr("Arrow Head"), {0.5, 3, 0.1}, &MarkStyle::tipScale);
    connect(m_color, &ColorWell::colorChosen, this,
            [this](const QString& hex) { Q_EMIT styleChosen({.colorHex = hex}); });
    connect(m_color, &ColorWell::swatchToggled, this, &StylePanel::toggleSwatch);
    connect(m_rounded, &SymbolButton::clicked, this,
            [this](bool isRounded) { Q_EMIT styleChosen({.rounded = isRounded}); });
}

AmountSlider* StylePanel::makeAmount(const QString& name, AmountSlider::Range range,
                                     std::optional<double> MarkStyle::* field)
{
    auto* const slider = new AmountSlider(name, range);
    layout()->addWidget(slider);
    connect(slider, &AmountSlider::amountChosen, this, [this, field](double amount) {
        MarkStyle style;
        style.*field = amount;
        Q_EMIT styleChosen(style);
    });
    return slider;
}

void StylePanel::show(AmountSlider* slider, const std::optional<double>& value, bool isPossible)
{
    slider->setVisible(isPossible);
    if (value)
        slider->setAmount(*value);
}

template <class Choice>
std::vector<SymbolButton*> StylePanel::makeChoices(const std::vector<std::pair<QString, QString>>& drawings,
                                                   std::optional<Choice> MarkStyle::* field)
{
    std::vector<SymbolButton*> buttons;
    for (const auto& [symbol, name] : drawings) {
        auto* const button = new SymbolButton(symbol, name);
        button->setCheckable(true);
        connect(button, &SymbolButton::clicked, this, [this, field, choice = Choice(buttons.size())] {
            MarkStyle style;
            style.*field = choice;
            Q_EMIT styleChosen(style);
        });
        layout()->addWidget(button);
        buttons.push_back(button);
    }
    return buttons;
}

template <class Choice>
void StylePanel::show(const std::vector<SymbolButton*>& buttons, const std::optional<Choice>& value, bool isPossible)
{
    for (size_t index = 0; index < buttons.size(); ++index) {
        buttons[index]->setVisible(isPossible);
        buttons[index]->setChecked(value && *value == Choice(index));
    }
}

void StylePanel::setStyle(const MarkStyle& style, const MarkStyle& possible)
{
    m_color->setVisible(possible.colorHex.has_value());
    m_color->setColor(style.colorHex);
    show(m_width, style.lineWidth, possible.lineWidth.has_value());
    show(m_fill, style.fillStyle, possible.fillStyle.has_value());
    show(m_text, style.textStyle, possible.textStyle.has_value());
    m_rounded->setVisible(possible.rounded.has_value());
    m_rounded->setChecked(style.rounded.value_or(false));
    show(m_dim, style.dimLevel, possible.dimLevel.has_value());
    show(m_tip, style.tipScale, possible.tipScale.has_value());
}

void StylePanel::toggleSwatch(const QString& hex)
{
    QStringList swatches = m_preferences.get(Settings::savedSwatches);
    if (swatches.removeAll(hex) == 0)
        swatches.append(hex);
    m_preferences.set(Settings::savedSwatches, swatches);
}

} // namespace Kovrel
