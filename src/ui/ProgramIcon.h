#pragma once

#include <QIcon>
#include <QWidget>

namespace Kovrel {

// Kovrel's icon as a picture in a window: sharp on every screen, as large as the texts beside it ask for.
class ProgramIcon : public QWidget {
    Q_OBJECT

public:
    ProgramIcon();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeSize();

    QIcon m_icon;
};

} // namespace Kovrel
