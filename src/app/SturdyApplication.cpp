#include "app/SturdyApplication.h"

#include "platform/Guarded.h"

namespace Kovrel {

bool SturdyApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        Guarded::logReason(Guarded::reason());
        return false;
    }
}

} // namespace Kovrel
