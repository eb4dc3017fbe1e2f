#pragma once

#include "history/text/HistoryTexts.h"

#include <QByteArray>
#include <QSet>
#include <QString>

namespace Kovrel {

// The file "search-index.json" of the history's folder: one JSON object with a version, and an array of lines for each
// capture, each in a row of the file, so that a damaged row costs that capture only. A line has its text "t" and its
// box, "x", "y", "w" and "h". Stateless; any thread but the main one.
namespace HistoryTextFile {

QString path(const QString& folder);

QByteArray encoded(const HistoryTexts& texts);
// What can be read of it; nothing of another version.
HistoryTexts decoded(const QByteArray& json);

// For its owner alone. False: it could not be written, which is logged.
bool write(const QString& folder, const HistoryTexts& texts);

struct Loaded {
    HistoryTexts texts;
    bool isAsStored = true; // false: the file has something else
};

// The texts of the captures in a folder. A capture's sidecar is what counts: one that the file lacks, or that is
// younger than the file, is read itself, and a text whose sidecar has gone is not believed.
Loaded load(const QString& folder);

// Takes captures out of the file. False: as for `write`.
bool remove(const QString& folder, const QSet<QUuid>& ids);

} // namespace HistoryTextFile

} // namespace Kovrel
