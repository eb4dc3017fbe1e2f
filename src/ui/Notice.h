#pragma once

#include "ui/Label.h"

namespace Kovrel {

// A short text on a ground of its own, with a symbol before it.
class Notice : public Label {
    Q_OBJECT

public:
    enum class Kind { information, warning };

    Notice();

    void show(Kind kind, const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void makeRoom();

    Kind m_kind = Kind::information;
};

} // namespace Kovrel
