// Options whose value is one of a few words.
#pragma once

#include <span>

#include "cli/invocation.h"

struct Choice {
    const char* word;
    int value;
};

// The value of the word that was given for an option, or of the first choice if the option was not given.
// Throws a Failure that lists the words for any other.
int ChosenValue(const Invocation& invocation, Option option, std::span<const Choice> choices);
