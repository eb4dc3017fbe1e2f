#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace Kovrel {

// A file that nobody sees until it takes its place: without a name where the file system can do that, so that nothing
// stays behind when the program dies; hidden otherwise. It is locked while it lives. Where something fails, `errno`
// says why. Any thread.
class HiddenFile {
public:
    HiddenFile(const QString& folder, mode_t mode);
    ~HiddenFile();
    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    // There are file systems without permissions: they refuse them, and that does no harm.
    void tryMode(mode_t mode) const;
    bool write(const QByteArray& bytes) const;
    bool sync() const;
    // Tells first what the file system says when a file is closed; some write only then.
    bool moveTo(const QString& path);

    // Removes those in a folder whose process is gone.
    static void sweep(const QString& folder);

private:
    bool takeName();

    QByteArray m_folder;
    QByteArray m_path; // empty: no name
    int m_descriptor;
};

} // namespace Kovrel
