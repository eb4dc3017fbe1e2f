#pragma once

#include <QFile>
#include <QHash>
#include <QStringList>

namespace Kovrel::Bench {

// The rows of a table of tab-separated values, by the names in its first line.
inline QList<QHash<QString, QString>> readManifest(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList names = QString::fromUtf8(file.readLine()).trimmed().split(u'\t');
    QList<QHash<QString, QString>> rows;
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).split(u'\t');
        QHash<QString, QString> row;
        for (qsizetype index = 0; index < qMin(names.size(), cells.size()); ++index)
            row[names[index]] = cells[index];
        rows << row;
    }
    return rows;
}

} // namespace Kovrel::Bench
