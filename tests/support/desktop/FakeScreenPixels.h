#pragma once

#include "platform/ScreenPixels.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

// Parts of one picture of the root window, or the failure.
class FakeScreenPixels : public ScreenPixels {
public:
    explicit FakeScreenPixels(MainLoop& loop) : answers(loop) {}

    GrabbedImage root = std::unexpected(GrabFailure::noDisplay);
    std::vector<std::pair<QRect, PointerOption>> grabs;
    FakeAnswers answers;
    std::function<void()> onWait = [] {};

    void grab(QRect rootPixels, PointerOption pointer, Reply<GrabbedImage> reply) override
    {
        grabs.emplace_back(rootPixels, pointer);
        answers.give(std::move(reply), [this, rootPixels] { return part(rootPixels); });
    }

    void whenRepainted(Reply<bool> reply) override
    {
        onWait();
        answers.give(std::move(reply), [] { return true; });
    }

    GrabbedImage part(const QRect& rootPixels) const { return root ? GrabbedImage(root->copy(rootPixels)) : root; }
};

} // namespace Kovrel::Testing
