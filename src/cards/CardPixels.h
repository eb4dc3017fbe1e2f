#pragma once

#include "cards/CardServices.h"
#include "cards/CardShelf.h"
#include "platform/Scope.h"
#include "ports/CaptureHistory.h"

namespace Kovrel {

// The captures of cards with their pixels: those that are still here, else those of the history, else those of the
// saved file. Main thread.
class CardPixels {
public:
    CardPixels(CardServices services, const CardShelf& shelf);

    // As it looks; nothing when nobody has it any more.
    QCoro::Task<std::optional<CaptureResult>> capture(QUuid id);
    // Before its marks.
    QCoro::Task<std::optional<CaptureResult>> base(QUuid id);

private:
    using Part = CaptureResult CaptureHistory::Reopened::*;

    QCoro::Task<std::optional<CaptureResult>> find(QUuid id, Part part);

    CardServices m_services;
    const CardShelf& m_shelf;
    Scope m_scope;
};

} // namespace Kovrel
