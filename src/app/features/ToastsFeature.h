#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"
#include "toasts/ToastController.h"

namespace Kovrel {

// The small confirmations.
class ToastsFeature : public Feature {
public:
    ToastsFeature(Foundation& foundation, Ports& ports);
    void prewarm() override;

private:
    ToastController m_toasts;
};

} // namespace Kovrel
