#include "toolkit/com.h"

#include "toolkit/win32.h"

namespace {

thread_local int t_Count = 0;

}  // namespace

void tvcominit::Count(int change) {
    if (change < 0) {
        if (t_Count > 0 && --t_Count == 0) CoUninitialize();
    } else if (t_Count++ == 0) {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    }
}
