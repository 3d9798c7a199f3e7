// Reads blocks of the clipboard. The first byte of an input says what the rest is:
//
//   0   a block as it is; its cipher lets hardly any change through
//   1   a plain record stream, encrypted here under a key hash that is put in front
//   2   the same in front of whose end the plain size ends, by as many bytes as a further byte says
//
// A carrier is true exactly if it has items. What it has comes back the same from a copy of it: as items by
// the clipboard, and as the entries of each item in an item of their own.
#include <algorithm>
#include <span>

#include "database/clipboard.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/unit/database/made_container.h"
#include "tests/unit/database/tree.h"

namespace {

using Input = std::span<const u8>;

enum Kind : u8 { RAW, STREAM, OVERRUNNING_STREAM };

constexpr std::size_t kLongestUnread = 36;

std::vector<u8> BlockOf(Input input) {
    const u8 kind = input.front();
    input = input.subspan(1);
    u32 overrun = 0;
    if (kind == OVERRUNNING_STREAM && !input.empty()) {
        overrun = input.front();
        input = input.subspan(1);
    }
    const std::vector<u8> bytes(input.begin(), input.end());
    if (kind == RAW) return bytes;
    std::vector<u8> block(kKeyHashSize);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<u8>(i + 1);
    const auto size = static_cast<u32>(bytes.size());
    const std::vector<u8> container = MadeContainer(bytes, size - std::min(size, overrun), block.data());
    block.insert(block.end(), container.begin(), container.end());
    return block;
}

template <typename Element>
ElementArray ArrayOf(const tvlist<Element>& list) {
    ElementArray array;
    for (Element* element = list.m_Head; element != nullptr; element = element->m_Next) {
        Require(element->m_Next != nullptr || element == list.m_Tail);
        array.push_back(element);
    }
    Require(array.size() == static_cast<std::size_t>(list.m_Count));
    return array;
}

// By the clipboard, and by a carrier alone.
void CheckCopyOfItems(const VMRD_DB& carrier) {
    const ElementArray items = ArrayOf<ItemElement>(carrier);
    const std::vector<ItemValues> wanted = TreeOf(carrier).items;
    VMRD_DB filled;
    Require(FillItemsCarrier(filled, items));
    Require(TreeOf(filled) == (Tree{u"", wanted}));
    Require(CopyItems(nullptr, items));
    Require(platform::IsFormatAvailable(platform::kFormatUnicodeText) ==
            (items.size() == 1 && !wanted.front().name.empty()));
    VMRD_DB pasted;
    Require(VMRD_DB::ReadClipboard(pasted, ItemsClipboardFormat()));
    Require(TreeOf(pasted) == (Tree{u"", wanted}));
}

void CheckCopyOfEntries(const ItemElement& item, const ItemValues& values) {
    const ElementArray entries = ArrayOf<EntryElement>(item);
    for (const VMRD_Element* entry : entries)
        Require(ElementType(entry) >= VMRD_T_PROGRAM && ElementType(entry) <= VMRD_T_ADDITION);
    Require(CopyEntries(nullptr, entries) == !entries.empty());
    if (entries.empty()) return;
    VMRD_DB pasted;
    Require(VMRD_DB::ReadClipboard(pasted, EntriesClipboardFormat()));
    Require(TreeOf(pasted) == (Tree{u"", {{u"VaultmereItem", 0, values.entries}}}));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    if (size == 0) return 0;
    const std::vector<u8> block = BlockOf({data, size});
    VMRD_DB carrier;
    AddItemCopy(carrier, VMRD_Item(), nullptr);
    const bool isFilled = ReadClipboardBlock(carrier, block);
    if (!isFilled) {
        Require(carrier.m_Count == (block.size() > kLongestUnread ? 0 : 1));
        return 0;
    }
    Require(carrier.m_Count > 0);
    CheckCopyOfItems(carrier);
    const Tree tree = TreeOf(carrier);
    std::size_t number = 0;
    for (const ItemElement* item = carrier.m_Head; item != nullptr && number < 3; item = item->m_Next)
        CheckCopyOfEntries(*item, tree.items[number++]);
    return 0;
}
