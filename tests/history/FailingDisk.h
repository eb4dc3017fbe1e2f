#pragma once

namespace Kovrel::Testing {

// While it lives, this process's disk fails at one of the steps by which files take their place: an unnamed file, its
// bytes, their way to the disk, its name. One object at a time.
class FailingDisk {
public:
    enum class Failure {
        once,
        fromThenOn,
    };

    // `step` counts from 1.
    FailingDisk(int step, Failure failure);
    // Instead, files whose names end so can't be opened for reading.
    explicit FailingDisk(const char* unreadableEnding);
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    // Whether it has come to that step.
    bool hasFailed() const;
};

} // namespace Kovrel::Testing
