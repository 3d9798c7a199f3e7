// The system's headers that the toolkit and what is built on it need, in the one order that they compile in.
#pragma once

#include "platform/windows_api.h"

// After windows.h, whose types they need.
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <uxtheme.h>
#include <vssym32.h>

using platform::Units;
using platform::Wide;
