#pragma once

#include <QString>

#include <chrono>

namespace Kovrel {

// Keeps other programs from changing a folder for a moment; those that ask for it, too. A file system that knows no
// locks, or a program that does not let go, is not waited for longer than a moment. Any thread but the main one.
class FolderLock {
public:
    // `path` of the file that stands for the folder; it is made.
    explicit FolderLock(const QString& path);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    static constexpr std::chrono::seconds patience{5};

    int m_descriptor;
};

} // namespace Kovrel
