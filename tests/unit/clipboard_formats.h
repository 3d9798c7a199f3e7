// What lies on the clipboard.
#pragma once

#include <vector>

#include "platform/types.h"

// The formats that programs put there, in any order; not those that Windows makes of them.
std::vector<u32> ClipboardFormats();
