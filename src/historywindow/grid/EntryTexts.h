#pragma once

#include "model/HistoryEntry.h"

#include <QLocale>

namespace Kovrel {

// What people read of a capture. Stateless; main thread.
namespace EntryTexts {

// What the user called it, else its file, else where it came from.
QString title(const HistoryEntry& entry);

// When it was taken: the time of today, "Yesterday" and the time, the weekday within a week, else the date.
QString moment(const QDateTime& date, const QDateTime& now, const QLocale& locale);

// "Sunday, 22 November 2026 5:55".
QString fullDate(const QDateTime& date, const QLocale& locale);

// "1920 × 1080"; empty where it is not known.
QString size(const HistoryEntry& entry);

} // namespace EntryTexts

} // namespace Kovrel
