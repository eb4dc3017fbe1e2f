#pragma once

#include "commandline/CommandLine.h"
#include "platform/desktop/InstanceBus.h"
#include "recognition/QRCodeDetector.h"
#include "recognition/VisionOCREngine.h"

#include <map>

namespace Kovrel {

// `kovrel text FILE [--raw] [--json]`: the text, then what the codes say. Main thread; answers once.
class TextCommand {
public:
    TextCommand(MainLoop& loop, Workers& workers, VisionOCREngine& engine, QRCodeDetector& codes);

    void run(const Command& command, quint64 requestID, Reply<CommandAnswer> reply);
    // Nobody waits for the answer any more.
    void cancel(quint64 requestID);

private:
    QCoro::Task<> read(Command command, quint64 requestID, Reply<CommandAnswer> reply);

    VisionOCREngine& m_engine;
    QRCodeDetector& m_codes;
    std::map<quint64, std::stop_source> m_running;
    Scope m_scope;
};

} // namespace Kovrel
