#pragma once

#include "history/text/IndexedText.h"

#include <QHash>
#include <QUuid>

#include <memory>

namespace Kovrel {

// The texts of captures. A copy is a snapshot that costs nothing and may be read on any thread. A capture that has no
// text has an empty one; one that nobody has looked at has none.
using HistoryTexts = QHash<QUuid, std::shared_ptr<const IndexedText>>;

} // namespace Kovrel
