// vmr from its arguments to its exit code.
#pragma once

#include <string>
#include <vector>

#include "cli/exit_code.h"

// Does what the arguments (behind the program's name) ask for. Failures are told on standard error.
ExitCode RunProgram(const std::vector<std::string>& arguments) noexcept;
