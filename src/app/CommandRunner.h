#pragma once

#include "account/Account.h"
#include "app/AppDelegate.h"
#include "app/commands/TextCommand.h"
#include "capture/CaptureCoordinator.h"
#include "commandline/CommandLine.h"
#include "platform/desktop/InstanceBus.h"
#include "ports/CaptureTrace.h"

namespace Kovrel {

// Runs the commands of the command line in the running program. Main thread; answers once.
class CommandRunner {
public:
    CommandRunner(MainLoop& loop, Workers& workers, CaptureCoordinator& coordinator, AppDelegate& delegate,
                  Account& account, Preferences& preferences, CaptureTrace& trace, TextCommand& text);

    // `requestID` is what `cancel` takes when nobody waits for the answer any more.
    void run(const QStringList& arguments, quint64 requestID, Reply<CommandAnswer> reply);
    void cancel(quint64 requestID);

    // Sign-in and sign-out, which also run without the rest of the program.
    static void runAccountCommand(const Command& command, Account& account, UserDefaults& defaults,
                                  Reply<CommandAnswer> reply);

private:
    void capture(const Command& command, quint64 requestID, Reply<CommandAnswer> reply);

    void runOnWorker(Lane lane, std::function<CommandAnswer()> job, Reply<CommandAnswer> reply);

    MainLoop& m_loop;
    Workers& m_workers;
    CaptureCoordinator& m_coordinator;
    AppDelegate& m_delegate;
    Account& m_account;
    Preferences& m_preferences;
    CaptureTrace& m_trace;
    TextCommand& m_text;
};

} // namespace Kovrel
