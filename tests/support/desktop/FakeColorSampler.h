#pragma once

#include "platform/ColorSampler.h"

namespace Kovrel::Testing {

// The desktop's own sampler: answers when the test says so.
class FakeColorSampler : public ColorSampler {
public:
    int asked = 0;

    void pick(Reply<std::optional<QColor>> reply) override
    {
        ++asked;
        m_reply = std::move(reply);
    }

    void cancel() override { m_reply = nullptr; }

    bool isAsked() const { return m_reply != nullptr; }

    void answer(std::optional<QColor> color)
    {
        if (const auto reply = std::exchange(m_reply, nullptr))
            reply(color);
    }

private:
    Reply<std::optional<QColor>> m_reply;
};

} // namespace Kovrel::Testing
