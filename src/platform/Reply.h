#pragma once

#include <functional>

namespace Kovrel {

// How an asynchronous platform service answers: exactly once, on the main thread, never inside the asking call.
template <class T>
using Reply = std::function<void(T)>;

} // namespace Kovrel
