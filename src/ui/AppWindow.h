#pragma once

#include "preferences/Preferences.h"

#include <QWidget>

namespace Kovrel {

// A window with a frame, in the colours of the theme: whatever stands in it takes its palette from here.
class AppWindow : public QWidget {
    Q_OBJECT

public:
    AppWindow();

protected:
    // Before it is shown; never larger than its screen, which is the one where the pointer is.
    void placeWherePointerIs(QSize size);
    // The window is as large as it was when it was hidden last, maximized or not; `usual` where it never was. Never
    // larger than its screen, which is the one where the pointer is. Before it is shown; `preferences` outlives it.
    void rememberSize(Preferences& preferences, const SettingKey<QString>& key, QSize usual);

    void hideEvent(QHideEvent* event) override;

private:
    void takeColors();

    std::function<void(const QString&)> m_keepSize;
};

} // namespace Kovrel
