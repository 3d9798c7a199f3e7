#include "shell/statics.h"

#include "database/database.h"
#include "platform/terminal.h"
#include "shell/app.h"
#include "shell/app_data.h"
#include "shell/process_mutex.h"

namespace {

// Nothing may be loaded, or left behind by a crash, before this.
struct Hardening {
    Hardening() noexcept { platform::HardenProcess(); }
};
[[gnu::init_priority(101)]] const Hardening g_Hardening;

// The toolkit's objects are there now (toolkit/statics.cpp). In the order in which they are needed; the last
// made goes first.
VMRD_DB g_Database;
CVMRApp g_App;

}  // namespace

const UINT WM_VMR = RegisterWindowMessageW(L"Vaultmere_WM_VMR");

namespace {

CVMRAppData g_AppData;
ProcessMutex g_Mutex;

}  // namespace

VMRD_DB& TheDatabase() {
    return g_Database;
}

CVMRApp& TheApp() {
    return g_App;
}

CVMRAppData& TheAppData() {
    return g_AppData;
}

ProcessMutex& TheMutex() {
    return g_Mutex;
}
