// xcb/xkb.h has a field named `explicit`, which is a keyword in C++.
#pragma once

#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit
