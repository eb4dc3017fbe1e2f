#pragma once

#include <QWidget>

class QVBoxLayout;

namespace Kovrel {

class Label;

// A page of the first run: a drawing, what it is about, and some lines about it in the middle, with whatever else
// stands there below.
class FirstRunPage : public QWidget {
    Q_OBJECT

public:
    FirstRunPage();

    void setTexts(const QString& title, const QString& text);

    // Above the texts, and below them.
    void addAbove(QWidget* widget);
    void addBelow(QWidget* widget);

private:
    QVBoxLayout* m_layout;
    Label* m_title;
    Label* m_text;
};

} // namespace Kovrel
