#pragma once

#include "model/OCRResult.h"
#include "platform/Scope.h"
#include "platform/TextRecogniser.h"

#include <array>

namespace Kovrel {

// Reads the text of pictures, one at a time on the lane "com.kovrel.vision-ocr". Main thread.
class VisionOCREngine {
public:
    // `languages` is asked before each recognition; see TextRecogniser::Request.
    VisionOCREngine(MainLoop& loop, Workers& workers, std::unique_ptr<TextRecogniser> recogniser,
                    std::function<QStringList()> languages);
    ~VisionOCREngine();

    // See TextRecogniser; asked behind what is being read.
    void installedLanguages(Reply<QStringList> reply);

    // Of the languages that it reads now; asked likewise.
    void modelsChanged(Reply<QDateTime> reply);

    // Loads the recogniser's models, by reading a picture without text.
    void prewarm();

    // `stop` ends the recognition after one more line at most; one that still waits is not begun. `progress`: see
    // TextRecogniser::Request. What nobody waits for (background, utility) reads slowly, gives way to a picture that
    // somebody waits for and begins anew behind it; and once something turned out not to be installed, it is not looked
    // for again for a while.
    QCoro::Task<OCROutcome> recognize(QImage image, QualityOfService qos, bool languageCorrection, std::stop_token stop,
                                      std::function<void(double)> progress = {});

    // After this time without a picture the recogniser gives its memory back.
    static constexpr std::chrono::minutes restsAfter{3};

    static constexpr std::chrono::minutes missesFor{10};

private:
    // Any of the stops ends it.
    QCoro::Task<OCROutcome> attempt(QImage image, QualityOfService qos, bool languageCorrection,
                                    std::array<std::stop_token, 2> stops, std::function<void(double)> progress);
    void restLater();
    void makeWay();
    void note(const OCROutcome& outcome);
    bool isKnownToMiss() const;

    MainLoop& m_loop;
    Workers& m_workers;
    MainLoop::TimerID m_rest = 0;
    std::shared_ptr<TextRecogniser> m_recogniser;
    std::function<QStringList()> m_languages;
    std::stop_source m_way; // for what somebody waits for
    std::optional<RecognitionFailure> m_missing;
    std::chrono::microseconds m_missingSince{};
    std::stop_source m_end; // of the engine itself
    Scope m_scope;
};

} // namespace Kovrel
