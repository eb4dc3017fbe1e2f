#pragma once

#include "model/AccountKind.h"
#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Observers.h"
#include "platform/TokenStore.h"

#include <QUrl>

#include <vector>

namespace Kovrel {

// Who is signed in: the account that is kept on this computer, or one that a web page answered for. Tokens are read
// once and the answer is cached; it follows every change made here. Main thread.
class Account {
public:
    // `local` keeps this computer's account, `secrets` the token of the other kind; it is asked only where that exists.
    Account(TokenStore& local, TokenStore& secrets);

    // Reads the stored token; `whenKnown` waits for it.
    void restore();
    // Runs at once when the answer is known already.
    void whenKnown(std::function<void()> work);

    AccountKind kind() const { return m_kind; }

    bool isSignedIn() const { return m_kind != AccountKind::none; }

    void signInLocally(Reply<TokenStore::Stored> reply);
    void signOut(Reply<bool> reply);

    // Starts a sign-in on a web page: the answer must carry this state, and is taken only once.
    QString beginWebSignIn();
    // kovrel://auth-callback?state=…&token=…; a wrong, used or missing state is logged and refused.
    void handleCallback(const QUrl& url, Reply<bool> reply);

    Subscription onChange(std::function<void()> observer);

private:
    void settle(AccountKind kind);
    void readFromKeychain(Reply<std::optional<QString>> reply);
    void removeFromKeychain(Reply<bool> reply);
    void writeToKeychain(const QString& token, Reply<TokenStore::Stored> reply);

    TokenStore& m_local;
    TokenStore& m_secrets;
    int m_generation = 0; // of what is known: a late answer must not undo a sign-in
    bool m_isKnown = false;
    AccountKind m_kind = AccountKind::none;
    QString m_expectedState;
    std::vector<std::function<void()>> m_waiting;
    Observers<> m_observers;
    Lifeline m_lifeline; // answers may come after the end
};

} // namespace Kovrel
