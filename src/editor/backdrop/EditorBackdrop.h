#pragma once

#include "editor/backdrop/AspectRatio.h"
#include "editor/backdrop/BackdropFill.h"
#include "editor/backdrop/CardAlignment.h"
#include "editor/backdrop/Shadow.h"
#include "editor/backdrop/ShadowLight.h"

#include <QByteArray>
#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace Kovrel {

// The canvas that a capture is placed on in the editor. A default one is the new backdrop that people start from.
//
// Lengths are fractions of the shorter side of the subject, or points of the image (a pixel divided by the scale that
// is exported at), so that a backdrop made for one capture suits any other.
struct EditorBackdrop {
    BackdropFill fill{BackdropFill::Kind::gradient, "lagoon"};
    double padding = 0.2; // the space around the image is 0.8 times this fraction
    bool autoBalance = false;
    Shadow shadow = Shadow::soft();
    ShadowLight shadowLight;
    double shadowOpacity = 0.7; // 0 to 1
    double corners = 10;        // radius of the image's corners in points; a window keeps its own where it is greater
    double blur = 0;            // of a picture: radius as a fraction of the shorter side of the canvas
    double frame = 0;           // the frame's width is 0.1 times this fraction
    QString frameColorHex = "#FFFFFF";
    bool frameFollowsPage = false; // the frame's colour is taken from the fill
    std::optional<AspectRatio> aspect;
    CardAlignment alignment = CardAlignment::center;

    bool operator==(const EditorBackdrop&) const = default;

    // No backdrop. What else a backdrop without a fill says does not count, but is kept for when it gets one.
    static const EditorBackdrop none;

    bool isNone() const { return fill.kind == BackdropFill::Kind::none; }

    // The persisted form: compact JSON with the keys "fill", "padding", "autoBalance", "shadow", "shadowLight",
    // "shadowOpacity", "corners", "blur", "frame", "frameColor", "frameFromPage", "aspect" (left out where there is
    // none) and "alignment", in this order.
    QByteArray encode() const;
    // A missing key reads as the default, but without a fill, which nobody chose, there is no backdrop; numbers out of
    // range are brought into it. Nothing for what is no JSON object, for a key of the wrong kind, an unknown name of a
    // fill's kind or an alignment, and for more than a quarter of a megabyte.
    static std::optional<EditorBackdrop> decode(const QByteArray& json);

    // The same as a part of other JSON; the order of keys matters to what is written alone.
    nlohmann::ordered_json toJson() const;
    static std::optional<EditorBackdrop> fromJson(const nlohmann::json& object);
};

} // namespace Kovrel
