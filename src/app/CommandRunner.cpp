#include "app/CommandRunner.h"

#include "app/commands/AnnotateCommand.h"
#include "app/commands/CaptureReport.h"
#include "app/commands/CodesCommand.h"
#include "app/commands/PreferencesCommand.h"
#include "platform/session/DesktopSession.h"

namespace Kovrel {

namespace {

QStringList operandsOf(const Command& command)
{
    QStringList operands;
    for (const std::string& operand : command.operands)
        operands << QString::fromStdString(operand);
    return operands;
}

Rect rectOf(const std::string& text)
{
    const QStringList numbers = QString::fromStdString(text).split(',');
    return {numbers[0].toDouble(), numbers[1].toDouble(), numbers[2].toDouble(), numbers[3].toDouble()};
}

CaptureOptions optionsOf(const Command& command)
{
    CaptureOptions options;
    if (command.has("rect"))
        options.rect = rectOf(command.options.at("rect"));
    if (command.has("output"))
        options.outputPath = QString::fromStdString(command.options.at("output"));
    options.save = command.has("save");
    options.copy = command.has("copy");
    options.waitsForFiles = command.has("wait") || command.has("output");
    return options;
}

} // namespace

CommandRunner::CommandRunner(MainLoop& loop, Workers& workers, CaptureCoordinator& coordinator, AppDelegate& delegate,
                             Account& account, Preferences& preferences, CaptureTrace& trace, TextCommand& text)
    : m_loop(loop),
      m_workers(workers),
      m_coordinator(coordinator),
      m_delegate(delegate),
      m_account(account),
      m_preferences(preferences),
      m_trace(trace),
      m_text(text)
{
}

void CommandRunner::run(const QStringList& arguments, quint64 requestID, Reply<CommandAnswer> reply)
{
    std::vector<std::string> texts;
    for (const QString& argument : arguments)
        texts.push_back(argument.toStdString());
    const auto command = CommandLine::parse(texts, "/");
    if (!command) {
        reply({.exitCode = CommandLine::usageError, .error = QString::fromStdString(command.error())});
    } else if (command->name == "capture") {
        m_trace.begin();
        m_account.whenKnown([this, command = *command, requestID, reply] { capture(command, requestID, reply); });
    } else if (command->name == "text") {
        m_text.run(*command, requestID, reply);
    } else if (command->name == "codes") {
        runOnWorker(Lane::codes, [command = *command] { return CodesCommand::run(command); }, reply);
    } else if (command->name == "annotate") {
        runOnWorker(
            Lane::utility,
            [command = *command, settings = AnnotateCommand::settings(m_preferences)] {
                return AnnotateCommand::run(command, settings);
            },
            reply);
    } else if (command->name == "preferences") {
        reply(PreferencesCommand::run(m_preferences.defaults(), operandsOf(*command)));
    } else if (command->name == "sign-in" || command->name == "sign-out") {
        runAccountCommand(*command, m_account, m_preferences.defaults(), reply);
    } else {
        reply({});
        if (command->name == "quit")
            m_delegate.quit("command");
        else if (command->name == "url")
            m_delegate.handleURL(QString::fromStdString(command->operands.front()));
        else if (!command->has("background"))
            m_delegate.applicationShouldHandleReopen();
    }
}

void CommandRunner::cancel(quint64 requestID)
{
    m_coordinator.cancel(requestID);
    m_text.cancel(requestID);
}

void CommandRunner::capture(const Command& command, quint64 requestID, Reply<CommandAnswer> reply)
{
    const CaptureOptions options = optionsOf(command);
    const bool asJson = command.has("json");
    m_coordinator.capture({
        .mode = *fromRawString<CaptureMode>(QString::fromStdString(command.operands.front())),
        .options = options,
        .reply = CaptureReply([reply, waited = options.waitsForFiles, asJson](CaptureOutcome outcome) {
            if (outcome.kind == CaptureOutcome::Kind::refused)
                outcome.message = DesktopSession::obstacle();
            reply(CaptureReport::answer(outcome, waited, asJson));
        }),
        .id = requestID,
    });
}

void CommandRunner::runOnWorker(Lane lane, std::function<CommandAnswer()> job, Reply<CommandAnswer> reply)
{
    m_workers.submit(lane, [loop = &m_loop, job = std::move(job), reply] {
        loop->post([reply, answer = job()] { reply(answer); });
    });
}

void CommandRunner::runAccountCommand(const Command& command, Account& account, UserDefaults& defaults,
                                      Reply<CommandAnswer> reply)
{
    const bool signsIn = command.name == "sign-in";
    const auto answer = [reply, signsIn, &defaults](bool isDone) {
        const bool isNoted = !isDone || !signsIn || Preferences(defaults).set(Settings::hasCompletedOnboarding, true);
        reply(isDone && isNoted
                  ? CommandAnswer{}
                  : CommandAnswer{.exitCode = CommandLine::failed,
                                  .error = signsIn ? "the account could not be stored"
                                                   : "the account could not be forgotten; the keychain may be locked"});
    };
    if (signsIn)
        account.signInLocally(answer);
    else
        account.signOut(answer);
}

} // namespace Kovrel
