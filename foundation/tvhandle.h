// tvhandle, the owner of a file handle: closes it when it is replaced or destroyed. Null and the system's
// invalid handle both count as empty and are stored as given.
#pragma once

#include <utility>

#include "platform/file.h"

class tvhandle {
public:
    tvhandle() noexcept = default;
    explicit tvhandle(platform::NativeFile file) noexcept : m_File(file) {}
    tvhandle(tvhandle&& other) noexcept : m_File(other.Release()) {}
    tvhandle& operator=(tvhandle&& other) noexcept {
        if (this != &other) Assign(other.Release());
        return *this;
    }
    tvhandle(const tvhandle&) = delete;
    tvhandle& operator=(const tvhandle&) = delete;
    ~tvhandle() { Close(); }

    // Closes what is held and takes the new value; assigning the value it already holds does not close.
    void Assign(platform::NativeFile file) noexcept {
        if (file != m_File) Close();
        m_File = file;
    }

    // Closes what is held; empty then.
    void Close() noexcept {
        const platform::NativeFile file = Release();
        if (platform::IsOpen(file)) platform::CloseNativeFile(file);
    }

    // Gives up the handle without closing it.
    [[nodiscard]] platform::NativeFile Release() noexcept { return std::exchange(m_File, nullptr); }

    [[nodiscard]] platform::NativeFile Get() const noexcept { return m_File; }
    explicit operator bool() const noexcept { return platform::IsOpen(m_File); }

private:
    platform::NativeFile m_File = nullptr;
};
