#pragma once

#include "model/HistoryEntry.h"
#include "model/HistoryList.h"

#include <QByteArray>
#include <QList>

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <vector>

namespace Kovrel {

// The records of the history as they are stored: compact JSON arrays of objects whose keys are the fields' names. An
// identity is its upper-case text, a date the seconds since the beginning of 2001 in UTC, and what is absent has no
// key. Any thread.
namespace HistoryJson {

QByteArray encoded(const QList<HistoryEntry>& entries);
QByteArray encoded(const std::vector<HistoryList>& lists);
nlohmann::ordered_json json(const HistoryEntry& entry);

// What was found in a file.
template <class Records>
struct Reading {
    Records records;
    qsizetype skipped = 0; // elements that are no such record
};

// Each element is read by itself; one that is wrong costs that one, also where it breaks the array. Nothing for what is
// no array.
std::optional<Reading<QList<HistoryEntry>>> entries(const QByteArray& json);
std::optional<Reading<std::vector<HistoryList>>> lists(const QByteArray& json);

} // namespace HistoryJson

} // namespace Kovrel
