// Texts as lines for people.
#pragma once

#include "cli/byte_sink.h"

// A text and a line end: each line break in the text is a blank. A terminal is kept from taking anything for
// a command.
void WriteLine(ByteSink& out, std::u16string_view text, bool forTerminal);
