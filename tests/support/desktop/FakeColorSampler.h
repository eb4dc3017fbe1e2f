#pragma once

#include "platform/ColorSampler.h"

namespace Kovrel::Testing {

// The desktop's own sampler: answers when the test says so.
class FakeColorSampler : public ColorSampler {
public:
    int asked = 0;

    void pick(Reply<Outcome> reply) override
    {
        ++asked;
        m_reply = std::move(reply);
    }

    void cancel() override { m_reply = nullptr; }

    bool isAsked() const { return m_reply != nullptr; }

    void answer(const Outcome& color)
    {
        if (const auto reply = std::exchange(m_reply, nullptr))
            reply(color);
    }

private:
    Reply<Outcome> m_reply;
};

} // namespace Kovrel::Testing
