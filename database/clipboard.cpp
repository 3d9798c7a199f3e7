#include "database/clipboard.h"

#include <cstring>

#include "database/container.h"
#include "foundation/conversion.h"

namespace {

constexpr const char16_t* kItemsFormat = u"Vaultmere";
constexpr const char16_t* kEntriesFormat = u"VaultmereItem";

// A format that is registered when it is first asked for.
class Format {
public:
    void Register(const char16_t* name) noexcept {
        if (m_Known) return;
        m_Number = platform::RegisterFormat(name);
        m_Known = true;
    }
    [[nodiscard]] u32 Number() const noexcept { return m_Number; }

private:
    bool m_Known = false;
    u32 m_Number = 0;
};

constinit Format g_ItemsFormat;
constinit Format g_EntriesFormat;

constexpr std::size_t kShortestBlock = 37;

std::span<const u8> BytesOf(const void* data, std::size_t size) {
    return {static_cast<const u8*>(data), size};
}

bool PutBytes(u32 format, std::span<const u8> bytes, std::size_t terminator) {
    return platform::ClipboardBlock(bytes.size() + terminator, bytes).Put(format);
}

// Puts a filled carrier on the clipboard, and the array's element as text if it is the only one.
bool PutCarrier(platform::NativeWindow window, u32 format, VMRD_DB& carrier, const ElementArray& array) {
    GenerateSalt(carrier.m_PwdHash);
    const tvdata container = carrier.Serialize();
    if (container.Empty()) return false;
    platform::ClipboardBlock block(kKeyHashSize + container.Size(), carrier.m_PwdHash,
                                   BytesOf(container.Data(), container.Size()));
    if (!block) return false;
    const bool ours = platform::OpenClipboard(window) && platform::EmptyClipboard();
    const bool stored = ours && block.Put(format);
    if (array.size() == 1) PutClipboardText(ElementText(array.front()));
    platform::CloseClipboard();
    return stored;
}

}  // namespace

u32 ItemsClipboardFormat() noexcept {
    return g_ItemsFormat.Number();
}

u32 EntriesClipboardFormat() noexcept {
    return g_EntriesFormat.Number();
}

void RegisterItemsFormat() noexcept {
    g_ItemsFormat.Register(kItemsFormat);
}

void RegisterEntriesFormat() noexcept {
    g_EntriesFormat.Register(kEntriesFormat);
}

bool FillItemsCarrier(VMRD_DB& carrier, const ElementArray& array) {
    for (const VMRD_Element* element : array) {
        if (const VMRD_Item* item = AsItem(element)) AddItemCopy(carrier, *item, nullptr);
    }
    return carrier.m_Count > 0;
}

bool FillEntriesCarrier(VMRD_DB& carrier, const ElementArray& array) {
    VMRD_Item item;
    item.m_Name = kEntriesFormat;
    ItemElement* copy = AddItemCopy(carrier, item, nullptr);
    for (const VMRD_Element* element : array) {
        if (const VMRD_Entry* entry = AsEntry(element)) AddEntryCopy(*copy, *entry, nullptr);
    }
    return copy->m_Count > 0;
}

bool CopyItems(platform::NativeWindow window, const ElementArray& array) {
    if (array.empty() || ItemsClipboardFormat() == 0) return false;
    VMRD_DB carrier;
    return FillItemsCarrier(carrier, array) && PutCarrier(window, ItemsClipboardFormat(), carrier, array);
}

bool CopyEntries(platform::NativeWindow window, const ElementArray& array) {
    if (array.empty() || EntriesClipboardFormat() == 0) return false;
    VMRD_DB carrier;
    return FillEntriesCarrier(carrier, array) && PutCarrier(window, EntriesClipboardFormat(), carrier, array);
}

bool PutClipboardText(const tvstring& text) {
    if (text.empty()) return false;
    const std::span<const u8> units = BytesOf(text.data(), text.size() * sizeof(char16_t));
    const bool unicode = PutBytes(platform::kFormatUnicodeText, units, sizeof(char16_t));
    const tvstringA ansi = ToAnsi(text);
    const bool bytes =
        !ansi.empty() && PutBytes(platform::kFormatText, BytesOf(ansi.data(), ansi.size()), sizeof(char));
    return unicode || bytes;
}

bool ReadClipboardBlock(VMRD_DB& carrier, std::span<const u8> block) {
    if (block.size() < kShortestBlock) return false;
    carrier.Close();
    std::memcpy(carrier.m_PwdHash, block.data(), kKeyHashSize);
    return carrier.Deserialize(block.data() + kKeyHashSize, block.size() - kKeyHashSize) &&
           carrier.m_Count > 0;
}

bool VMRD_DB::ReadClipboard(VMRD_DB& carrier, u32 format) {
    bool filled = false;
    if (format != 0 && platform::IsFormatAvailable(format) && platform::OpenClipboard(nullptr)) {
        const platform::ClipboardView view(format);
        filled = ReadClipboardBlock(carrier, view.Bytes());
    }
    platform::CloseClipboard();  // in every case, as CopyItems does
    return filled;
}
