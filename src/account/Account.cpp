#include "account/Account.h"

#include <QLoggingCategory>
#include <QUrlQuery>
#include <QUuid>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.account")

using Token = std::optional<QString>;

constexpr const char* tokenKey = "kovrel.session.token";
// Beside the local token: the other one is in the keychain.
constexpr const char* keychainNote = "kovrel.session.keychain";

} // namespace

Account::Account(TokenStore& local, TokenStore& secrets) : m_local(local), m_secrets(secrets) {}

void Account::restore()
{
    const int generation = m_generation;
    const auto settleIfCurrent = [this, generation](AccountKind kind) {
        if (generation == m_generation)
            settle(kind);
    };
    const auto fromSecrets = m_lifeline.guard(
        [settleIfCurrent](Token token) { settleIfCurrent(token ? AccountKind::web : AccountKind::none); });
    m_local.read(tokenKey, m_lifeline.guard([this, settleIfCurrent, fromSecrets](Token token) {
        if (token)
            settleIfCurrent(AccountKind::thisComputer);
        else
            readFromKeychain(fromSecrets);
    }));
}

// Some desktops greet the first question to a keychain with a wizard that makes one: who has nothing there does not
// ask.
void Account::readFromKeychain(Reply<Token> reply)
{
    m_local.read(keychainNote, m_lifeline.guard([this, reply = std::move(reply)](Token note) {
        if (note)
            m_secrets.read(tokenKey, reply);
        else
            reply(std::nullopt);
    }));
}

void Account::whenKnown(std::function<void()> work)
{
    if (m_isKnown)
        work();
    else
        m_waiting.push_back(std::move(work));
}

void Account::settle(AccountKind kind)
{
    ++m_generation;
    const bool isChange = m_isKnown && kind != m_kind;
    m_kind = kind;
    m_isKnown = true;
    for (const auto& work : std::exchange(m_waiting, {}))
        work();
    if (isChange)
        m_observers.notify();
}

void Account::signInLocally(Reply<TokenStore::Stored> reply)
{
    const QString token = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_local.write(tokenKey, token, m_lifeline.guard([this, reply](const TokenStore::Stored& stored) {
        if (stored)
            settle(AccountKind::thisComputer);
        reply(stored);
    }));
}

void Account::signOut(Reply<bool> reply)
{
    const auto removed = [this, reply](bool localIsGone, bool secretIsGone) {
        if (localIsGone && secretIsGone)
            settle(AccountKind::none);
        reply(localIsGone && secretIsGone);
    };
    m_local.remove(tokenKey, m_lifeline.guard([this, removed](bool localIsGone) {
        removeFromKeychain([removed, localIsGone](bool secretIsGone) { removed(localIsGone, secretIsGone); });
    }));
}

void Account::removeFromKeychain(Reply<bool> reply)
{
    m_local.read(keychainNote, m_lifeline.guard([this, reply = std::move(reply)](Token note) {
        if (!note) {
            reply(true);
            return;
        }
        m_secrets.remove(tokenKey, m_lifeline.guard([this, reply](bool isGone) {
            if (isGone)
                m_local.remove(keychainNote, reply);
            else
                reply(false);
        }));
    }));
}

QString Account::beginWebSignIn()
{
    m_expectedState = QUuid::createUuid().toString(QUuid::Id128);
    return m_expectedState;
}

void Account::handleCallback(const QUrl& url, Reply<bool> reply)
{
    const QUrlQuery query(url);
    const QString token = query.queryItemValue("token", QUrl::FullyDecoded);
    if (m_expectedState.isEmpty() || query.queryItemValue("state") != m_expectedState || token.isEmpty()) {
        qCWarning(log, "Refused a sign-in answer that belongs to no request of this program");
        reply(false);
        return;
    }
    m_expectedState.clear();
    writeToKeychain(token, m_lifeline.guard([this, reply](const TokenStore::Stored& stored) {
        if (stored)
            settle(AccountKind::web);
        reply(stored.has_value());
    }));
}

void Account::writeToKeychain(const QString& token, Reply<TokenStore::Stored> reply)
{
    const auto noted = [this, token, reply = std::move(reply)](const TokenStore::Stored& stored) {
        if (stored)
            m_secrets.write(tokenKey, token, reply);
        else
            reply(stored);
    };
    m_local.write(keychainNote, "1", m_lifeline.guard(noted));
}

Subscription Account::onChange(std::function<void()> observer)
{
    return m_observers.add(std::move(observer));
}

} // namespace Kovrel
