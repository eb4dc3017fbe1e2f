#pragma once

#include "editor/session/MarkStyle.h"
#include "editorwindow/tools/AmountSlider.h"
#include "model/ColorPick.h"
#include "preferences/Preferences.h"

#include <QWidget>

namespace Kovrel {

class ColorWell;
class SymbolButton;

// How the marks look that are selected, or those that the tool makes: what there is to choose, in one row. Each change
// is told at once. Clicks leave the keyboard to a text that is being written. Main thread.
class StylePanel : public QWidget {
    Q_OBJECT

public:
    // `pick`: colours from the screen, where that can be done.
    explicit StylePanel(Preferences& preferences, ColorPick pick = {});

    // `possible`: what there is to choose at all; what of it `style` does not have, several marks have differently.
    void setStyle(const MarkStyle& style, const MarkStyle& possible);

Q_SIGNALS:
    // With what was changed alone.
    void styleChosen(const MarkStyle& style);

private:
    AmountSlider* makeAmount(const QString& name, AmountSlider::Range range, std::optional<double> MarkStyle::* field);
    static void show(AmountSlider* slider, const std::optional<double>& value, bool isPossible);
    template <class Choice>
    std::vector<SymbolButton*> makeChoices(const std::vector<std::pair<QString, QString>>& drawings,
                                           std::optional<Choice> MarkStyle::* field);
    template <class Choice>
    static void show(const std::vector<SymbolButton*>& buttons, const std::optional<Choice>& value, bool isPossible);
    void toggleSwatch(const QString& hex);

    Preferences& m_preferences;
    ColorWell* m_color;
    AmountSlider* m_width;
    std::vector<SymbolButton*> m_fill;
    std::vector<SymbolButton*> m_text;
    SymbolButton* m_rounded;
    AmountSlider* m_dim;
    AmountSlider* m_tip;
};

} // namespace Kovrel
