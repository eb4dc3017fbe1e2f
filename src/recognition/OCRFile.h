#pragma once

#include "model/OCRResult.h"
#include "model/QRCode.h"

#include <QByteArray>
#include <QSize>

#include <optional>

namespace Kovrel {

// What is kept of the recognition of one image, and its form as a file: one JSON object with the keys "v", "text" and
// "qr". Coordinates keep five decimals, centres of characters four. Stateless; any thread.
struct OCRFile {
    struct TextPart {
        QSize pixels; // of the image that was read
        bool corrected = false;
        OCRResult result;
        bool operator==(const TextPart&) const = default;
    };

    struct QRPart {
        std::vector<QRCode> codes;
        bool complete = false; // no codes means that there are none, not that nobody looked
        bool operator==(const QRPart&) const = default;
    };

    // The text with a line for each code behind its own, which is never stored: a search finds what codes say.
    OCRResult textWithCodes() const;

    static constexpr int newVersion = 1;

    int version = newVersion; // kept as read
    std::optional<TextPart> text;
    std::optional<QRPart> qr;

    QByteArray encoded() const;
    // Nothing for what is not such an object: cut off, other types, keys that are missing.
    static std::optional<OCRFile> decoded(const QByteArray& json);

    bool operator==(const OCRFile&) const = default;
};

} // namespace Kovrel
