#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

namespace Kovrel::Testing {

// A desktop's settings manager on an X server, which tells programs how it is set. Ends with the test.
class SettingsManager {
public:
    explicit SettingsManager(const QByteArray& display);
    ~SettingsManager();
    SettingsManager(const SettingsManager&) = delete;
    SettingsManager& operator=(const SettingsManager&) = delete;

    // Beside a number and a colour, so that these are met, too.
    void setTheme(const QByteArray& name);
    // Whatever bytes.
    void set(const QByteArray& settings);

    // As they were set last.
    QByteArray settings() const { return m_settings; }

private:
    xcb_atom_t atom(const QByteArray& name) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
    QByteArray m_settings;
};

} // namespace Kovrel::Testing
