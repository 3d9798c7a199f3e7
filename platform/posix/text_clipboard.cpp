#include "platform/text_clipboard.h"

#include <cstdlib>
#include <cstring>

#include "platform/memory.h"
#include "platform/posix/child_process.h"
#include "platform/text.h"

namespace platform {
namespace {

// The programs by which the clipboard is reached.
struct Tool {
    const char* display;  // the variable without which there is no such desktop
    std::span<const char* const> put;
    std::span<const char* const> get;
    std::span<const char* const> clear;
};

constexpr const char* kWaylandPut[] = {"wl-copy"};
constexpr const char* kWaylandGet[] = {"wl-paste", "--no-newline"};
constexpr const char* kWaylandClear[] = {"wl-copy", "--clear"};
constexpr const char* kX11Put[] = {"xclip", "-selection", "clipboard", "-in"};
constexpr const char* kX11Get[] = {"xclip", "-selection", "clipboard", "-out"};

constexpr Tool kTools[] = {
    {"WAYLAND_DISPLAY", kWaylandPut, kWaylandGet, kWaylandClear},
    {"DISPLAY", kX11Put, kX11Get, kX11Put},  // cleared by an empty text
};

const Tool* FindTool() noexcept {
    for (const Tool& tool : kTools) {
        const char* display = std::getenv(tool.display);
        const bool there = display != nullptr && *display != 0;
        if (there && HasProgram(tool.put[0]) && HasProgram(tool.get[0])) return &tool;
    }
    return nullptr;
}

// Bytes that are wiped.
class Block {
public:
    explicit Block(std::size_t size) noexcept
        : m_Data(static_cast<u8*>(AllocateZeroed(size))), m_Size(m_Data == nullptr ? 0 : size) {}
    ~Block() { WipeAndFree(m_Data, m_Size); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    [[nodiscard]] u8* Data() noexcept { return m_Data; }
    [[nodiscard]] std::size_t Size() const noexcept { return m_Size; }

private:
    u8* m_Data;
    std::size_t m_Size;
};

// A text as UTF-8.
class Utf8Block : public Block {
public:
    explicit Utf8Block(std::u16string_view text) noexcept
        : Block(UnitsToBytes(kCodePageUtf8, text.data(), text.size(), nullptr, 0)) {
        UnitsToBytes(kCodePageUtf8, text.data(), text.size(), reinterpret_cast<char*>(Data()), Size());
    }
    [[nodiscard]] std::span<const u8> Bytes() noexcept { return {Data(), Size()}; }
};

}  // namespace

bool HasTextClipboard() noexcept {
    return FindTool() != nullptr;
}

bool PutClipboardText(std::u16string_view text) noexcept {
    const Tool* tool = FindTool();
    Utf8Block bytes(text);
    return tool != nullptr && FeedProgram(tool->put, bytes.Bytes());
}

std::optional<bool> ClipboardHoldsText(std::u16string_view text) noexcept {
    const Tool* tool = FindTool();
    if (tool == nullptr) return std::nullopt;
    Utf8Block wanted(text);
    Block held(wanted.Size() + 1);
    if (held.Data() == nullptr) return std::nullopt;
    // A clipboard without any text is a failure to the tools.
    const std::size_t size = ReadProgram(tool->get, held.Data(), held.Size()).value_or(0);
    return size == wanted.Size() && std::memcmp(held.Data(), wanted.Data(), size) == 0;
}

bool ClearClipboardText() noexcept {
    const Tool* tool = FindTool();
    return tool != nullptr && FeedProgram(tool->clear, {});
}

}  // namespace platform
