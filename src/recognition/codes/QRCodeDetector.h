#pragma once

#include "model/QRCode.h"
#include "platform/CodeReader.h"
#include "platform/Scope.h"

namespace Kovrel {

// Finds the QR codes in a picture: dark on light and light on dark, small and blurred ones too.
//
// The asynchronous operations belong to the main thread; they look on a worker lane, and every search uses two threads.
class QRCodeDetector {
public:
    using Engine = CodeReader::Engine;
    using Outcome = std::expected<std::vector<QRCode>, QString>; // the failure is one line, for people

    QRCodeDetector(MainLoop& loop, Workers& workers, const CodeReader& reader);

    // The codes in reading order, each once: of codes with the same payload whose boxes cover each other by half of
    // the smaller one, the first one found counts. Without an engine it is ZXing, which is right more often and five
    // times as fast, and in small pictures where it finds nothing ZBar, which gets along with some bad photographs.
    // `lane` is how urgent it is: Lane::codes when somebody waits, Lane::utility when nobody does.
    QCoro::Task<Outcome> detect(QImage image, bool fullPass, bool tilePass, std::optional<Engine> engine, Lane lane);

    // For somebody who waits: both passes, the whole picture alone, its tiles alone.
    QCoro::Task<Outcome> detectCodes(QImage image);
    QCoro::Task<Outcome> detectCodesFullImage(QImage image);
    QCoro::Task<Outcome> detectCodesTiled(QImage image);

    // Loads the engines, when nobody waits.
    void prewarm();

    // The same on the calling thread and one more. Any thread.
    static Outcome detectCodesSync(const QImage& image, bool fullPass, bool tilePass, std::optional<Engine> engine,
                                   const CodeReader& reader);

private:
    Workers& m_workers;
    const CodeReader& m_reader; // outlives the jobs on the lanes
    Scope m_scope;
};

} // namespace Kovrel
