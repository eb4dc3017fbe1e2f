#pragma once

#include "platform/TextRecogniser.h"

#include <memory>

namespace tesseract {
class TessBaseAPI;
class ResultIterator;
} // namespace tesseract

namespace Kovrel {

// One instance of the library with its models, which stay loaded. One thread at a time.
class TesseractEngine {
public:
    // The models, and whether their word lists count.
    struct Kind {
        QStringList models;
        bool correctsLanguage = true;
        QStringList customWords;
        bool operator==(const Kind&) const = default;
    };

    // A run of text as it lies in the picture that was given: pixels, y down.
    struct Run {
        QString text;
        float confidence = 0;
        QRectF box;
        std::vector<std::optional<QRectF>> characterBoxes; // of each grapheme
    };

    static std::expected<std::unique_ptr<TesseractEngine>, QString> make(const Kind& kind);
    ~TesseractEngine();

    const Kind& kind() const { return m_kind; }

    // The runs of upright text in a Format_Grayscale8 picture, dark on white. What was read until `stop` was asked for.
    std::vector<Run> read(const QImage& ink, const std::stop_token& stop);

private:
    explicit TesseractEngine(Kind kind);
    bool load();

    Kind m_kind;
    std::unique_ptr<tesseract::TessBaseAPI> m_library;
};

} // namespace Kovrel
