#pragma once

#include <QColor>
#include <QWidget>

#include <optional>
#include <vector>

class QHBoxLayout;
class QLineEdit;

namespace Kovrel {

class FilterChip;

// What is searched for: the chosen filters as chips, then what is typed. Main thread.
class HistorySearchField : public QWidget {
    Q_OBJECT

public:
    struct Chip {
        QString title;
        std::optional<QColor> color;
        bool operator==(const Chip&) const = default;
    };

    HistorySearchField();

    QString text() const;
    void setText(const QString& text);
    void setChips(const std::vector<Chip>& chips);
    void takeFocus();

Q_SIGNALS:
    void textChanged(const QString& text);
    void chipRemoved(int index);
    // Backspace where nothing is typed.
    void lastChipRemoved();
    // Through the suggestions, down above 0.
    void highlightMoved(int step);
    // Enter: the suggestion that is highlighted, if one is, or else on to what was found.
    void committed();
    void escaped();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool takeKey(int key, Qt::KeyboardModifiers modifiers);
    void takeLook();

    QLineEdit* m_edit;
    QHBoxLayout* m_layout;
    std::vector<Chip> m_chips;
    std::vector<FilterChip*> m_buttons;
};

} // namespace Kovrel
