#include "platform/desktop/KeychainTokenStore.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QLoggingCategory>
#include <qt6keychain/keychain.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.account")

constexpr const char* serviceName = "com.kovrel.Kovrel";
constexpr const char* keychainName = "org.freedesktop.secrets";

// Whether this desktop has a keychain at all. Asks the bus itself, which answers at once; only after a failure.
bool hasKeychain()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusConnectionInterface* names = bus.interface();
    return names->isServiceRegistered(keychainName) || names->activatableServiceNames().value().contains(keychainName);
}

} // namespace

KeychainTokenStore::KeychainTokenStore(MainLoop& loop, MainLoop::Milliseconds deadline)
    : m_loop(loop), m_deadline(deadline)
{
}

template <class Job, class T>
void KeychainTokenStore::run(Job* job, T failed, T absent, std::function<T(Job&)> result, Reply<T> reply)
{
    const auto answer = std::make_shared<Reply<T>>(std::move(reply));
    const auto giveOnce = [answer](T value) {
        if (const auto take = std::exchange(*answer, nullptr))
            take(std::move(value));
    };
    const auto timer = m_loop.after(m_deadline, [giveOnce, failed] {
        qCWarning(log, "The keychain did not answer; it may be locked");
        giveOnce(failed);
    });
    QObject::connect(job, &QKeychain::Job::finished, job, [this, job, timer, giveOnce, failed, absent, result] {
        m_loop.cancel(timer);
        const auto error = job->error();
        // Without a keychain there is nothing in it.
        const bool isAbsent = error == QKeychain::EntryNotFound || (error != QKeychain::NoError && !hasKeychain());
        if (error != QKeychain::NoError && !isAbsent)
            qCWarning(log, "Keychain: %s", qUtf8Printable(job->errorString()));
        giveOnce(error == QKeychain::NoError ? result(*job) : isAbsent ? absent : failed);
    });
    job->start();
}

void KeychainTokenStore::read(const QString& key, Reply<std::optional<QString>> reply)
{
    auto* job = new QKeychain::ReadPasswordJob(serviceName);
    job->setKey(key);
    run<QKeychain::ReadPasswordJob, std::optional<QString>>(
        job, std::nullopt, std::nullopt,
        [](QKeychain::ReadPasswordJob& done) { return std::optional(done.textData()); }, std::move(reply));
}

void KeychainTokenStore::write(const QString& key, const QString& token, Reply<Stored> reply)
{
    auto* job = new QKeychain::WritePasswordJob(serviceName);
    job->setKey(key);
    job->setTextData(token);
    run<QKeychain::WritePasswordJob, Stored>(
        job, std::unexpected(QString("the keychain did not take it; it may be locked")),
        std::unexpected(QString("this desktop has no keychain")), [](QKeychain::WritePasswordJob&) { return Stored(); },
        std::move(reply));
}

void KeychainTokenStore::remove(const QString& key, Reply<bool> reply)
{
    auto* job = new QKeychain::DeletePasswordJob(serviceName);
    job->setKey(key);
    run<QKeychain::DeletePasswordJob, bool>(
        job, false, true, [](QKeychain::DeletePasswordJob&) { return true; }, std::move(reply));
}

} // namespace Kovrel
