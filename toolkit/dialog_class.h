// Window classes, each registered once in the process.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

// The atom of a class by its name, registered if it is new; 0 if the system refuses it.
ATOM RegisterClassOnce(const WNDCLASSW& windowClass);

// The name of the class that a dialog template asks for; empty if it is the system's own, or one by its
// number. Knows both forms of templates.
tvstring ClassOfTemplate(const void* dialogTemplate);

// Registers the class of a template as another name of the system's dialogs. True if there is nothing to
// register.
bool RegisterDialogClass(const tvstring& name, HINSTANCE instance);
