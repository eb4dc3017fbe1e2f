#pragma once

#include "model/SourceApp.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

namespace Kovrel {

// Finds the application that a window belongs to among the installed desktop entries. One thread at a time.
class ApplicationNames {
public:
    // The folders with .desktop files, the user's own first.
    explicit ApplicationNames(QStringList folders = standardFolders());

    // By StartupWMClass, then by the entry's file name; where none matches, the class itself is name and identifier.
    SourceApp of(const QByteArray& instanceName, const QByteArray& className);

    static QStringList standardFolders();

private:
    void readAgainWhenChanged();
    void readFolder(const QString& folder);

    QStringList m_folders;
    QString m_state;                     // when the folders were changed last, for those that were read
    QHash<QString, SourceApp> m_byClass; // keys in lower case
    QHash<QString, SourceApp> m_byFileName;
};

} // namespace Kovrel
