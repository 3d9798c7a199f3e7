// Where the test program keeps the address of a system's function that it calls: another function can be put
// there for a while.
#pragma once

#include <gtest/gtest.h>

#include "toolkit/win32.h"

class ImportSlot {
public:
    ImportSlot(const wchar_t* library, const char* function, ULONG_PTR replacement)
        : m_Slot(Find(reinterpret_cast<ULONG_PTR>(GetProcAddress(GetModuleHandleW(library), function)))) {
        EXPECT_NE(m_Slot, nullptr) << function;
        m_Real = Replace(replacement);
    }
    ~ImportSlot() { Replace(m_Real); }
    ImportSlot(const ImportSlot&) = delete;
    ImportSlot& operator=(const ImportSlot&) = delete;

    // The system's own.
    [[nodiscard]] ULONG_PTR Real() const noexcept { return m_Real; }

private:
    static ULONG_PTR* Find(ULONG_PTR wanted) {
        auto* base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
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

    ULONG_PTR* m_Slot;
    ULONG_PTR m_Real = 0;
};
