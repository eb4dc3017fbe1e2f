#pragma once

#include "ui/Button.h"

namespace Kovrel {

// Shows what is chosen of a list, which a click opens. Main thread.
class ChoiceButton : public Button {
    Q_OBJECT

public:
    // `name`: what is chosen here. A click leaves the keyboard to whoever has it.
    ChoiceButton(const QString& name, QStringList choices);

    // Below 0: none of them.
    void setChoice(int index);

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void offer();

    QStringList m_choices;
    int m_choice = -1;
};

} // namespace Kovrel
