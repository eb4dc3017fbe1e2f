#pragma once

#include "platform/FileManager.h"

#include <QStringList>

namespace Kovrel::Testing {

// Remembers the files that it was to show.
class FakeFileManager : public FileManager {
public:
    QStringList paths;

    void reveal(const QString& path) override { paths << path; }
};

} // namespace Kovrel::Testing
