#include "app/features/AccountFeature.h"

#include "app/foundation/AppPaths.h"
#include "ports/Toasts.h"

#include <QGuiApplication>

namespace Kovrel {

namespace {

CommandAnswer failure(const QString& complaint)
{
    return {.exitCode = CommandLine::failed, .error = complaint};
}

CommandAnswer doneOr(const std::expected<void, QString>& done, const char* complaint)
{
    return done ? CommandAnswer{} : failure(complaint + (": " + done.error()));
}

} // namespace

AccountFeature::AccountFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_localTokens(foundation.loop, foundation.workers, AppPaths::dataFolder()),
      m_account(m_localTokens, *foundation.secrets)
{
    ports.account.offer(*this);
}

std::vector<CommandHandler> AccountFeature::commands()
{
    return {
        {.command = "sign-in", .run = [this](const Invocation&, const Reply<CommandAnswer>& reply) { signIn(reply); }},
        {.command = "sign-out",
         .run = [this](const Invocation&, const Reply<CommandAnswer>& reply) { signOut(reply); }},
    };
}

std::vector<UrlHandler> AccountFeature::urlHandlers()
{
    return {{"auth-callback", [this](const QUrl& url) {
                 m_account.handleCallback(url, [this](bool isSignedIn) {
                     if (!isSignedIn)
                         tellFailure(tr("Signing in failed"), tr("The answer does not fit, or could not be stored"));
                 });
             }}};
}

void AccountFeature::start(const Launch&)
{
    m_account.restore();
    // Somebody may have signed out from outside.
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_context,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive && m_account.isSignedIn())
                             m_account.restore();
                     });
}

void AccountFeature::signInOnThisComputer()
{
    signIn([this](const CommandAnswer& answer) {
        if (answer.exitCode != CommandLine::done)
            tellFailure(tr("Signing in failed"), answer.error);
    });
}

void AccountFeature::signOut()
{
    signOut([this](const CommandAnswer& answer) {
        if (answer.exitCode != CommandLine::done)
            tellFailure(tr("Signing out failed"), answer.error);
    });
}

void AccountFeature::tellFailure(const QString& what, const QString& reason)
{
    const ToastContent toast{.message = what, .subtitle = reason, .icon = "exclamationmark.triangle"};
    m_ports.toasts.tell(&Toasts::present, toast, std::nullopt, true);
}

void AccountFeature::signIn(const Reply<CommandAnswer>& reply)
{
    m_account.signInLocally([reply, &preferences = m_foundation.preferences](const TokenStore::Stored& stored) {
        if (!stored) {
            reply(doneOr(stored, "the account could not be stored"));
            return;
        }
        preferences.set(Settings::hasCompletedOnboarding, true, [reply](const UserDefaults::Stored& noted) {
            reply(doneOr(noted, "the account is stored, but not that the first run is done"));
        });
    });
}

void AccountFeature::signOut(const Reply<CommandAnswer>& reply)
{
    m_account.signOut([reply](bool isGone) {
        reply(isGone ? CommandAnswer{} : failure("the account could not be forgotten; the keychain may be locked"));
    });
}

std::unique_ptr<Feature> makeAccountFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<AccountFeature>(foundation, ports);
}

} // namespace Kovrel
