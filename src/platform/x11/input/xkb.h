// XKB's own header, which names a field `explicit`: C++ keeps that word for itself.
#pragma once

#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit
