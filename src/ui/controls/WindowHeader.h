#pragma once

#include <QWidget>

namespace Kovrel {

class Label;

// What stands at the top of a small window: the program's icon, what the window is, and a line about it.
class WindowHeader : public QWidget {
    Q_OBJECT

public:
    WindowHeader();

    void setTexts(const QString& title, const QString& text);

private:
    Label* m_title;
    Label* m_text;
};

} // namespace Kovrel
