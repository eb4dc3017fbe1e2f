#pragma once

#include <functional>

namespace Kovrel {

// A named serial queue of background work. Different lanes never wait for each other.
enum class Lane {
    capture,     // pixels of the screen, and what a waiting user needs next
    save,        // encoding and writing files
    clipboard,   // what is read and made for the clipboard
    paste,       // what other programs have on the clipboard; they may hang
    editorSave,  // "com.kovrel.editor-save"
    shutter,     // "com.kovrel.shutter"
    codes,       // codes in a picture, while somebody waits
    utility,     // everything that nobody waits for
    visionOCR,   // "com.kovrel.vision-ocr"
    ocrFiles,    // recognised text on disk
    history,     // the files of the history
    thumbnails,  // small pictures of the history, made and read
    search,      // what somebody types to find captures
    searchIndex, // the file of their words
    cardFace,    // "com.kovrel.card-face"
    packages,    // what the package manager is asked; it may hang
};

// Who waits for a job; of those that wait in a lane the most urgent is run first.
enum class QualityOfService { background, utility, userInitiated, userInteractive };

// The door to background threads. Submitting is done on the main thread; a lane runs its jobs one at a time, equally
// urgent ones in order of submission. A job that was submitted is run, also when the program ends. One that throws is
// logged, and the lane goes on.
class Workers {
public:
    virtual ~Workers() = default;

    void submit(Lane lane, std::function<void()> job) { submit(lane, QualityOfService::userInitiated, std::move(job)); }

    virtual void submit(Lane lane, QualityOfService qos, std::function<void()> job) = 0;
};

} // namespace Kovrel
