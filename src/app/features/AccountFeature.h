#pragma once

#include "account/Account.h"
#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "platform/desktop/FileTokenStore.h"
#include "ports/AccountStatus.h"
#include "ports/Ports.h"

#include <QCoreApplication>
#include <QObject>

namespace Kovrel {

// Who is signed in, and the commands that change it.
class AccountFeature : public Feature, private AccountStatus {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::AccountFeature)

public:
    AccountFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<UrlHandler> urlHandlers() override;
    void start(const Launch& launch) override;

private:
    // AccountStatus
    AccountKind kind() const override { return m_account.kind(); }

    void whenKnown(std::function<void()> work) override { m_account.whenKnown(std::move(work)); }

    Subscription onChange(std::function<void()> observer) override { return m_account.onChange(std::move(observer)); }

    void signInOnThisComputer() override;
    void signOut() override;

    void refreshCredentials(std::chrono::seconds) override {}

    void signIn(const Reply<CommandAnswer>& reply);
    void signOut(const Reply<CommandAnswer>& reply);

    void tellFailure(const QString& what, const QString& reason);

    Foundation& m_foundation;
    const Ports& m_ports;
    FileTokenStore m_localTokens;
    Account m_account;
    QObject m_context; // of connections to what outlives us
};

} // namespace Kovrel
