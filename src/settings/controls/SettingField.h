#pragma once

#include <QVariant>
#include <QWidget>

namespace Kovrel {

// The control of one setting: shows its value, and tells what the user makes of it. Main thread.
class SettingField : public QWidget {
    Q_OBJECT

public:
    SettingField();

    virtual void setValue(const QVariant& value) = 0;

    // For screen readers.
    virtual void setTexts(const QString& name, const QString& description);

    // What takes the keyboard of those it consists of.
    void takeFocus();

    // Whether it needs the width of its row.
    virtual bool isWide() const { return false; }

Q_SIGNALS:
    // By the user.
    void changed(const QVariant& value);

protected:
    // Puts a control behind those that are there.
    void add(QWidget* control, int stretch = 0);

    // The first one that was added, unless something else is said.
    void setMain(QWidget* control) { m_main = control; }

    QWidget* main() const { return m_main; }

private:
    QWidget* m_main = nullptr;
};

} // namespace Kovrel
