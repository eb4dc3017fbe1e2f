#include "app/LibraryMessages.h"

#include "app/foundation/RecentLog.h"
#include "commandline/CommandLine.h"

#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace Kovrel {

namespace {

QtMessageHandler usualHandler = nullptr;

// A library that can't go on would abort.
[[noreturn]] void giveUp(const QString& reason)
{
    std::fprintf(stderr, "kovrel: %s\n", qUtf8Printable(reason.section('\n', 0, 0)));
    std::_Exit(CommandLine::failed);
}

void handleOwn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtFatalMsg)
        giveUp(message);
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
