#pragma once

#include "platform/MainLoop.h"
#include "platform/TokenStore.h"
#include "platform/Workers.h"

namespace Kovrel {

// Tokens as files of mode 0600 in a folder of mode 0700, for the account that is kept on this computer.
class FileTokenStore : public TokenStore {
public:
    FileTokenStore(MainLoop& loop, Workers& workers, QString folder);

    void read(const QString& key, Reply<std::optional<QString>> reply) override;
    void write(const QString& key, const QString& token, Reply<Stored> reply) override;
    void remove(const QString& key, Reply<bool> reply) override;

private:
    template <class Job, class T>
    void inBackground(Job job, Reply<T> reply);

    MainLoop& m_loop;
    Workers& m_workers;
    QString m_folder;
};

} // namespace Kovrel
