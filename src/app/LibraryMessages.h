#pragma once

namespace Kovrel {

// What libraries say of what they meet, such as a file with a wrong checksum, is no business of whoever reads our
// standard error or the log; what went wrong is answered by what we asked of them.
namespace LibraryMessages {

// From now on only Kovrel's own categories are heard, and kept in the RecentLog. A library that gives up ends the
// program with one line.
void silence();

} // namespace LibraryMessages

} // namespace Kovrel
