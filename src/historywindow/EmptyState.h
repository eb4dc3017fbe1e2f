#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace Kovrel {

class Label;

// What stands where there is nothing to show: why, and what to do. Main thread.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    struct Content {
        QString symbol;
        QString title;
        QString advice;
        QString button = {}; // empty: none
        std::function<void()> action = {};
    };

    EmptyState();

    void set(Content content);

private:
    class SymbolView;

    SymbolView* m_symbol;
    Label* m_title;
    Label* m_advice;
    QPushButton* m_button;
    std::function<void()> m_action;
};

} // namespace Kovrel
