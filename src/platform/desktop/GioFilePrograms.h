#pragma once

#include "platform/FilePrograms.h"
#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"

namespace Kovrel {

// The programs that desktop entries and MIME associations tell, by GIO, which knows every desktop's files for them;
// mail by xdg-email. What reads files or starts programs is done on a worker.
class GioFilePrograms : public FilePrograms {
public:
    GioFilePrograms(MainLoop& loop, Workers& workers);

    void openers(const QString& fileName, Reply<std::vector<FileProgram>> reply) override;
    void open(const QString& path) override;
    void open(const QString& path, const QString& programID) override;

    bool canMail() const override { return m_canMail; }

    void mail(const QString& path) override;

private:
    void work(std::function<void()> job);

    MainLoop& m_loop;
    Workers& m_workers;
    bool m_canMail = false;
    Lifeline m_lifeline;
};

} // namespace Kovrel
