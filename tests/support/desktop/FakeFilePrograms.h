#pragma once

#include "platform/FilePrograms.h"
#include "tests/support/desktop/FakeAnswers.h"

#include <QStringList>

namespace Kovrel::Testing {

// Programs that the test names; remembers what was handed over.
class FakeFilePrograms : public FilePrograms {
public:
    explicit FakeFilePrograms(MainLoop& loop) : answers(loop) {}

    std::vector<FileProgram> programs; // for every type
    bool hasMail = true;
    QStringList handedOver; // "viewer: /a.png", "mail: /a.png"
    QStringList preferred;  // "viewer: a.png"
    FakeAnswers answers;

    void openers(const QString&, Reply<std::vector<FileProgram>> reply) override
    {
        answers.give(std::move(reply), [this] { return programs; });
    }

    void open(const QString& path) override { open(path, "preferred"); }

    void open(const QString& path, const QString& programID) override { handedOver << programID + ": " + path; }

    void prefer(const QString& fileName, const QString& programID) override
    {
        preferred << programID + ": " + fileName;
    }

    bool canMail() const override { return hasMail; }

    void mail(const QString& path) override { open(path, "mail"); }
};

} // namespace Kovrel::Testing
