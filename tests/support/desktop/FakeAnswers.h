#pragma once

#include "platform/MainLoop.h"
#include "platform/Reply.h"

#include <utility>
#include <vector>

namespace Kovrel::Testing {

// How a service of the desktop answers: through the main loop, as real ones do; late, when the test lets it; or never.
class FakeAnswers {
public:
    enum class Manner { soon, late, never };

    explicit FakeAnswers(MainLoop& loop) : m_loop(loop) {}

    Manner manner = Manner::soon;

    // `answer` makes what is answered, at the time when it is.
    template <class T, class Answer>
    void give(Reply<T> reply, Answer answer)
    {
        std::function<void()> work = [reply = std::move(reply), answer = std::move(answer)] { reply(answer()); };
        if (manner == Manner::soon)
            m_loop.post(std::move(work));
        else if (manner == Manner::late)
            m_late.push_back(std::move(work));
    }

    // What was to be late is answered now.
    void catchUp()
    {
        for (auto& work : std::exchange(m_late, {}))
            m_loop.post(std::move(work));
    }

private:
    MainLoop& m_loop;
    std::vector<std::function<void()>> m_late;
};

} // namespace Kovrel::Testing
