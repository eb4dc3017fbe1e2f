#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <array>
#include <vector>

namespace Kovrel {

// Captures that the user filed together under a name.
struct HistoryList {
    struct PaletteColor {
        const char* name;
        const char* hex;
    };

    static constexpr std::array palette{
        PaletteColor{"Blue", "#2F6BFF"},     PaletteColor{"Cyan", "#5AC8FA"},   PaletteColor{"Teal", "#40C8C0"},
        PaletteColor{"Green", "#34C759"},    PaletteColor{"Yellow", "#FFD60A"}, PaletteColor{"Orange", "#FF9F0A"},
        PaletteColor{"Red", "#FF453A"},      PaletteColor{"Pink", "#FF375F"},   PaletteColor{"Purple", "#BF5AF2"},
        PaletteColor{"Graphite", "#98989D"},
    };

    QUuid id;
    QString name;
    QString colorHex; // #RRGGBB
    QDateTime createdAt;
    std::vector<QUuid> entryIDs; // in the user's order

    bool operator==(const HistoryList&) const = default;
};

} // namespace Kovrel
