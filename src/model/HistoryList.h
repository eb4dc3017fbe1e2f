#pragma once

#include <QCoreApplication>
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
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Blue"), "#2F6BFF"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Cyan"), "#5AC8FA"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Teal"), "#40C8C0"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Green"), "#34C759"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Yellow"), "#FFD60A"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Orange"), "#FF9F0A"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Red"), "#FF453A"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Pink"), "#FF375F"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Purple"), "#BF5AF2"},
        PaletteColor{QT_TRANSLATE_NOOP("HistoryList", "Graphite"), "#98989D"},
    };

    QUuid id;
    QString name;
    QString colorHex; // #RRGGBB
    QDateTime createdAt;
    std::vector<QUuid> entryIDs; // in the user's order

    bool operator==(const HistoryList&) const = default;
};

} // namespace Kovrel
