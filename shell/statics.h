// The objects of the program that live as long as its process. They are made before the entry function runs,
// after the toolkit's, in the order of shell/statics.cpp, and go in the reverse one.
#pragma once

#include "platform/types.h"
#include "toolkit/win32.h"

class VMRD_DB;
class CVMRApp;
struct CVMRAppData;
class ProcessMutex;

// The open database; empty and closed at first.
VMRD_DB& TheDatabase();
CVMRApp& TheApp();
CVMRAppData& TheAppData();
ProcessMutex& TheMutex();

// What a process tells the others when it has changed a shared setting. wParam: SharedSetting, lParam: its
// main window.
extern const UINT WM_VMR;
