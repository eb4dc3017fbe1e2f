#pragma once

#include "model/ColorPick.h"
#include "ui/Button.h"

namespace Kovrel {

// Shows a colour; a click offers others. Several at once, where marks differ, show as a wheel.
class ColorWell : public Button {
    Q_OBJECT

public:
    // `swatches`: the user's own, as hex strings; null: none are kept. `pick`: from the screen; null: that can't be
    // done.
    explicit ColorWell(std::function<QStringList()> swatches = {}, ColorPick pick = {});

    // Nothing: several.
    void setColor(const std::optional<QString>& hex);

    QSize sizeHint() const override;

Q_SIGNALS:
    void colorChosen(const QString& hex);
    // To be kept among the swatches, or not any more.
    void swatchToggled(const QString& hex);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void offer();
    void pickFromScreen();

    std::function<QStringList()> m_swatches;
    ColorPick m_pick;
    std::optional<QString> m_hex;
};

} // namespace Kovrel
