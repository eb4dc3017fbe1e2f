#include "saving/SaveLog.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

}

void logSaveFailure(const char* what, const SaveFailure& failure)
{
    qCWarning(log, "%s%s", what, qUtf8Printable(failure.message));
}

} // namespace Kovrel
