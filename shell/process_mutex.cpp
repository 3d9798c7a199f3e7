#include "shell/process_mutex.h"

#include "toolkit/win32.h"

ProcessMutex::ProcessMutex(const wchar_t* name) noexcept
    : m_Name(name), m_Handle(CreateMutexW(nullptr, FALSE, name)) {}

bool ProcessMutex::IsLastProcess() noexcept {
    m_Handle.Close();
    m_Handle.Assign(CreateMutexW(nullptr, FALSE, m_Name));
    const DWORD error = GetLastError();
    return m_Handle && error != ERROR_ALREADY_EXISTS;
}
