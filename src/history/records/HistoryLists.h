#pragma once

#include "model/HistoryList.h"

#include <QSet>

#include <vector>

namespace Kovrel {

// What is done with lists, without files. Any thread.
namespace HistoryLists {

using Lists = std::vector<HistoryList>;

// Null for none.
HistoryList* find(Lists& lists, QUuid list);
const HistoryList* find(const Lists& lists, QUuid list);

// The captures that are in some list.
QSet<QUuid> listed(const Lists& lists);

// A capture stays in the first list that holds it, and there once.
void collapseToOneEach(Lists& lists);
void drop(Lists& lists, const QSet<QUuid>& ids);
// Without captures that are not there.
void keepOnly(Lists& lists, const QSet<QUuid>& ids);

// At the end of the list, out of all others. Without such a list nothing happens.
void moveInto(Lists& lists, const std::vector<QUuid>& ids, QUuid list);
// To a position among the others, at most the last one.
void reorder(Lists& lists, QUuid list, int position);

// "Untitled", with the first number from 2 on that no list has where one is called that.
QString defaultName(const Lists& lists);
// The first colour of the palette that no list has; when all are taken they come again in turn.
QString nextColor(const Lists& lists);

} // namespace HistoryLists

} // namespace Kovrel
