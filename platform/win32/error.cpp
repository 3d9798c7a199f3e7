#include "platform/error.h"

#include "platform/windows_api.h"

namespace platform {

u32 LastError() noexcept {
    return ::GetLastError();
}

void SetLastError(u32 code) noexcept {
    ::SetLastError(code);
}

std::string ErrorText(u32 code) {
    char text[512];
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text, sizeof text, nullptr);
    std::string result(text, length);
    while (!result.empty() && static_cast<unsigned char>(result.back()) <= ' ')
        result.pop_back();
    return result.empty() ? "error " + std::to_string(code) : result;
}

}  // namespace platform
