#include "capture/CaptureQueue.h"

#include <algorithm>

namespace Kovrel {

void CaptureQueue::add(CaptureRequest request)
{
    if (!request.waitsInLine()) {
        if (m_last)
            m_last->reply.give({.kind = CaptureOutcome::Kind::overwritten});
        m_last = std::move(request);
    } else if (m_line.size() < longestLine) {
        m_line.push_back(std::move(request));
    } else {
        request.reply.give({.kind = CaptureOutcome::Kind::failed, .message = "too many captures are waiting already"});
    }
}

CaptureRequest CaptureQueue::takeNext()
{
    if (m_last)
        return *std::exchange(m_last, std::nullopt);
    CaptureRequest next = std::move(m_line.front());
    m_line.pop_front();
    return next;
}

void CaptureQueue::cancel(quint64 requestID)
{
    if (m_last && m_last->id == requestID)
        m_last.reset();
    std::erase_if(m_line, [requestID](const CaptureRequest& request) { return request.id == requestID; });
}

} // namespace Kovrel
