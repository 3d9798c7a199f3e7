// Texts on their way from the command line into a database.
#pragma once

#include <string>

#include "foundation/tvstring.h"

// An argument as a text. Throws a Failure, naming it as `what`, if it is no valid UTF-8.
tvstring TextArgument(const std::string& argument, const char* what);

// The same for one that is stored: refused, too, if it has more units than the file format can hold.
tvstring StoredArgument(const std::string& argument, const char* what);

// Throws a Failure if the text is too long for the file format.
void RequireStorable(const tvstring& text, const char* what);

// An option's value as a number. Throws a Failure, naming it as `what`, if it is none or out of range.
u32 NumberArgument(const std::string& argument, const char* what, u32 least, u32 most);

// A path for the core's operations.
tvstring PathArgument(const std::string& argument);

// A text for a message: valid UTF-8, without control characters.
std::string ForMessage(const tvstring& text);
