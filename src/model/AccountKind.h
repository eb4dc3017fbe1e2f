#pragma once

namespace Kovrel {

// Who is signed in.
enum class AccountKind {
    none,
    thisComputer, // the account that is kept on it
    web,          // one that a web page answered for
};

} // namespace Kovrel
