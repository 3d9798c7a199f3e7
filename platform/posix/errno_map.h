// From errno to the numbers of platform/error.h.
#pragma once

#include "platform/types.h"

namespace platform {

// The code for an errno value; kErrorIoDevice for one that has no counterpart.
u32 CodeOfErrno(int number) noexcept;

// Sets the last error from errno.
void TakeErrno() noexcept;

}  // namespace platform
