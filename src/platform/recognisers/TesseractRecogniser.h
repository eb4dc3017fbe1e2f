#pragma once

#include "platform/recognisers/TesseractEngine.h"

namespace Kovrel {

// Reads text with Tesseract. What stands around its models is done here: pages are cleaned, turned upright and taken
// apart into lines, which two threads read with a library instance each.
class TesseractRecogniser : public TextRecogniser {
public:
    Outcome recognise(const QImage& picture, const Request& request) override;

    QStringList installedLanguages() override;
    QDateTime modelsChanged(const QStringList& languages) override;

    void releaseMemory() override;

private:
    static constexpr size_t threadCount = 2;

    std::optional<Failure> prepareEngines(const Request& request, size_t count);

    struct Page;
    std::vector<TesseractEngine::Run> readPage(const Page& page, const Request& request);

    TesseractEngine::Kind m_kind;
    std::vector<std::unique_ptr<TesseractEngine>> m_engines; // of that kind, loaded as they are needed
};

} // namespace Kovrel
