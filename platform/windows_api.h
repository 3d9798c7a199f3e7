// The one way to the system's headers: macros set once, wide characters for our units.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE  // NOLINT(clang-diagnostic-reserved-macro-identifier): the system's own name
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef WINVER
#define WINVER 0x0A00
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00  // NOLINT(clang-diagnostic-reserved-macro-identifier): the system's own switch
#endif

#include <windows.h>

namespace platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* Wide(const char16_t* text) noexcept {
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* Wide(char16_t* text) noexcept {
    return reinterpret_cast<wchar_t*>(text);
}
inline const char16_t* Units(const wchar_t* text) noexcept {
    return reinterpret_cast<const char16_t*>(text);
}

}  // namespace platform
