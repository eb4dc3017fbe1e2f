#pragma once

#include "capture/TextReader.h"
#include "recognition/QRCodeDetector.h"
#include "recognition/VisionOCREngine.h"

namespace Kovrel {

// The text of the engine and the codes of the detector. What can't be read is logged and taken for empty.
class RecognitionTextReader : public TextReader {
public:
    RecognitionTextReader(MainLoop& loop, Workers& workers, VisionOCREngine& engine, QRCodeDetector& codes);

    void expectReading() override;
    void read(QImage image, double pixelScale, Reply<Reading> reply) override;

private:
    QCoro::Task<> readBoth(QImage image, Reply<Reading> reply);
    QCoro::Task<QString> text(QImage image);
    QCoro::Task<QStringList> payloads(QImage image);

    VisionOCREngine& m_engine;
    QRCodeDetector& m_codes;
    Scope m_scope;
};

} // namespace Kovrel
