#pragma once

#include "model/CaptureResult.h"
#include "ports/CaptureSave.h"
#include "saving/EncodedPng.h"

#include <QUrl>

#include <memory>

namespace Kovrel {

// Where a finished capture goes besides the card and the history. Main thread; files and codecs are elsewhere.
class CaptureDelivery {
public:
    virtual ~CaptureDelivery() = default;

    // Into the save folder under its templated name, or to exactly `outputPath`.
    virtual std::shared_ptr<CaptureSave> save(CaptureResult result, std::optional<QString> outputPath,
                                              std::shared_ptr<EncodedPng> png) = 0;
    virtual void copy(CaptureResult result, std::shared_ptr<EncodedPng> png) = 0;
    // A file of the picture for programs that take files, and the picture for all others.
    virtual void copyAsFile(const QString& path, std::shared_ptr<EncodedPng> png) = 0;
    virtual void copyText(const QString& text) = 0;
    // Shows a file in the desktop's file manager.
    virtual void reveal(const QString& path) = 0;
    // In the default browser.
    virtual void openLink(const QUrl& url) = 0;
};

} // namespace Kovrel
