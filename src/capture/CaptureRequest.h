#pragma once

#include "model/CaptureResult.h"

#include <functional>
#include <memory>

namespace Kovrel {

// What one capture is asked to do besides what the settings say.
struct CaptureOptions {
    // A selection made beforehand, for area and ocrRegion: points, origin at the top-left of the primary display, y
    // down.
    std::optional<Rect> rect;
    bool save = false;
    std::optional<QString> outputPath; // absolute; its extension decides the format
    bool copy = false;
    bool waitsForFiles = false;   // the reply is given when the files are on disk, else when pixels are in hand
    bool waitsForRepaint = false; // a menu of ours was open until now
};

// How a request ended.
struct CaptureOutcome {
    enum class Kind {
        finished,
        cancelled,   // by the user, or nothing was selected
        ignored,     // a capture was in the middle of starting
        overwritten, // a later request took its place in the queue
        refused,     // not signed in, or no permission
        misused,     // what was asked for can't be; `message` says why
        failed,      // `message` says why
    };

    Kind kind = Kind::cancelled;
    QString message = {};
    std::optional<CaptureResult> result = {}; // without pixels
    QSize pixelSize = {};
    std::optional<QString> path = {};        // the file saved
    std::optional<QString> historyPath = {}; // the history's picture
    std::optional<QString> text = {};        // of a text capture
};

// The answer to a request: given exactly once. Dropping it unanswered answers "cancelled".
class CaptureReply {
public:
    CaptureReply() = default;

    explicit CaptureReply(std::function<void(CaptureOutcome)> callback) : m_callback(std::move(callback)) {}

    ~CaptureReply() { give({}); }

    CaptureReply(CaptureReply&& other) noexcept : m_callback(std::exchange(other.m_callback, nullptr)) {}

    CaptureReply& operator=(CaptureReply&& other) noexcept
    {
        give({});
        m_callback = std::exchange(other.m_callback, nullptr);
        return *this;
    }

    void give(CaptureOutcome outcome)
    {
        if (const auto callback = std::exchange(m_callback, nullptr))
            callback(std::move(outcome));
    }

private:
    std::function<void(CaptureOutcome)> m_callback;
};

struct CaptureRequest {
    CaptureMode mode = CaptureMode::area;
    CaptureOptions options = {};
    CaptureReply reply = {};
    quint64 id = 0;          // what `CaptureCoordinator::cancel` takes; 0: can't be cancelled by it
    bool isScripted = false; // by a command line, not by a key or a menu

    // Nobody has to select anything for it, so that several can be taken one after the other.
    bool waitsInLine() const
    {
        return isScripted && (options.rect || mode == CaptureMode::fullScreen || mode == CaptureMode::lastArea);
    }
};

} // namespace Kovrel
