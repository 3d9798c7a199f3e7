#include "platform/text_clipboard.h"

#include "platform/clipboard.h"
#include "platform/windows_api.h"

namespace platform {
namespace {

// The clipboard, open for a window of ours that nobody sees: what is put there by nobody is not kept. Another
// program may hold it for a moment.
class OpenedClipboard {
public:
    OpenedClipboard() noexcept
        : m_Window(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                   nullptr)) {
        constexpr int kAttempts = 40;
        constexpr DWORD kPause = 50;
        for (int attempt = 0; attempt < kAttempts && !m_IsOpen; ++attempt) {
            if (attempt > 0) Sleep(kPause);
            m_IsOpen = platform::OpenClipboard(m_Window);
        }
    }
    ~OpenedClipboard() {
        if (m_IsOpen) platform::CloseClipboard();
        if (m_Window != nullptr) DestroyWindow(m_Window);
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const noexcept { return m_IsOpen; }

private:
    HWND m_Window;
    bool m_IsOpen = false;
};

std::span<const u8> BytesOf(std::u16string_view text) noexcept {
    return {reinterpret_cast<const u8*>(text.data()), text.size() * sizeof(char16_t)};
}

// Formats by which the system is told to keep a text out of its clipboard history and off other machines.
void PutHistoryMarks() noexcept {
    constexpr u8 kNo[sizeof(DWORD)] = {};
    for (const char16_t* name : {u"ExcludeClipboardContentFromMonitorProcessing",
                                 u"CanIncludeInClipboardHistory", u"CanUploadToCloudClipboard"}) {
        ClipboardBlock(sizeof kNo, kNo).Put(RegisterFormat(name));
    }
}

}  // namespace

bool HasTextClipboard() noexcept {
    return true;
}

bool PutClipboardText(std::u16string_view text) noexcept {
    const std::span<const u8> bytes = BytesOf(text);
    ClipboardBlock block(bytes.size() + sizeof(char16_t), bytes);
    const OpenedClipboard clipboard;
    if (!block || !clipboard || !platform::EmptyClipboard() || !block.Put(kFormatUnicodeText)) return false;
    PutHistoryMarks();
    return true;
}

std::optional<bool> ClipboardHoldsText(std::u16string_view text) noexcept {
    const OpenedClipboard clipboard;
    if (!clipboard) return std::nullopt;
    const ClipboardView view(kFormatUnicodeText);
    const std::span<const u8> bytes = view.Bytes();
    const std::u16string_view held(reinterpret_cast<const char16_t*>(bytes.data()),
                                   bytes.size() / sizeof(char16_t));
    return held.substr(0, held.find(u'\0')) == text.substr(0, text.find(u'\0'));
}

bool ClearClipboardText() noexcept {
    const OpenedClipboard clipboard;
    return clipboard && platform::EmptyClipboard();
}

}  // namespace platform
