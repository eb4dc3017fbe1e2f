#pragma once

#include "ui/Button.h"

namespace Kovrel {

// One command in a list of them: what it does at the left, the keys that do the same at the right.
class RowButton : public Button {
    Q_OBJECT

public:
    explicit RowButton(const QString& title) : Button(title) {}

    // Empty: no keys.
    void setKeys(const QString& keys);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_keys;
};

} // namespace Kovrel
