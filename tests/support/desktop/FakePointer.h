#pragma once

#include "platform/Pointer.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

class FakePointer : public Pointer {
public:
    explicit FakePointer(MainLoop& loop) : answers(loop) {}

    std::optional<PointerPosition> place; // none: the desktop does not tell
    std::optional<PointerImage> shape;
    FakeAnswers answers;

    void position(Reply<std::optional<PointerPosition>> reply) override
    {
        answers.give(std::move(reply), [this] { return place; });
    }

    void image(Reply<std::optional<PointerImage>> reply) override
    {
        answers.give(std::move(reply), [this] { return shape; });
    }
};

} // namespace Kovrel::Testing
