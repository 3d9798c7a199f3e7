// What the text behind the program's name on the command line asks for.
#pragma once

#include "foundation/tvstring.h"

enum class StartMode {
    RegisterFileType,    // "/shelladd"
    DeregisterFileType,  // "/shellremove"
    ExtractLanguage,     // "/extractlang"
    MainWindow,          // none of them: the text is the path of a database, or empty
};

// A switch may stand anywhere in the text, also within a path, in letters of either case. Of several the one
// that stands higher above counts.
StartMode StartModeOf(const tvstring& arguments);

// The path in the text: without blanks, line ends, tabs and quotation marks of both kinds at its ends.
tvstring PathFromArguments(tvstring arguments);
