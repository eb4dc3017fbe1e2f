#pragma once

#include <functional>

namespace Kovrel {

// A named serial queue of background work. Different lanes never wait for each other.
enum class Lane {
    capture,    // pixels of the screen, and what a waiting user needs next
    save,       // encoding and writing files
    editorSave, // "com.kovrel.editor-save"
    shutter,    // "com.kovrel.shutter"
    codes,      // codes in a picture, while somebody waits
    utility,    // everything that nobody waits for
};

// The door to background threads. Submitting is done on the main thread; a lane runs its jobs one at a time in
// order of submission. A job that was submitted is run, also when the program ends.
class Workers {
public:
    virtual ~Workers() = default;
    virtual void submit(Lane lane, std::function<void()> job) = 0;
};

} // namespace Kovrel
