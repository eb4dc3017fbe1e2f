#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "picking/ColorLoupeController.h"
#include "picking/measure/MeasureController.h"
#include "ports/ColorPicking.h"
#include "ports/Ports.h"

#include <memory>

namespace Kovrel {

struct ToastContent;

// Colours and lengths, of the screen and of pictures.
class PickingFeature : public Feature, private ColorPicking {
public:
    PickingFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;

private:
    // Of these at most one is under way.
    struct OnScreen {
        ColorLoupeController loupe;
        MeasureController measuring;
    };

    // ColorPicking
    void pick(Completion completion) override;
    bool abandon() override;

    CommandHandler ofFile(const char* command, CommandAnswer (*run)(const Command&));
    void onScreen(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    void begin(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    bool isUnderWay(const Invocation& invocation) const;
    void pickColor(const Command& command, const Reply<CommandAnswer>& reply);
    void copyPickedColor();
    void measure(const Reply<CommandAnswer>& reply);
    void cancel(quint64 requestID);
    void copy(const QString& text);
    void present(const ToastContent& toast);

    Foundation& m_foundation;
    const Ports& m_ports;
    std::unique_ptr<OnScreen> m_screen; // none without a desktop
    quint64 m_requestID = 0;            // of the command that waits
    Lifeline m_lifeline;
};

} // namespace Kovrel
