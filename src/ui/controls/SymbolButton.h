#pragma once

#include "ui/Button.h"

namespace Kovrel {

// A button with a symbol and no text, which can stay chosen.
class SymbolButton : public Button {
    Q_OBJECT

public:
    // `name`: for tool tips and screen readers. A click leaves the keyboard to whoever has it.
    SymbolButton(const QString& symbol, const QString& name);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

} // namespace Kovrel
