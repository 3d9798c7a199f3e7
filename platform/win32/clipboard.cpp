#include "platform/clipboard.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/windows_api.h"

namespace platform {
namespace {

// Copies to the block's memory, under its lock.
bool Fill(HGLOBAL block, std::span<const u8> first, std::span<const u8> second) noexcept {
    auto* memory = FaultFires(FaultPoint::LockBlock) ? nullptr : static_cast<u8*>(GlobalLock(block));
    if (memory == nullptr) return false;
    std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), memory));
    GlobalUnlock(block);
    return true;
}

}  // namespace

u32 RegisterFormat(const char16_t* name) noexcept {
    return FaultFires(FaultPoint::RegisterFormat) ? 0 : RegisterClipboardFormatW(Wide(name));
}

bool IsFormatAvailable(u32 format) noexcept {
    return IsClipboardFormatAvailable(format) != FALSE;
}

bool OpenClipboard(NativeWindow window) noexcept {
    return !FaultFires(FaultPoint::OpenClipboard) && ::OpenClipboard(static_cast<HWND>(window)) != FALSE;
}

bool EmptyClipboard() noexcept {
    return !FaultFires(FaultPoint::EmptyClipboard) && ::EmptyClipboard() != FALSE;
}

void CloseClipboard() noexcept {
    ::CloseClipboard();
}

ClipboardBlock::ClipboardBlock(std::size_t size, std::span<const u8> first,
                               std::span<const u8> second) noexcept
    : m_Block(FaultFires(FaultPoint::AllocateBlock) ? nullptr
                                                    : GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size)) {
    if (m_Block == nullptr || Fill(m_Block, first, second)) return;
    GlobalFree(m_Block);
    m_Block = nullptr;
}

ClipboardBlock::~ClipboardBlock() {
    if (m_Block != nullptr) GlobalFree(m_Block);
}

bool ClipboardBlock::Put(u32 format) noexcept {
    if (m_Block == nullptr || FaultFires(FaultPoint::PutBlock)) return false;
    if (SetClipboardData(format, m_Block) == nullptr) return false;
    m_Block = nullptr;
    return true;
}

ClipboardView::ClipboardView(u32 format) noexcept
    : m_Block(FaultFires(FaultPoint::GetBlock) ? nullptr : GetClipboardData(format)) {
    if (m_Block == nullptr) return;
    const auto* memory =
        FaultFires(FaultPoint::LockBlock) ? nullptr : static_cast<const u8*>(GlobalLock(m_Block));
    if (memory != nullptr) m_Bytes = {memory, GlobalSize(m_Block)};
}

ClipboardView::~ClipboardView() {
    if (m_Bytes.data() != nullptr) GlobalUnlock(m_Block);
}

}  // namespace platform
