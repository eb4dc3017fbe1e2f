#pragma once

#include "platform/FilePanel.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

class FakeFilePanel : public FilePanel {
public:
    explicit FakeFilePanel(MainLoop& loop) : answers(loop) {}

    std::optional<QString> choice; // the user's; none: cancelled
    QString suggested;
    FakeAnswers answers;

    void ask(const QString& suggestedPath, QWindow*, Reply<std::optional<QString>> reply) override
    {
        suggested = suggestedPath;
        answers.give(std::move(reply), [this] { return choice; });
    }

    void askForFolder(const QString& path, QWindow*, Reply<std::optional<QString>> reply) override
    {
        ask(path, nullptr, std::move(reply));
    }

    void askForFile(const QString& kind, QWindow*, Reply<std::optional<QString>> reply) override
    {
        ask(kind, nullptr, std::move(reply));
    }
};

} // namespace Kovrel::Testing
