#include "platform/Guarded.h"

#include <QLoggingCategory>

#include <exception>
#include <new>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.tasks")

} // namespace

QString Guarded::reason()
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return QStringLiteral("there is not enough memory"); // and this takes none
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    } catch (...) {
        return QStringLiteral("an unknown error");
    }
}

void Guarded::logReason(const QString& reason)
{
    qCWarning(log, "A job failed: %s", qUtf8Printable(reason));
}

} // namespace Kovrel
