// What the program has the shell open, without anything being opened: the import of ShellExecuteW leads here
// while this lives. One at a time.
#pragma once

#include <string>
#include <vector>

#include "tests/gui/import_slot.h"

class ShellCalls {
public:
    struct Call {
        std::wstring verb;  // "(null)" for null
        std::wstring file;
        std::wstring parameters;
        std::wstring folder;
        int show;
    };

    ShellCalls() { s_Calls = this; }
    ~ShellCalls() { s_Calls = nullptr; }
    ShellCalls(const ShellCalls&) = delete;
    ShellCalls& operator=(const ShellCalls&) = delete;

    [[nodiscard]] const std::vector<Call>& Get() const { return m_Calls; }

    // From now on nothing can be opened, for this cause; 0 for one that the shell does not tell.
    void FailWith(DWORD error) {
        m_Fails = true;
        m_Error = error;
    }

private:
    static HINSTANCE WINAPI Note(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                                 int show) {
        constexpr ULONG_PTR kSuccess = 33;
        constexpr ULONG_PTR kFailure = 32;
        const bool fails = s_Calls->m_Fails;
        s_Calls->m_Calls.push_back({verb == nullptr ? L"(null)" : verb, file == nullptr ? L"(null)" : file,
                                    parameters == nullptr ? L"(null)" : parameters,
                                    folder == nullptr ? L"(null)" : folder, show});
        if (fails && s_Calls->m_Error != 0) SetLastError(s_Calls->m_Error);
        return reinterpret_cast<HINSTANCE>(fails ? kFailure : kSuccess);  // NOLINT(performance-no-int-to-ptr)
    }

    static inline ShellCalls* s_Calls = nullptr;
    std::vector<Call> m_Calls;
    bool m_Fails = false;
    DWORD m_Error = 0;
    ImportSlot m_Slot{L"shell32.dll", "ShellExecuteW", reinterpret_cast<ULONG_PTR>(&Note)};
};
