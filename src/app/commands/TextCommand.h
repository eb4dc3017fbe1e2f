#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"
#include "recognition/codes/QRCodeDetector.h"
#include "recognition/text/VisionOCREngine.h"

#include <map>

namespace Kovrel {

// `kovrel text FILE [--raw] [--json]`: the text, then what the codes say. Main thread; answers once.
class TextCommand {
public:
    // `progress` hears what share of the text is read, on any thread; 1 when it is over, however it ended.
    TextCommand(MainLoop& loop, Workers& workers, VisionOCREngine& engine, QRCodeDetector& codes,
                std::function<void(double)> progress = {});

    void run(const Command& command, quint64 requestID, Reply<CommandAnswer> reply);
    // Nobody waits for the answer any more.
    void cancel(quint64 requestID);

private:
    QCoro::Task<> answer(Command command, quint64 requestID, Reply<CommandAnswer> reply);
    QCoro::Task<CommandAnswer> read(Command command, std::stop_token stop);

    VisionOCREngine& m_engine;
    QRCodeDetector& m_codes;
    std::function<void(double)> m_progress;
    std::map<quint64, std::stop_source> m_running;
    Scope m_scope;
};

} // namespace Kovrel
