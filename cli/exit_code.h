// The exit codes of vmr. They are part of its interface and never renumbered.
#pragma once

#include <span>

#include "platform/types.h"

enum class ExitCode : u8 {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    NotFound = 3,
    FileFailed = 4,
    NotADatabase = 5,
    WrongPassword = 6,
    FormatLimit = 7,
    CheckFound = 8,
    Interrupted = 130,
};

struct ExitCodeInfo {
    ExitCode code;
    const char* meaning;
};

// All of them in ascending order.
std::span<const ExitCodeInfo> ExitCodes();
