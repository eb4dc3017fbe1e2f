#pragma once

#include <QWidget>

namespace Kovrel {

// A window with a frame, in the colours of the theme: whatever stands in it takes its palette from here.
class AppWindow : public QWidget {
    Q_OBJECT

public:
    AppWindow();

private:
    void takeColors();
};

} // namespace Kovrel
