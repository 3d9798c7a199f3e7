// What stands for an entry where it is shown to the user.
#pragma once

#include "database/element.h"

// The text, or words for an empty one. A password that is hidden looks the same whatever it is.
tvstring ShownText(const VMRD_Entry& entry);
