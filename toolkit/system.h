// Functions of the system that are found by name when they are first asked for, so that one that is missing
// is missed by nobody; GDI+ for the whole run; cursors.
#pragma once

#include "toolkit/win32.h"

// Looks for the library among those that are loaded, then loads it from the system's own folder. Null if
// library or name is missing.
FARPROC LoadSystemProc(const char16_t* library, const char* name);

// A function found by name, once. `Function` is its type.
template <typename Function>
class SystemProc {
public:
    constexpr SystemProc(const char16_t* library, const char* name) noexcept
        : m_Library(library), m_Name(name) {}

    // Null if the system lacks it.
    Function* Get() noexcept {
        if (!m_Asked) {
            m_Function =
                reinterpret_cast<Function*>(reinterpret_cast<void*>(LoadSystemProc(m_Library, m_Name)));
            m_Asked = true;
        }
        return m_Function;
    }

    // For tests: as if the system had another function, or none.
    void Replace(Function* function) noexcept {
        m_Function = function;
        m_Asked = true;
    }
    void Forget() noexcept { m_Asked = false; }

private:
    const char16_t* m_Library;
    const char* m_Name;
    Function* m_Function = nullptr;
    bool m_Asked = false;
};

// GDI+ from its construction to its destruction; a second one does nothing.
class tvGdiPlus {
public:
    tvGdiPlus();
    ~tvGdiPlus();
    tvGdiPlus(const tvGdiPlus&) = delete;
    tvGdiPlus& operator=(const tvGdiPlus&) = delete;

private:
    bool m_first;  // it was this object that started it
};

// True if the program's controls are drawn by a visual style: one is on, and the common controls are
// version 6.
bool IsVisualStyleActive();

// A cursor of the system by its number; null for 0 and numbers that are none.
HCURSOR LoadSharedCursor(unsigned id);
void SetHandCursor();
