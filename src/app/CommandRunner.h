#pragma once

#include "app/foundation/CommandHandler.h"
#include "commandline/CommandTable.h"

#include <QStringList>

#include <vector>

namespace Kovrel {

// Hands commands to what runs them: from the command line, the bus, menus and hotkeys. Main thread.
class CommandRunner {
public:
    void add(std::vector<CommandHandler> handlers);

    // A command line, without the program's name. `requestID` is what `cancel` takes. Answers exactly once, also when
    // the arguments make no sense or nothing runs the command.
    void run(const QStringList& arguments, quint64 requestID, Reply<CommandAnswer> reply);
    void run(Invocation invocation, Reply<CommandAnswer> reply);
    void cancel(quint64 requestID);

    // An entry of a menu, which hotkeys and the bus share. In a menu one that is not enabled does nothing; others are
    // run all the same, and so show what helps.
    bool isOffered(const MenuEntry& entry) const { return handlerOf(entry.arguments.front()); }

    bool isEnabled(const MenuEntry& entry) const;
    void perform(const MenuEntry& entry, bool isFromMenu);
    void performAction(const QString& name);

private:
    const CommandHandler* handlerOf(const std::string& command) const;

    std::vector<CommandHandler> m_handlers;
};

} // namespace Kovrel
