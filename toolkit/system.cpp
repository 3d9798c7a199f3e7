#include "toolkit/system.h"

#include <map>

#include "toolkit/late_functions.h"

FARPROC LoadSystemProc(const char16_t* library, const char* name) {
    HMODULE module = GetModuleHandleW(Wide(library));
    if (module == nullptr) module = LoadLibraryExW(Wide(library), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module == nullptr ? nullptr : GetProcAddress(module, name);
}

LateFunctions& TheLateFunctions() noexcept {
    static constinit LateFunctions functions;
    return functions;
}

namespace {

// Of the common controls that the program is bound to; 0 if it is not to be had.
DWORD CommonControlsVersion() {
    SystemProc<HRESULT CALLBACK(DLLVERSIONINFO*)> getVersion(u"comctl32.dll", "DllGetVersion");
    if (getVersion.Get() == nullptr) return 0;
    DLLVERSIONINFO info{};
    info.cbSize = sizeof info;
    return SUCCEEDED(getVersion.Get()(&info)) ? info.dwMajorVersion : 0;
}

}  // namespace

bool IsVisualStyleActive() {
    static const bool canBeStyled = CommonControlsVersion() >= 6;
    return canBeStyled && IsAppThemed() != FALSE;
}

HCURSOR LoadSharedCursor(unsigned id) {
    if (id == 0 || id >= 0x10000) return nullptr;
    static std::map<unsigned, HCURSOR> cursors;
    const auto [place, isNew] = cursors.try_emplace(id);
    if (isNew) place->second = LoadCursorW(nullptr, MAKEINTRESOURCEW(id));
    return place->second;
}

void SetHandCursor() {
    constexpr unsigned kHand = 32649;  // IDC_HAND
    SetCursor(LoadSharedCursor(kHand));
}
