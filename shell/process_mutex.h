// Tells the last process of the program from others: each holds a named mutex as long as it lives.
#pragma once

#include "foundation/tvhandle.h"

inline constexpr const wchar_t* kMutexName = L"Vaultmere_Mutex";

class ProcessMutex {
public:
    // Makes the mutex, or opens the one that another process has made.
    explicit ProcessMutex(const wchar_t* name = kMutexName) noexcept;

    // True if no other process holds the mutex. It is let go of and made anew. False if it cannot be made.
    // Two processes that ask at the same moment may both get false.
    [[nodiscard]] bool IsLastProcess() noexcept;

private:
    const wchar_t* m_Name;
    tvhandle m_Handle;
};
