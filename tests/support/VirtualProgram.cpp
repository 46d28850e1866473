// SPDX-License-Identifier: MIT
#include "VirtualTime.h"

/// Made when the module is loaded, before the program's main() and on its thread.
static const VirtualTime s_time;
