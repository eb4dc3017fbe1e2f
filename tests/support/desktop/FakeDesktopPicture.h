#pragma once

#include "platform/DesktopPicture.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

class FakeDesktopPicture : public DesktopPicture {
public:
    explicit FakeDesktopPicture(MainLoop& loop) : answers(loop) {}

    std::optional<QImage> picture; // of every display, at any size
    std::vector<std::pair<quint32, int>> grabs;
    FakeAnswers answers;

    void grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override
    {
        grabs.emplace_back(displayID, maxPixelSize);
        answers.give(std::move(reply), [this] { return picture; });
    }
};

} // namespace Kovrel::Testing
