#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace Kovrel {

// Several lines of text to be changed, on a ground of their own; they follow the font of the desktop. The tabulator
// leaves them.
class TextArea : public QWidget {
    Q_OBJECT

public:
    enum class Kind { words, report }; // a report is set in small letters of the same width

    TextArea(Kind kind, const QString& name);

    QString text() const;
    void setText(const QString& text);
    // Seen while there is no text.
    void setPlaceholder(const QString& text);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeLook();

    Kind m_kind;
    QPlainTextEdit* m_edit;
};

} // namespace Kovrel
