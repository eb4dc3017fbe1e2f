#pragma once

#include <QWidget>

#include <functional>

namespace Kovrel {

class Label;

// Says what was just done, and takes it back. Main thread.
class UndoBar : public QWidget {
    Q_OBJECT

public:
    UndoBar();

    void show(const QString& text);

Q_SIGNALS:
    void undone();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* m_text;
};

} // namespace Kovrel
