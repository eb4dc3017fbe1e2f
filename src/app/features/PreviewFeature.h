#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "livetext/preview/PreviewWindows.h"

namespace Kovrel {

// Pictures that are looked at in windows, and their text.
class PreviewFeature : public Feature {
public:
    PreviewFeature(Foundation& foundation, Ports& ports);

private:
    PreviewWindows m_windows;
};

} // namespace Kovrel
