#pragma once

#include "platform/Reply.h"

#include <QString>

#include <vector>

namespace Kovrel {

// A program that opens files.
struct FileProgram {
    QString id;       // what `FilePrograms::open` takes
    QString name;     // as people read it
    QString iconName; // in the desktop's icon theme; may be empty

    bool operator==(const FileProgram&) const = default;
};

// The desktop's programs, to which files are handed over. Main thread; what can't be started or
// changed is logged.
class FilePrograms {
public:
    virtual ~FilePrograms() = default;

    // Those that open files whose names end like this one's, the one that the user prefers first. Empty where there are
    // none.
    virtual void openers(const QString& fileName, Reply<std::vector<FileProgram>> reply) = 0;

    // With the program that the user prefers for such files.
    virtual void open(const QString& path) = 0;
    virtual void open(const QString& path, const QString& programID) = 0;

    // From now on that program is preferred for files whose names end like this one's.
    virtual void prefer(const QString& fileName, const QString& programID) = 0;

    // Whether there is a mail program to be asked.
    virtual bool canMail() const = 0;
    // A new message with the file attached.
    virtual void mail(const QString& path) = 0;
};

} // namespace Kovrel
