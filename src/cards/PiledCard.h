#pragma once

#include "cards/CardCode.h"
#include "model/CaptureResult.h"
#include "ports/CaptureHistory.h"
#include "ports/CaptureSave.h"

#include <QSizeF>

#include <memory>

namespace Kovrel {

// One capture in a pile.
struct PiledCard {
    CaptureResult result;  // without its image once the history has that
    quint32 displayID = 0; // where it stands
    QSizeF size;           // of the card, points
    std::optional<QString> savedPath = {};
    std::shared_ptr<CaptureSave> save = {}; // the last one; null: there was none
    std::shared_ptr<CaptureRecording> recording = {};
    std::optional<QString> dragFile = {}; // what other programs get; made when somebody looks at the card
    std::optional<CardCode> code = {};
    QImage face = {}; // the picture at the card's size, in device pixels
    double faceScale = 0;
    int faceGeneration = 0;
    bool hasFace = false;                     // or will never have one: it can be shown
    bool isKept = false;                      // the history has its pixels
    bool isClosing = false;                   // only waits for its file
    std::chrono::microseconds copiedUntil{0}; // of MainLoop::now(); until then it says so

    QUuid id() const { return result.id; }

    bool isSaving() const { return save && !save->isDone(); }

    // Closing it would be the end of the capture.
    bool isOnlyHere() const { return !isKept && !savedPath; }

    // The history has its pixels.
    void letPixelsGo() { result.image = {}; }
};

} // namespace Kovrel
