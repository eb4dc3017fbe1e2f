#pragma once

#include "platform/TextRecogniser.h"

#include <memory>

namespace tesseract {
class TessBaseAPI;
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

    // The text of a line, in pixels of the picture that was given: y down.
    struct Run {
        QString text;
        float confidence = 0;
        QRectF box;
        std::vector<std::optional<QRectF>> characterBoxes; // of each grapheme
    };

    static std::expected<std::unique_ptr<TesseractEngine>, QString> make(const Kind& kind);
    ~TesseractEngine();

    const Kind& kind() const { return m_kind; }

    // A Format_Grayscale8 picture of one upright line, dark on white; nothing when it is no text. Boxes are as high as
    // the picture.
    std::optional<Run> read(const QImage& ink);

private:
    explicit TesseractEngine(Kind kind);
    bool load();
    std::optional<Run> read(const QImage& ink, int segmentation);

    Kind m_kind;
    std::unique_ptr<tesseract::TessBaseAPI> m_library;
};

} // namespace Kovrel
