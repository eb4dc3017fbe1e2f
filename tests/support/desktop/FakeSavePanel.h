#pragma once

#include "platform/SavePanel.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

class FakeSavePanel : public SavePanel {
public:
    explicit FakeSavePanel(MainLoop& loop) : answers(loop) {}

    std::optional<QString> choice; // the user's; none: cancelled
    QString suggested;
    FakeAnswers answers;

    void ask(const QString& suggestedPath, QWindow*, Reply<std::optional<QString>> reply) override
    {
        suggested = suggestedPath;
        answers.give(std::move(reply), [this] { return choice; });
    }
};

} // namespace Kovrel::Testing
