#pragma once

#include "ui/tokens/Typography.h"

#include <QLabel>

namespace Kovrel {

// A text that wraps, in one of the styles of texts; it follows the font of the desktop.
class Label : public QLabel {
    Q_OBJECT

public:
    enum class Role { primary, secondary };

    explicit Label(TextStyle style, Role role = Role::primary);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kovrel
