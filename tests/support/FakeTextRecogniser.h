#pragma once

#include "platform/TextRecogniser.h"

namespace Kovrel::Testing {

// Observes what a test says, and fails as it says. Notes what it was asked.
class FakeTextRecogniser : public TextRecogniser {
public:
    struct Page {
        Outcome outcome;
        std::function<void()> whileReading = [] {};
        std::vector<Request> asked = {};
    };

    explicit FakeTextRecogniser(Page& page) : m_page(page) {}

    Outcome recognise(const QImage&, const Request& request) override
    {
        m_page.asked.push_back(request);
        m_page.whileReading();
        if (request.stop.stop_requested())
            return std::unexpected(Failure{"cancelled", Failure::Reason::cancelled});
        return m_page.outcome;
    }

    // An upright line whose characters are all in one box.
    static Observation line(const QString& text, Rect box)
    {
        return {{box.minX(), box.minY()},
                {box.maxX(), box.minY()},
                {box.minX(), box.maxY()},
                box,
                {{text, 0.9f, std::vector<std::optional<Rect>>(size_t(text.size()), box)}}};
    }

private:
    Page& m_page;
};

} // namespace Kovrel::Testing
