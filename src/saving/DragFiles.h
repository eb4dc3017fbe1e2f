#pragma once

#include "saving/SaveService.h"

namespace Kovrel {

// The short-lived files that a drag hands to other programs. Each lies in a folder of its own, so that it can carry the
// name that people read. Nobody else may look at them. Any thread but the main one.
class DragFiles {
public:
    // `temporaryFolder` is the user's own.
    explicit DragFiles(const QString& temporaryFolder) : m_root(temporaryFolder + "/Kovrel-drag") {}

    QString dragTempRoot() const { return m_root; }

    // The path of the new file; nothing when that failed.
    std::optional<QString> writeTempImage(const SaveSettings& settings, const QImage& image,
                                          const QDateTime& date) const;
    // A PNG file that is there already, under another name: linked, or copied where that can't be.
    std::optional<QString> linkTempImage(const SaveSettings& settings, const QString& source,
                                         const QDateTime& date) const;

    // Removes all of them.
    void sweepDragTemp() const;

private:
    std::optional<QString> newFolder() const;

    QString m_root;
};

} // namespace Kovrel
