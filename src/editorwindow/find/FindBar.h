#pragma once

#include "editorwindow/find/EditorFind.h"
#include "preferences/Preferences.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace Kovrel {

class ChoiceButton;
class SymbolButton;

// Looks for text in the capture and redacts what is found. Return goes to the next hit, with Shift to the one before,
// Escape closes it. Main thread.
class FindBar : public QWidget {
    Q_OBJECT

public:
    // What is known of the text of the capture.
    enum class Text { awaited, there, failed };

    // Both outlive it.
    FindBar(EditorSession& session, Preferences& preferences);

    const EditorFind& find() const { return m_find; }

    void setText(Text state, std::vector<OCRLine> lines = {});
    // For somebody who wants to type.
    void open();

    void go(int step) { m_find.go(step); }

Q_SIGNALS:
    // There are other hits, or another one is the current one.
    void changed();
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SymbolButton* addButton(const QString& symbol, const QString& name);
    void addSearch();
    void addRedaction();
    void refresh();
    QString message() const;

    Preferences& m_preferences;
    EditorFind m_find;
    Text m_text = Text::awaited;
    bool m_hasLines = false;
    QHBoxLayout* m_layout;
    QLineEdit* m_query;
    QLabel* m_message;
    SymbolButton* m_previous;
    SymbolButton* m_next;
    ChoiceButton* m_kind;
    QPushButton* m_redact;
};

} // namespace Kovrel
