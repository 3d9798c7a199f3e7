#include "shell/last_window.h"

#include "platform/types.h"

namespace {

// A section of the program file that all its processes share. Handles of windows have 32 significant bits.
// NOLINTNEXTLINE(clang-diagnostic-ignored-attributes): the lint's compiler does not know "shared"
__attribute__((section("inst_data"), shared)) volatile i32 hLastMainWnd = 0;

}  // namespace

void NoteLastMainWindow(HWND window) noexcept {
    hLastMainWnd = static_cast<i32>(HandleToLong(window));
}

HWND VisibleLastMainWindow() noexcept {
    HWND window = static_cast<HWND>(LongToHandle(hLastMainWnd));
    return IsWindow(window) != FALSE && IsWindowVisible(window) != FALSE ? window : nullptr;
}
