#pragma once

#include "history/files/HistoryFiles.h"
#include "history/records/HistoryState.h"

#include <QImage>

#include <vector>

namespace Kovrel::Bench {

// A history as somebody might have it after years: captures of several applications and kinds, saved ones, lists. Each
// has one of the pictures; files with the same content are one on the disk.
namespace HistorySample {

// Writes it to an empty folder.
HistoryState make(const HistoryFiles& files, int count, const std::vector<QImage>& pictures);

} // namespace HistorySample

} // namespace Kovrel::Bench
