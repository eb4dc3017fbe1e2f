#pragma once

#include "capture/CaptureRequest.h"

#include <deque>
#include <optional>

namespace Kovrel {

// The requests that wait behind the run in progress. A user wants the last thing he asked for: one place, in which the
// last request wins. Scripts want all that they asked for: a line, as far as nobody has to select anything. Each
// request is answered exactly once. Main thread.
class CaptureQueue {
public:
    static constexpr size_t longestLine = 64;

    bool isEmpty() const { return !m_last && m_line.empty(); }

    void add(CaptureRequest request);
    // The user's first. Not when it is empty.
    CaptureRequest takeNext();
    void cancel(quint64 requestID);

private:
    std::optional<CaptureRequest> m_last;
    std::deque<CaptureRequest> m_line;
};

} // namespace Kovrel
