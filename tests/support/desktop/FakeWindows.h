#pragma once

#include "platform/Windows.h"
#include "tests/support/desktop/FakeAnswers.h"

#include <map>

namespace Kovrel::Testing {

class FakeWindows : public Windows {
public:
    explicit FakeWindows(MainLoop& loop) : answers(loop) {}

    std::optional<std::vector<WindowInfo>> windows;                  // front to back; none: the desktop does not tell
    std::map<quint32, QImage> images;                                // of those that can be grabbed
    GrabbedImage refusal = std::unexpected(GrabFailure::windowGone); // of the others
    FakeAnswers answers;

    void list(Reply<std::optional<std::vector<WindowInfo>>> reply) override
    {
        answers.give(std::move(reply), [this] { return windows; });
    }

    void grab(quint32 windowID, Reply<GrabbedImage> reply) override
    {
        answers.give(std::move(reply), [this, windowID] {
            const auto found = images.find(windowID);
            return found == images.end() ? refusal : GrabbedImage(found->second);
        });
    }
};

} // namespace Kovrel::Testing
