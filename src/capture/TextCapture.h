#pragma once

#include "capture/CaptureFinisher.h"
#include "ports/TextReader.h"

namespace Kovrel {

// The capture whose text is wanted: reads the picture, copies what it says and confirms it with a toast. Main thread.
class TextCapture {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::TextCapture)

public:
    TextCapture(CaptureServices& services, CaptureFinisher& finisher);

    // A newer text capture makes an older one silent.
    QCoro::Task<> runOCR(CaptureFinisher::Pixels pixels, std::shared_ptr<CaptureRun> run);

private:
    void confirm(const TextReader::Reading& reading, const QString& text);

    CaptureServices& m_services;
    CaptureFinisher& m_finisher;
    int m_generation = 0;
    Scope m_scope;
};

} // namespace Kovrel
