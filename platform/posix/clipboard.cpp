#include "platform/clipboard.h"

#include <algorithm>
#include <exception>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "platform/fault.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr u32 kFirstOwnFormat = 0xC000;

using Block = std::vector<u8>;

struct Clipboard {
    std::vector<std::u16string> formats;  // by number, from kFirstOwnFormat on
    std::map<u32, Block> blocks;
    bool isOpen = false;
};

Clipboard& TheClipboard() {
    static Clipboard clipboard;
    return clipboard;
}

Block* MakeBlock(std::size_t size) noexcept {
    try {
        return FaultFires(FaultPoint::AllocateBlock) ? nullptr : new Block(size);
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace

u32 RegisterFormat(const char16_t* name) noexcept {
    if (FaultFires(FaultPoint::RegisterFormat)) return 0;
    auto& formats = TheClipboard().formats;
    const std::u16string_view wanted = name;
    auto found = std::find_if(formats.begin(), formats.end(), [wanted](const std::u16string& known) {
        return CompareOrdinalNoCase(known.data(), known.size(), wanted.data(), wanted.size()) == 0;
    });
    if (found == formats.end()) found = formats.emplace(found, wanted);
    return kFirstOwnFormat + static_cast<u32>(found - formats.begin());
}

bool IsFormatAvailable(u32 format) noexcept {
    return TheClipboard().blocks.contains(format);
}

bool OpenClipboard(NativeWindow) noexcept {
    Clipboard& clipboard = TheClipboard();
    if (FaultFires(FaultPoint::OpenClipboard) || clipboard.isOpen) return false;
    clipboard.isOpen = true;
    return true;
}

bool EmptyClipboard() noexcept {
    Clipboard& clipboard = TheClipboard();
    if (FaultFires(FaultPoint::EmptyClipboard) || !clipboard.isOpen) return false;
    clipboard.blocks.clear();
    return true;
}

void CloseClipboard() noexcept {
    TheClipboard().isOpen = false;
}

ClipboardBlock::ClipboardBlock(std::size_t size, std::span<const u8> first,
                               std::span<const u8> second) noexcept
    : m_Block(MakeBlock(size)) {
    auto* block = static_cast<Block*>(m_Block);
    if (block == nullptr) return;
    if (FaultFires(FaultPoint::LockBlock)) {
        delete block;
        m_Block = nullptr;
        return;
    }
    std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), block->begin()));
}

ClipboardBlock::~ClipboardBlock() {
    delete static_cast<Block*>(m_Block);
}

bool ClipboardBlock::Put(u32 format) noexcept {
    Clipboard& clipboard = TheClipboard();
    if (m_Block == nullptr || FaultFires(FaultPoint::PutBlock) || !clipboard.isOpen) return false;
    clipboard.blocks[format] = std::move(*static_cast<Block*>(m_Block));
    delete static_cast<Block*>(m_Block);
    m_Block = nullptr;
    return true;
}

ClipboardView::ClipboardView(u32 format) noexcept {
    const Clipboard& clipboard = TheClipboard();
    if (FaultFires(FaultPoint::GetBlock) || !clipboard.isOpen) return;
    const auto found = clipboard.blocks.find(format);
    if (found != clipboard.blocks.end() && !FaultFires(FaultPoint::LockBlock)) m_Bytes = found->second;
}

ClipboardView::~ClipboardView() = default;

}  // namespace platform
