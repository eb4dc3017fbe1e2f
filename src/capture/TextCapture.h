#pragma once

#include "capture/CaptureFinisher.h"
#include "ports/TextReader.h"

namespace Kovrel {

// The capture whose text is wanted: reads the picture, copies what it says and confirms it with a toast. Main thread.
class TextCapture {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::TextCapture)

public:
    TextCapture(CaptureServices& services, CaptureFinisher& finisher);

    // A newer text capture stops an older one.
    QCoro::Task<> runOCR(CaptureFinisher::Pixels pixels, std::shared_ptr<CaptureRun> run);
    // Stops the one that this request began; its text is not copied.
    void cancel(quint64 requestID);

private:
    void confirm(const TextReader::Reading& reading, const QString& text);

    CaptureServices& m_services;
    CaptureFinisher& m_finisher;
    std::shared_ptr<CaptureRun> m_run; // the last one
    std::stop_source m_stop;           // of its reading
    Scope m_scope;
};

} // namespace Kovrel
