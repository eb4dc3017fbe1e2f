#pragma once

#include <QObject>

#include <functional>

namespace Kovrel {

// Ctrl+, in each window of the program that has a title. Main thread.
class SettingsShortcut : public QObject {
    Q_OBJECT

public:
    explicit SettingsShortcut(std::function<void()> pressed);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    std::function<void()> m_pressed;
};

} // namespace Kovrel
