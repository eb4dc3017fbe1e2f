#pragma once

namespace Kovrel {

// Why no card closes by itself.
enum class CountdownHold {
    onboarding, // the first-run guide shows cards
    peek,       // somebody looks at the pile from elsewhere
};

} // namespace Kovrel
