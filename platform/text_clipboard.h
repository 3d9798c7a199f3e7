// Text on the clipboard of the user's desktop, for programs without a window. On Windows it is the system's
// clipboard; what is put there is kept out of clipboard histories. Elsewhere it is reached through wl-copy
// and wl-paste where WAYLAND_DISPLAY is set, through xclip where DISPLAY is, if they are installed; texts go
// through pipes, never through arguments.
#pragma once

#include <optional>
#include <string_view>

#include "platform/types.h"

namespace platform {

// True if there is a way to the clipboard.
bool HasTextClipboard() noexcept;

// Replaces what is on the clipboard. False if the clipboard cannot be had.
bool PutClipboardText(std::u16string_view text) noexcept;

// Whether exactly this text is on the clipboard (on Windows, where a text ends at its first zero unit, up to
// that); nothing if it cannot be told.
std::optional<bool> ClipboardHoldsText(std::u16string_view text) noexcept;

// Empties the clipboard.
bool ClearClipboardText() noexcept;

}  // namespace platform
