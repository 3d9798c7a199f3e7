// Text files that a command is about.
#pragma once

#include <string>

// Throws a Failure if the file cannot be read: to the core, such a one counts as empty.
void RequireReadable(const std::string& path);
