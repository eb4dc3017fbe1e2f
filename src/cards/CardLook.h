#pragma once

#include "cards/CardCode.h"
#include "cards/Countdown.h"

#include <QImage>
#include <QRectF>
#include <QUuid>

#include <optional>

namespace Kovrel {

// What is to be seen of one card.
struct CardLook {
    QUuid id;
    quint32 displayID = 0;
    QRectF place; // points from the upper left corner of its display, y down
    QImage face;  // device pixels; null where it can't be drawn
    Countdown countdown;
    bool isFrozen = false;
    bool isSaving = false;
    bool isSaved = false;
    bool isCopied = false;
    std::optional<CardCode> code;
    std::optional<QString> dragFile; // what other programs get, once it is made

    bool operator==(const CardLook&) const = default;
};

} // namespace Kovrel
