#pragma once

namespace Kovrel::Testing {

// Makes memory short for a moment. Any thread.
namespace MemoryShortage {

// The next `new` of this thread throws std::bad_alloc, the ones after it have memory again.
void failNextAllocation();

} // namespace MemoryShortage

} // namespace Kovrel::Testing
