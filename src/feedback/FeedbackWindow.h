#pragma once

#include "ui/AppWindow.h"

namespace Kovrel {

class Notice;
class PlainButton;
class TextArea;

// Somebody's words and what is known of the program, to be read, changed, and handed on by whoever wrote them. Words
// stay when the window is closed. Main thread.
class FeedbackWindow : public AppWindow {
    Q_OBJECT

public:
    struct Services {
        std::function<void(const QString& text, QWindow* parent)> save;
        std::function<void(const QString& text)> copy;
        std::function<void(const QString& text)> mail; // null: there is no mail program to be asked
    };

    explicit FeedbackWindow(Services services);

    // With what is known now. One that is open keeps what was changed in it.
    void present(const QString& report);
    void showNotice(const QString& text, bool isWarning);

    // The words and the report, as they are there.
    QString text() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* makeButtons();
    PlainButton* makeButton(const QString& title, std::function<void()> pressed);

    Services m_services;
    TextArea* m_words;
    TextArea* m_report;
    Notice* m_notice;
};

} // namespace Kovrel
