#pragma once

#include <QDir>
#include <QTemporaryDir>

namespace Kovrel::Testing {

// A folder of a test's own, gone with it.
class TempFolder {
public:
    QString path() const { return m_dir.path(); }

    QString operator/(const QString& name) const { return m_dir.filePath(name); }

    QStringList files() const { return QDir(path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

private:
    QTemporaryDir m_dir;
};

} // namespace Kovrel::Testing
