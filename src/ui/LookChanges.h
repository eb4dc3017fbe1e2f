#pragma once

#include <QObject>

namespace Kovrel {

// Tells windows and controls when the palette or the font of the desktop changed. Main thread.
class LookChanges : public QObject {
    Q_OBJECT

public:
    // As old as the application.
    static LookChanges& shared();

    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    void changed();

private:
    LookChanges();
};

} // namespace Kovrel
