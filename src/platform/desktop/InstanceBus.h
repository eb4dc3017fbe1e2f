#pragma once

#include "model/CommandAnswer.h"
#include "platform/Reply.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace Kovrel {

// The program's place on the session bus: one instance for each user session, commands from outside, and the news of
// finished captures. Main thread.
class InstanceBus {
public:
    struct Handlers {
        // `requestID` is named again by `callerVanished` when the process that waits for the answer has gone.
        std::function<void(QStringList arguments, quint64 requestID, Reply<CommandAnswer>)> run;
        std::function<void(quint64 requestID)> callerVanished;
        std::function<void()> activate;
        std::function<void(QStringList uris)> open;
        std::function<void(QString action)> activateAction;
        std::function<void(QString reason)> quit; // also when the bus has gone: on another one we are not found
    };
    enum class Claim { owned, taken, noBus };

    InstanceBus();
    ~InstanceBus();

    // Registers the objects and then asks for the name, so that whoever sees the name finds the objects.
    Claim claim(Handlers handlers);

    // Gives the name up for another instance; answers that are still owed can be given.
    void release();

    // Brings the instance that owns the name forward.
    static void activateOwner();

    void announceCaptureFinished(const QString& id, const QString& mode, int width, int height);

private:
    class Service;
    std::unique_ptr<Service> m_service;
};

} // namespace Kovrel
