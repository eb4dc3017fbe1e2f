#pragma once

#include "model/OCRResult.h"
#include "platform/Scope.h"
#include "platform/TextRecogniser.h"

namespace Kovrel {

// Reads the text of pictures, one at a time on the lane "com.kovrel.vision-ocr". Main thread.
class VisionOCREngine {
public:
    // `languages` is asked before each recognition; see TextRecogniser::Request.
    VisionOCREngine(MainLoop& loop, Workers& workers, std::unique_ptr<TextRecogniser> recogniser,
                    std::function<QStringList()> languages);
    ~VisionOCREngine();

    // Loads the recogniser's models, by reading a picture without text.
    void prewarm();

    // `stop` ends the recognition after one more line at most; one that still waits is not begun. `progress`: see
    // TextRecogniser::Request.
    QCoro::Task<OCROutcome> recognize(QImage image, QualityOfService qos, bool languageCorrection, std::stop_token stop,
                                      std::function<void(double)> progress = {});

    // After this time without a picture the recogniser gives its memory back.
    static constexpr std::chrono::minutes restsAfter{3};

private:
    void restLater();

    MainLoop& m_loop;
    Workers& m_workers;
    MainLoop::TimerID m_rest = 0;
    std::shared_ptr<TextRecogniser> m_recogniser;
    std::function<QStringList()> m_languages;
    std::stop_source m_end; // of the engine itself
    Scope m_scope;
};

} // namespace Kovrel
