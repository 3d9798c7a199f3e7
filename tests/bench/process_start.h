// How long a program takes from its start to its painted window, looked at from outside.
#pragma once

using Milliseconds = double;

// Starts a program that lies beside this one, waits for its window and the end of its paint, and closes it.
// Negative if it shows no window.
Milliseconds StartOf(const char16_t* name, const char16_t* arguments);
