#pragma once

#include "platform/FilePrograms.h"
#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"
#include "platform/plugins/FileOpener.h"

#include <memory>

namespace Kovrel {

// Hands files over on a worker: to other programs by a `FileOpener`, to mail by xdg-email.
class WorkerFilePrograms : public FilePrograms {
public:
    WorkerFilePrograms(MainLoop& loop, Workers& workers, std::shared_ptr<const FileOpener> opener);

    void openers(const QString& fileName, Reply<std::vector<FileProgram>> reply) override;

    void open(const QString& path) override { launch(path, {}); }

    void open(const QString& path, const QString& programID) override { launch(path, programID); }

    void prefer(const QString& fileName, const QString& programID) override;

    bool canMail() const override { return m_canMail; }

    void mail(const QString& path) override;

private:
    void launch(const QString& path, const std::optional<QString>& programID);

    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<const FileOpener> m_opener; // jobs share it
    bool m_canMail = false;
    Lifeline m_lifeline;
};

} // namespace Kovrel
