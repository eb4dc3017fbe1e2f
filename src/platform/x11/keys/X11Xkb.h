#pragma once

// The library's header has a field with a name that C++ keeps to itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
