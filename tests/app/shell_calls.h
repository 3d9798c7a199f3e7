// What the program has the shell open, without anything being opened: the import of ShellExecuteW leads here
// while this lives. One at a time.
#pragma once

#include <string>
#include <vector>

#include "toolkit/win32.h"

class ShellCalls {
public:
    struct Call {
        std::wstring verb;  // "(null)" for null
        std::wstring file;
        std::wstring parameters;
        std::wstring folder;
        int show;
    };

    ShellCalls() : m_Slot(FindSlot()) {
        s_Calls = this;
        m_Real = Replace(reinterpret_cast<ULONG_PTR>(&Note));
    }
    ~ShellCalls() {
        Replace(m_Real);
        s_Calls = nullptr;
    }
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

    // Where the test program keeps the function's address.
    static ULONG_PTR* FindSlot() {
        auto* base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        const auto wanted =
            reinterpret_cast<ULONG_PTR>(GetProcAddress(GetModuleHandleW(L"shell32.dll"), "ShellExecuteW"));
        const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
        for (; library->Name != 0; ++library) {
            auto* slot = reinterpret_cast<ULONG_PTR*>(base + library->FirstThunk);
            for (; *slot != 0; ++slot)
                if (*slot == wanted) return slot;
        }
        return nullptr;
    }

    // Gives the address that was there.
    ULONG_PTR Replace(ULONG_PTR function) const {
        if (m_Slot == nullptr) return 0;
        DWORD protection = 0;
        VirtualProtect(m_Slot, sizeof *m_Slot, PAGE_READWRITE, &protection);
        const ULONG_PTR old = *m_Slot;
        *m_Slot = function;
        VirtualProtect(m_Slot, sizeof *m_Slot, protection, &protection);
        return old;
    }

    static inline ShellCalls* s_Calls = nullptr;
    std::vector<Call> m_Calls;
    bool m_Fails = false;
    DWORD m_Error = 0;
    ULONG_PTR* m_Slot;
    ULONG_PTR m_Real = 0;
};
