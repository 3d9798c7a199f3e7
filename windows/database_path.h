// The path of a database as the commands see it.
#pragma once

#include "foundation/tvstring.h"

// True if the path, its variables expanded, says where the file is whatever the current folder: it begins
// with a drive and a backslash, or is that of a network share.
bool IsAbsolutePath(const tvstring& path);

// The message with the code of a failure of the system behind it, as "Text [0x00000005]"; as it is for 0.
tvstring WithErrorCode(tvstring message, u32 error);
