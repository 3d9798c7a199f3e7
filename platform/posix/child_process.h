// Small programs that are run for what they do with their input or give as their output.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/types.h"

namespace platform {

// True if a program of this name is found in the folders of PATH.
bool HasProgram(const char* name) noexcept;

// Runs a program, found as above, with its arguments and these bytes as its input; what it prints is lost.
// True if it ends within some seconds and tells of no failure. A child of its own that lives on is not waited
// for.
bool FeedProgram(std::span<const char* const> command, std::span<const u8> input) noexcept;

// Runs a program and reads its output into `out`, which has room for `capacity` bytes. Gives the number of
// bytes, or `capacity` if there were more; nothing if it cannot be run, takes too long or tells of a failure.
std::optional<std::size_t> ReadProgram(std::span<const char* const> command, u8* out,
                                       std::size_t capacity) noexcept;

}  // namespace platform
