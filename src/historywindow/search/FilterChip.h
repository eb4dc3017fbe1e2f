#pragma once

#include "ui/Button.h"

#include <QColor>

#include <optional>

namespace Kovrel {

// One thing that the captures are chosen by, in the search field. A click takes it away. Main thread.
class FilterChip : public Button {
    Q_OBJECT

public:
    // `color` is that of a list.
    FilterChip(const QString& title, std::optional<QColor> color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int dotWidth() const;

    std::optional<QColor> m_color;
};

} // namespace Kovrel
