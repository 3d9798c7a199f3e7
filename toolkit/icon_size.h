// The size of an icon, whoever made it.
#pragma once

#include "toolkit/win32.h"

// In pixels; all zero for null or what is no icon.
SIZE IconSize(HICON icon);
