#include "app/LibraryMessages.h"

#include "app/foundation/RecentLog.h"

#include <QLoggingCategory>

#include <string_view>

namespace Kovrel {

namespace {

QtMessageHandler usualHandler = nullptr;

void handleOwn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const std::string_view category = context.category ? context.category : "";
    if (!category.starts_with("com.kovrel"))
        return;
    RecentLog::shared().add(type, context.category, message);
    usualHandler(type, context, message);
}

} // namespace

void LibraryMessages::silence()
{
    usualHandler = qInstallMessageHandler(handleOwn);
}

} // namespace Kovrel
