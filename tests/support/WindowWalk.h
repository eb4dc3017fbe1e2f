#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QTranslator>

namespace Kovrel::Testing {

// Somebody who works in a window with the keyboard, or with a screen reader.
namespace WindowWalk {

// The window may go with the press.
inline void press(Qt::Key key)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        if (QWidget* const focus = QApplication::focusWidget())
            QApplication::sendEvent(focus, &event);
    }
}

// What the tabulator visits until it comes back to where it began.
inline QWidgetList tabChain()
{
    QWidgetList chain;
    for (QWidget* focus = QApplication::focusWidget(); focus && !chain.contains(focus);
         focus = QApplication::focusWidget()) {
        chain << focus;
        press(Qt::Key_Tab);
    }
    return chain;
}

inline QWidgetList usableButtons(const QWidget& window)
{
    QWidgetList buttons;
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled())
            buttons << button;
    return buttons;
}

inline QString text(QWidget* widget, QAccessible::Text kind)
{
    return QAccessible::queryAccessibleInterface(widget)->text(kind);
}

// Every text in another language, of a kind.
struct Bracketed : QTranslator {
    bool isEmpty() const override { return false; }

    QString translate(const char*, const char* text, const char*, int) const override
    {
        return '[' + QString::fromUtf8(text) + ']';
    }
};

} // namespace WindowWalk

} // namespace Kovrel::Testing
