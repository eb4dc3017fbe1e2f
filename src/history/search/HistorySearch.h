#pragma once

#include "history/text/IndexedText.h"
#include "model/HistoryEntry.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// What is typed to find captures, and the rule by which it finds them. Stateless; any thread.
namespace HistorySearch {

// Terms as `TextFolding::comparable` makes them, none empty. Without any, nothing is searched for.
struct Query {
    std::vector<QString> terms;
    bool operator==(const Query&) const = default;
};

// A capture's recognised text, null where there is none. It is used before the next call.
using TextOf = std::function<const IndexedText*(QUuid)>;

// Words between white space.
Query parse(const QString& text);

// The captures that every term finds, in their order. A term finds a capture whose application's name or identifier,
// file's name, kind or text contain it; one of two characters and more also by any but the text, where its characters
// stand in it in their order (`subsequence`).
std::vector<HistoryEntry> narrow(const std::vector<HistoryEntry>& entries, const Query& query, const TextOf& text);

// How well the characters of a query, each found at its first place behind the one before, fit a text: runs, beginnings
// of words and short texts count more; 40 at most. Nothing where one is missing. Characters are code points.
std::optional<int> subsequence(const QString& query, const QString& text);

// What a mode is called; nothing for one that is not known.
std::optional<QString> label(const QString& mode);

} // namespace HistorySearch

} // namespace Kovrel
