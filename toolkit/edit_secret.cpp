// How an edit box gets rid of a secret.
//
// The control keeps its text in a block that grows and never shrinks, and what was deleted last in another
// one, for undoing. Both are overwritten through the control, since it does not show them. Whatever it
// replaces it may copy meanwhile and leave the copy behind: so the text is replaced unit by unit. What it has
// copied to paint a text, or to break a long word into lines, lies in blocks that it has freed by then.
#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "platform/memory.h"
#include "toolkit/control_state.h"
#include "toolkit/edit.h"

namespace {

constexpr char16_t kFiller = u'*';

// As long as a text that is to be covered. For a control of many lines it has such, since one long word takes
// it very long to break.
tvstring Filler(std::size_t size, bool isMultiLine) {
    constexpr std::size_t kLine = 64;
    tvstring filler(size, kFiller);
    for (std::size_t i = kLine; isMultiLine && i < size; i += kLine) {
        filler[i - 2] = u'\r';
        filler[i - 1] = u'\n';
    }
    return filler;
}

// A control of many lines hands out its text's block.
bool WipeBlock(HWND window) {
    if (!HasStyle(window, ES_MULTILINE)) return false;
    auto* block = reinterpret_cast<HLOCAL>(SendMessageW(window, EM_GETHANDLE, 0, 0));
    if (block == nullptr) return false;
    void* text = LocalLock(block);
    if (text == nullptr) return false;
    platform::WipeMemory(text, LocalSize(block));
    LocalUnlock(block);
    return true;
}

struct FreeToHeap {
    void operator()(void* block) const noexcept { HeapFree(GetProcessHeap(), 0, block); }
};
using HeapBlock = std::unique_ptr<void, FreeToHeap>;

constexpr std::size_t kMostBlocks = 65'536;  // what the heap has beyond the first of these stays as it is

// Writes the sizes of blocks that the heap has free, as far as there is room for them, and gives their
// number.
std::size_t FindFreeBlocks(std::vector<SIZE_T>& sizes) {
    const HANDLE heap = GetProcessHeap();
    if (HeapLock(heap) == FALSE) return 0;
    std::size_t count = 0;
    PROCESS_HEAP_ENTRY entry{};
    while (count < sizes.size() && HeapWalk(heap, &entry) != FALSE) {
        if (entry.wFlags == 0 && entry.cbData > 0) sizes[count++] = entry.cbData;
    }
    HeapUnlock(heap);
    return count;
}

// Takes all that the heap has free, the largest first, overwrites it and gives it back. A copy is as large as
// the text was; where it was used again, a smaller block is left of it. What this needs itself it takes
// before and writes all over: that may have been a copy too.
void WipeFreeBlocks() {
    std::vector<HeapBlock> taken(kMostBlocks);
    std::vector<SIZE_T> sizes(kMostBlocks);
    const std::size_t count = FindFreeBlocks(sizes);
    std::sort(sizes.begin(), sizes.begin() + static_cast<std::ptrdiff_t>(count), std::greater<>());
    for (std::size_t i = 0; i < count; ++i) {
        taken[i].reset(HeapAlloc(GetProcessHeap(), 0, sizes[i]));
        if (taken[i] != nullptr) platform::WipeMemory(taken[i].get(), sizes[i]);
    }
}

}  // namespace

void tvEdit::NoteLength() {
    if (IsAttached()) m_longest = std::max(m_longest, GetWindowTextLengthW(m_hWnd));
}

void tvEdit::Wipe() {
    if (!IsAttached()) return;
    NoteLength();
    m_wiping = true;
    const auto limit = static_cast<WPARAM>(Send(EM_GETLIMITTEXT));
    Send(EM_SETLIMITTEXT, 0);
    // Not for a hidden window, which would be shown.
    const bool isVisible = HasStyle(m_hWnd, WS_VISIBLE);
    if (isVisible) Send(WM_SETREDRAW, FALSE);
    if (!WipeBlock(m_hWnd)) OverwriteText(GetWindowTextLengthW(m_hWnd));
    OverwriteUndo(m_longest);
    if (m_longest > 0) WipeFreeBlocks();
    if (isVisible) Send(WM_SETREDRAW, TRUE);
    Send(EM_SETLIMITTEXT, limit);
    m_wiping = false;
    m_longest = 0;
    InvalidateRect(m_hWnd, nullptr, TRUE);
}

void tvEdit::OverwriteText(int length) const {
    constexpr char16_t kUnit[] = {kFiller, u'\0'};
    for (int i = 0; i < length; ++i) {
        Send(EM_SETSEL, static_cast<WPARAM>(i), i + 1);
        Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(kUnit));
    }
}

// Longer and longer texts are deleted, so that the block is overwritten before it has to grow. The last one
// is as long as any that was there, and covers what else the text's own block holds.
void tvEdit::OverwriteUndo(int length) const {
    constexpr int kStep = 16;  // by which blocks grow, with a terminating zero
    constexpr int kFineTo =
        1024;  // longer texts take larger steps, or it would take long; an end of one may stay
    constexpr int kShare = 8;
    const bool isMultiLine = HasStyle(m_hWnd, ES_MULTILINE);
    const auto pass = [this, isMultiLine](int size) {
        const tvstring filler = Filler(static_cast<std::size_t>(size), isMultiLine);
        Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(filler.c_str()));
        Send(EM_EMPTYUNDOBUFFER);
        Send(EM_SETSEL, 0, -1);
        Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    };
    for (int size = kStep - 1; size < length; size += std::max(kStep, size < kFineTo ? 0 : size / kShare))
        pass(size);
    pass(length);
    Send(EM_EMPTYUNDOBUFFER);
}
