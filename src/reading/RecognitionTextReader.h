#pragma once

#include "ports/TextReader.h"
#include "recognition/codes/QRCodeDetector.h"
#include "recognition/text/VisionOCREngine.h"

namespace Kovrel {

// The text of the engine and the codes of the detector. What fails is logged and told; the other one counts.
class RecognitionTextReader : public TextReader {
public:
    // When the languages of the engine were chosen; invalid where nobody has.
    using LanguagesChosen = std::function<QDateTime()>;

    RecognitionTextReader(MainLoop& loop, Workers& workers, VisionOCREngine& engine, QRCodeDetector& codes,
                          LanguagesChosen languagesChosen);

    void expectReading() override;
    void read(QImage image, double pixelScale, std::stop_token stop, Reply<Reading> reply) override;
    void readText(QImage image, QualityOfService qos, bool corrected, std::stop_token stop,
                  Reply<OCROutcome> reply) override;
    void modelsChanged(Reply<QDateTime> reply) override;
    void readCodes(QImage image, Reply<std::optional<std::vector<QRCode>>> reply) override;

private:
    QCoro::Task<> readBoth(QImage image, std::stop_token stop, Reply<Reading> reply);

    QCoro::Task<> detect(QImage image, Reply<std::optional<std::vector<QRCode>>> reply);
    QCoro::Task<> recognize(QImage image, QualityOfService qos, bool corrected, std::stop_token stop,
                            Reply<OCROutcome> reply);

    VisionOCREngine& m_engine;
    QRCodeDetector& m_codes;
    LanguagesChosen m_languagesChosen;
    Scope m_scope;
};

} // namespace Kovrel
