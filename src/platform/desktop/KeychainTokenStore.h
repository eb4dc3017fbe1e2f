#pragma once

#include "platform/MainLoop.h"
#include "platform/TokenStore.h"

namespace Kovrel {

// Tokens in the desktop's Secret Service. A locked or dead service answers nothing within the deadline, and the job
// that hangs in it is left to end by itself.
class KeychainTokenStore : public TokenStore {
public:
    KeychainTokenStore(MainLoop& loop, MainLoop::Milliseconds deadline);

    void read(const QString& key, Reply<std::optional<QString>> reply) override;
    void write(const QString& key, const QString& token, Reply<Stored> reply) override;
    void remove(const QString& key, Reply<bool> reply) override;

private:
    template <class Job, class T>
    void run(Job* job, T failed, T absent, std::function<T(Job&)> result, Reply<T> reply);

    MainLoop& m_loop;
    MainLoop::Milliseconds m_deadline;
};

} // namespace Kovrel
