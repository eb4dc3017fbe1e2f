#include "account/Account.h"
#include "platform/desktop/FileTokenStore.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// A keychain that answers when the test says so.
struct SlowKeychain : TokenStore {
    void read(const QString&, Reply<std::optional<QString>> reply) override { pendingRead = std::move(reply); }

    void write(const QString&, const QString& value, Reply<Stored> reply) override
    {
        token = value;
        reply(isWritable ? Stored() : std::unexpected(QString("locked")));
    }

    void remove(const QString&, Reply<bool> reply) override
    {
        if (isWritable)
            token.reset();
        reply(isWritable);
    }

    std::optional<QString> token;
    bool isWritable = true;
    Reply<std::optional<QString>> pendingRead;
};

struct AccountTest : testing::Test {
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    FileTokenStore local{loop, workers, folder / "data"};
    SlowKeychain keychain;
    std::optional<Account> account{std::in_place, local, keychain};
    int changes = 0;
    Subscription observation;

    void SetUp() override
    {
        observation = account->onChange([this] { ++changes; });
    }

    // As after a sign-in on a web page.
    void useKeychain()
    {
        local.write("kovrel.session.keychain", "1", [](const TokenStore::Stored&) {});
        settle();
    }

    void settle()
    {
        for (int step = 0; step < 4; ++step) { // one job leads to the next
            workers.runAll();
            loop.runPosted();
        }
    }

    TokenStore::Stored signIn()
    {
        TokenStore::Stored answer = std::unexpected(QString("no answer"));
        account->signInLocally([&](const TokenStore::Stored& stored) { answer = stored; });
        settle();
        return answer;
    }

    std::optional<bool> wait(const std::function<void(Reply<bool>)>& ask)
    {
        std::optional<bool> answer;
        ask([&](bool value) { answer = value; });
        settle();
        return answer;
    }
};

} // namespace

TEST_F(AccountTest, TheLocalAccountIsAPrivateFileThatIsFoundAgain)
{
    EXPECT_TRUE(signIn());
    EXPECT_TRUE(account->isSignedIn());
    const QFileInfo token(folder / "data/kovrel.session.token");
    EXPECT_EQ(token.permissions() & 0x777, QFile::ReadUser | QFile::WriteUser | QFile::Permissions(0));

    account.emplace(local, keychain);
    bool isKnown = false;
    account->restore();
    account->whenKnown([&] { isKnown = true; });
    EXPECT_FALSE(isKnown);
    settle();
    EXPECT_TRUE(isKnown);
    EXPECT_TRUE(account->isSignedIn());
    EXPECT_FALSE(keychain.pendingRead) << "the keychain is not bothered when this computer's account is there";

    EXPECT_EQ(wait([&](auto reply) { account->signOut(reply); }), true);
    EXPECT_FALSE(account->isSignedIn());
    EXPECT_FALSE(QFileInfo::exists(token.filePath()));
}

TEST_F(AccountTest, AKeychainWithoutATokenIsNeverAsked)
{
    keychain.isWritable = false; // as without a wallet
    account->restore();
    settle();
    EXPECT_FALSE(keychain.pendingRead);
    bool isKnown = false;
    account->whenKnown([&] { isKnown = true; });
    EXPECT_TRUE(isKnown);
    EXPECT_TRUE(signIn());
    EXPECT_EQ(wait([&](auto reply) { account->signOut(reply); }), true);
}

TEST_F(AccountTest, ChangesAreToldButNotTheFirstAnswer)
{
    useKeychain();
    account->restore();
    settle();
    keychain.pendingRead(QString("token"));
    EXPECT_TRUE(account->isSignedIn());
    EXPECT_EQ(changes, 0);
    wait([&](auto reply) { account->signOut(reply); });
    EXPECT_EQ(changes, 1);
    wait([&](auto reply) { account->signOut(reply); });
    EXPECT_EQ(changes, 1);
    signIn();
    EXPECT_EQ(changes, 2);
}

TEST_F(AccountTest, ALateKeychainDoesNotUndoASignIn)
{
    useKeychain();
    account->restore();
    settle();
    signIn();
    keychain.pendingRead(std::nullopt);
    EXPECT_TRUE(account->isSignedIn());
}

TEST_F(AccountTest, SigningOutFailsWhileTheKeychainKeepsItsToken)
{
    useKeychain();
    account->restore();
    settle();
    keychain.pendingRead(QString("token"));
    keychain.isWritable = false;
    EXPECT_EQ(wait([&](auto reply) { account->signOut(reply); }), false);
    EXPECT_TRUE(account->isSignedIn());
}

TEST_F(AccountTest, AnAnswerAfterTheEndTouchesNothing)
{
    useKeychain();
    account->restore();
    settle();
    const auto late = keychain.pendingRead;
    account.reset();
    late(QString("token"));
}

TEST_F(AccountTest, WebAnswersAreTakenOnceAndOnlyForARequestOfOurs)
{
    const auto answer = [&](const QString& query) {
        return wait([&](auto reply) { account->handleCallback(QUrl("kovrel://auth-callback" + query), reply); });
    };
    EXPECT_EQ(answer("?state=&token=t"), false) << "nobody asked";
    const QString state = account->beginWebSignIn();
    for (const QString& query :
         {QString(), QString("?token=t"), QString("?state=guess&token=t"), QString("?state=" + state)})
        EXPECT_EQ(answer(query), false) << qPrintable(query);
    EXPECT_FALSE(account->isSignedIn());
    EXPECT_EQ(answer("?state=" + state + "&token=a%2Bb"), true);
    EXPECT_EQ(keychain.token, "a+b");
    EXPECT_TRUE(account->isSignedIn());
    EXPECT_EQ(answer("?state=" + state + "&token=other"), false) << "a state counts once";

    const QString second = account->beginWebSignIn();
    wait([&](auto reply) { account->signOut(reply); });
    keychain.isWritable = false;
    EXPECT_EQ(answer("?state=" + second + "&token=t"), false);
    EXPECT_FALSE(account->isSignedIn()) << "a token that could not be kept signs nobody in";
}

TEST_F(AccountTest, AFolderThatCanNotBeWrittenIsAFailure)
{
    QFile blocker(folder / "data");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    const auto stored = signIn();
    ASSERT_FALSE(stored);
    EXPECT_TRUE(stored.error().contains("Not a directory")) << qPrintable(stored.error());
    EXPECT_FALSE(account->isSignedIn());
}

} // namespace Kovrel
