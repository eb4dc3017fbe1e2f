#pragma once

#include <QObject>

#include <functional>

namespace Kovrel {

// Calls back when the session bus ends the connection, as a bus does that ends itself. Main thread.
class DBusConnectionLoss : public QObject {
    Q_OBJECT

public:
    explicit DBusConnectionLoss(std::function<void()> callback);

private:
    Q_SLOT void disconnected() { m_callback(); }

    std::function<void()> m_callback;
};

} // namespace Kovrel
