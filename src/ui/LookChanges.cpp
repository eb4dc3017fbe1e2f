#include "ui/LookChanges.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace Kovrel {

// Qt tells the application alone; widgets hear only of what their own palette and font take over from it.
LookChanges::LookChanges() : QObject(qApp)
{
    qApp->installEventFilter(this);
}

LookChanges& LookChanges::shared()
{
    static QPointer<LookChanges> changes;
    if (!changes)
        changes = new LookChanges;
    return *changes;
}

bool LookChanges::eventFilter(QObject* object, QEvent* event)
{
    const bool isChange =
        event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationFontChange;
    if (object == qApp && isChange)
        Q_EMIT changed();
    return false;
}

} // namespace Kovrel
