#include "platform/Guarded.h"

#include <QLoggingCategory>

#include <exception>
#include <new>
#include <system_error>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.tasks")

QString shortage()
{
    return QStringLiteral("there is not enough memory");
}

} // namespace

QString Guarded::reason()
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return shortage();                     // and this takes none
    } catch (const std::system_error& error) { // threads need memory too
        return error.code() == std::errc::resource_unavailable_try_again ? shortage() : QString::fromUtf8(error.what());
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
