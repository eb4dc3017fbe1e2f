#include "account/Account.h"

#include <QLoggingCategory>
#include <QUrlQuery>
#include <QUuid>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.account")

constexpr const char* tokenKey = "kovrel.session.token";

} // namespace

Account::Account(TokenStore& local, TokenStore& secrets) : m_local(local), m_secrets(secrets) {}

void Account::restore()
{
    using Token = std::optional<QString>;
    const int generation = m_generation;
    const auto settleIfCurrent = [this, generation](bool isSignedIn) {
        if (generation == m_generation)
            settle(isSignedIn);
    };
    const auto fromSecrets = m_lifeline.guard([settleIfCurrent](Token token) { settleIfCurrent(token.has_value()); });
    m_local.read(tokenKey, m_lifeline.guard([this, settleIfCurrent, fromSecrets](Token token) {
        if (token)
            settleIfCurrent(true);
        else
            m_secrets.read(tokenKey, fromSecrets);
    }));
}

void Account::whenKnown(std::function<void()> work)
{
    if (m_isKnown)
        work();
    else
        m_waiting.push_back(std::move(work));
}

void Account::settle(bool isSignedIn)
{
    ++m_generation;
    const bool isChange = m_isKnown && isSignedIn != m_isSignedIn;
    m_isSignedIn = isSignedIn;
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
            settle(true);
        reply(stored);
    }));
}

void Account::signOut(Reply<bool> reply)
{
    const auto removed = [this, reply](bool localIsGone, bool secretIsGone) {
        if (localIsGone && secretIsGone)
            settle(false);
        reply(localIsGone && secretIsGone);
    };
    m_local.remove(tokenKey, m_lifeline.guard([this, removed](bool localIsGone) {
        m_secrets.remove(tokenKey, m_lifeline.guard([removed, localIsGone](bool secretIsGone) {
            removed(localIsGone, secretIsGone);
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
    m_secrets.write(tokenKey, token, m_lifeline.guard([this, reply](const TokenStore::Stored& stored) {
        if (stored)
            settle(true);
        reply(stored.has_value());
    }));
}

Subscription Account::onChange(std::function<void()> observer)
{
    return m_observers.add(std::move(observer));
}

} // namespace Kovrel
