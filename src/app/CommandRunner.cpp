#include "app/CommandRunner.h"

#include "commandline/CommandLine.h"
#include "platform/Guarded.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace Kovrel {

namespace {

Reply<CommandAnswer> onlyOnce(Reply<CommandAnswer> reply)
{
    const auto waiting = std::make_shared<Reply<CommandAnswer>>(std::move(reply));
    return [waiting](CommandAnswer answer) {
        if (const auto give = std::exchange(*waiting, nullptr))
            give(std::move(answer));
    };
}

// What is thrown where memory or threads are short costs this command only.
void runGuarded(const CommandHandler& handler, Invocation invocation, const Reply<CommandAnswer>& reply)
{
    try {
        handler.run(std::move(invocation), reply);
    } catch (...) {
        reply({.exitCode = CommandLine::failed, .error = Guarded::reason()});
    }
}

} // namespace

void CommandRunner::add(std::vector<CommandHandler> handlers)
{
    std::ranges::move(handlers, std::back_inserter(m_handlers));
}

void CommandRunner::run(const QStringList& arguments, quint64 requestID, Reply<CommandAnswer> reply)
{
    std::vector<std::string> texts;
    for (const QString& argument : arguments)
        texts.push_back(argument.toStdString());
    auto command = CommandLine::parse(texts, "/");
    if (command)
        run({.command = std::move(*command), .requestID = requestID}, std::move(reply));
    else
        reply({.exitCode = CommandLine::usageError, .error = QString::fromStdString(command.error())});
}

void CommandRunner::run(Invocation invocation, Reply<CommandAnswer> reply)
{
    const std::string name = invocation.command.name;
    if (const CommandHandler* handler = handlerOf(name))
        runGuarded(*handler, std::move(invocation), onlyOnce(std::move(reply)));
    else
        reply({.exitCode = CommandLine::failed,
               .error = "this program has nothing that runs \"" + QString::fromStdString(name) + '"'});
}

void CommandRunner::cancel(quint64 requestID)
{
    for (const CommandHandler& handler : m_handlers)
        if (handler.cancel)
            handler.cancel(requestID);
}

bool CommandRunner::isEnabled(const MenuEntry& entry) const
{
    const CommandHandler* handler = handlerOf(entry.arguments.front());
    return handler && (!handler->isAvailable || handler->isAvailable());
}

void CommandRunner::perform(const MenuEntry& entry, bool isFromMenu)
{
    if (!isOffered(entry) || (isFromMenu && !isEnabled(entry)))
        return;
    if (auto command = CommandLine::parse(entry.arguments, "/"))
        run({.command = std::move(*command), .isFromMenu = isFromMenu}, [](const CommandAnswer&) {});
}

void CommandRunner::performAction(const QString& name)
{
    for (const MenuEntry& entry : CommandTable::menu())
        if (name == QLatin1StringView(entry.action))
            perform(entry, false);
}

const CommandHandler* CommandRunner::handlerOf(const std::string& command) const
{
    const auto found = std::ranges::find(m_handlers, command, &CommandHandler::command);
    return found == m_handlers.end() ? nullptr : &*found;
}

} // namespace Kovrel
