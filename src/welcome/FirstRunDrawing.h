#pragma once

#include <QWidget>

namespace Kovrel {

// A small drawing of what the program does, in the colours of the theme.
class FirstRunDrawing : public QWidget {
    Q_OBJECT

public:
    enum class Subject { capture, mark, find, account, tryOut, card, done };

    // `width` in points, with a usual font.
    FirstRunDrawing(Subject subject, int width);

    void setSubject(Subject subject);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeSize();

    Subject m_subject;
    int m_width;
};

} // namespace Kovrel
