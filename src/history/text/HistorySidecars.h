#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QUuid>

#include <filesystem>
#include <optional>
#include <vector>

namespace Kovrel {

// The files in the history's folder that hold what was read in captures. Stateless; any thread but the main one.
namespace HistorySidecars {

using Time = std::filesystem::file_time_type;

struct Sidecar {
    QString path;
    Time modified;
};

// For each capture the one that belongs to the picture it has now: once it was edited, only what was read in the edited
// one counts.
QHash<QUuid, Sidecar> in(const QString& folder);

// The captures among them whose sidecar is older.
std::vector<QUuid> olderThan(const QDateTime& time, const QString& folder);

// When a file was written; nothing where there is none.
std::optional<Time> modified(const QString& path);

} // namespace HistorySidecars

} // namespace Kovrel
