#include "app/LibraryMessages.h"

#include <QLoggingCategory>

#include <string_view>

namespace Kovrel {

namespace {

QtMessageHandler usualHandler = nullptr;

void handleOwn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const std::string_view category = context.category ? context.category : "";
    if (category.starts_with("com.kovrel"))
        usualHandler(type, context, message);
}

} // namespace

void LibraryMessages::silence()
{
    usualHandler = qInstallMessageHandler(handleOwn);
}

} // namespace Kovrel
