// What the options of the password generator ask for.
#pragma once

#include "cli/invocation.h"
#include "windows/generator.h"

// The request. Throws a Failure for a length that is no number; lengths out of range are for the generator to
// mend. There is always a class.
PassGenRequest ReadGenerateOptions(const Invocation& invocation);

// Throws a Failure if one of these options is given without --generate, or --generate beside one of the
// others, which say where else a password comes from.
void RequireGenerateAlone(const Invocation& invocation, std::span<const Option> others);
