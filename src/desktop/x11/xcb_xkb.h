#pragma once

// A member of a C structure in this header is named like a keyword of C++.
#define explicit explicitMember
#include <xcb/xkb.h>
#undef explicit
