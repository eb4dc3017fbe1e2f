#pragma once

#include "model/Geometry.h"
#include "model/ImageFormat.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace Kovrel {

// What a run of the screenshot tool is asked for.
struct ToolOptions {
    std::optional<Rect> rect;               // -R: whole points from the top-left corner of the primary display, y down
    std::optional<quint32> window;          // -l
    bool picksWindow = false;               // -w
    bool drawsPointer = false;              // -C
    ImageFormat format = ImageFormat::tiff; // -t
    QString path;

    // Without -R, -l and -w it is the primary display. "-x" (no sound) and "-o" (no shadow) are always so. The failure
    // is one line for people.
    static std::expected<ToolOptions, QString> parse(const QStringList& arguments);

    bool operator==(const ToolOptions&) const = default;
};

} // namespace Kovrel
