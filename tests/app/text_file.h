// Files of text for tests.
#pragma once

#include <gtest/gtest.h>

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

// In UTF-16 with its mark.
inline void WriteTextFile(const tvstring& path, const tvstring& text) {
    tvstring units = u"\xFEFF";
    units.append(text);
    const HANDLE file = CreateFileW(Wide(path.c_str()), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, units.data(), static_cast<DWORD>(units.size() * sizeof(char16_t)), &written,
                          nullptr));
    CloseHandle(file);
}
