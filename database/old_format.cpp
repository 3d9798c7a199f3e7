#include "database/old_format.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "database/container.h"
#include "database/hash_md5.h"
#include "foundation/conversion.h"
#include "foundation/secret_bytes.h"
#include "platform/memory.h"

namespace {

constexpr u32 kShortestCheckBlock = 20;
constexpr u32 kLongestCheckBlock = 36;
constexpr u32 kKeySizeField = 16;
constexpr u32 kCountSizeField = 4;

constexpr u32 kShortestBody = 16;
constexpr std::size_t kWord = sizeof(u32);
constexpr std::size_t kExtraLengthWord = OLD_TEXT_COUNT + 1;
constexpr std::size_t kShortHead = kExtraLengthWord * kWord;
constexpr std::size_t kLongHead = kShortHead + kWord;
constexpr u32 kExtraSize = sizeof VMRD_OldItem::m_Extra;

// As much of a body as can mean anything, in whole cipher blocks. The rest, of whatever length, is filler.
constexpr u32 kBodyCapacity = 3056;
static_assert(kBodyCapacity >= kLongHead + OLD_TEXT_COUNT * kLongestOldText + kExtraSize);
static_assert(kBodyCapacity % CipherRC6::kBlockSize == 0);

using BodyBuffer = SecretBytes<kBodyCapacity>;

u32 LoadWord(const u8* bytes) noexcept {
    return static_cast<u32>(bytes[0]) | static_cast<u32>(bytes[1]) << 8 | static_cast<u32>(bytes[2]) << 16 |
           static_cast<u32>(bytes[3]) << 24;
}

bool ReadAll(tvstream& stream, void* buffer, u32 size) {
    return stream.Read(buffer, size) == size;
}

bool ReadWord(tvstream& stream, u32& word) {
    u8 bytes[kWord] = {};
    if (!ReadAll(stream, bytes, sizeof bytes)) return false;
    word = LoadWord(bytes);
    return true;
}

void MakeKey(const tvstring& password, VMRD_OldDB& database) {
    const tvstringA bytes = ToAnsi(password);
    HashMD5 hash;
    hash.Update(bytes.data(), bytes.size());
    hash.Final(database.m_Key);
    database.m_Cipher.emplace(database.m_Key);
}

bool ReadMagic(tvstream& stream) {
    u8 magic[sizeof kOldMagic] = {};
    return ReadAll(stream, magic, sizeof magic) && std::memcmp(magic, kOldMagic, sizeof magic) == 0;
}

bool ReadName(tvstream& stream, VMRD_OldDB& database) {
    u32 length = 0;
    if (!ReadWord(stream, length) || length > kLongestOldText) return false;
    return ReadAll(stream, database.m_Name, length);
}

bool ReadCheckBlock(tvstream& stream, VMRD_OldDB& database) {
    u32 length = 0;
    SecretBytes<kLongestCheckBlock> block;
    u8* const bytes = block.Data();
    if (!ReadWord(stream, length) || length < kShortestCheckBlock || length > kLongestCheckBlock ||
        !ReadAll(stream, bytes, length) || !database.m_Cipher->Decrypt(bytes, length)) {
        return false;
    }
    const u32 total = LoadWord(bytes);
    const u32 keySize = LoadWord(bytes + kWord);
    const u32 countSize = LoadWord(bytes + 2 * kWord);
    if (total != keySize + countSize || keySize != kKeySizeField || countSize != kCountSizeField) {
        return false;
    }
    if (std::memcmp(bytes + 3 * kWord, database.m_Key, sizeof database.m_Key) != 0) return false;
    database.m_Count = static_cast<i32>(LoadWord(bytes + 3 * kWord + kKeySizeField));
    return true;
}

// Reads `size` bytes, of which the buffer keeps no more than it holds.
bool ReadBody(tvstream& stream, u32 size, BodyBuffer& buffer) {
    const u32 kept = std::min(size, kBodyCapacity);
    if (!ReadAll(stream, buffer.Data(), kept)) return false;
    u8 filler[1024];
    for (u32 left = size - kept; left > 0;) {
        const u32 part = std::min<u32>(left, sizeof filler);
        if (!ReadAll(stream, filler, part)) return false;
        left -= part;
    }
    return true;
}

bool ReadItem(tvstream& stream, const CipherRC6& cipher, BodyBuffer& buffer, VMRD_OldItem& item) {
    u32 size = 0;
    if (!ReadWord(stream, size) || size < kShortestBody || !ReadBody(stream, size, buffer)) return false;
    const u32 kept = std::min(size, kBodyCapacity);
    return size % CipherRC6::kBlockSize == 0 && cipher.Decrypt(buffer.Data(), kept) &&
           ParseOldItem(buffer.Data(), kept, item);
}

// Each block takes at least the word of its length, so that a count beyond that is not believed.
u64 BlocksToTry(const tvstream& stream, i32 count) {
    const u64 most = (stream.Size() - stream.Position()) / kWord;
    return std::min<u64>(static_cast<u64>(std::max(count, 0)), most);
}

void ReadItems(tvstream& stream, VMRD_OldDB& database) {
    BodyBuffer buffer;
    VMRD_OldItem** end = &database.m_Items;
    auto item = std::make_unique<VMRD_OldItem>();
    u64 left = BlocksToTry(stream, database.m_Count);
    for (; left > 0 && stream.Position() < stream.Size(); --left) {
        if (!ReadItem(stream, *database.m_Cipher, buffer, *item)) continue;
        *end = item.release();
        end = &(*end)->m_Next;
        item = std::make_unique<VMRD_OldItem>();
    }
}

u32 BodyWord(const u8* body, std::size_t index) {
    return LoadWord(body + index * kWord);
}

// Where the texts start in a body whose words sum up in one of the two forms, else 0. The sums wrap around
// as the words do.
std::size_t HeadSize(const u8* body) {
    u32 sum = 0;
    for (std::size_t i = 1; i <= OLD_TEXT_COUNT; ++i)
        sum += BodyWord(body, i);
    if (BodyWord(body, 0) == sum + BodyWord(body, kExtraLengthWord)) return kLongHead;
    return BodyWord(body, 0) == sum ? kShortHead : 0;
}

// True if no text is too long and all of them lie in `size` bytes.
bool TextsFit(const u8* body, std::size_t size) {
    std::size_t together = 0;
    for (std::size_t i = 1; i <= OLD_TEXT_COUNT; ++i) {
        if (BodyWord(body, i) > kLongestOldText) return false;
        together += BodyWord(body, i);
    }
    return together <= size;
}

}  // namespace

VMRD_OldItem::~VMRD_OldItem() {
    platform::WipeMemory(m_Texts, sizeof m_Texts);
    platform::WipeMemory(m_Extra, sizeof m_Extra);
}

VMRD_OldDB::~VMRD_OldDB() {
    platform::WipeMemory(m_Key, sizeof m_Key);
    platform::WipeMemory(m_Name, sizeof m_Name);
    while (m_Items != nullptr) {
        VMRD_OldItem* next = m_Items->m_Next;
        delete m_Items;
        m_Items = next;
    }
}

bool ReadOldDatabase(tvstream& stream, const tvstring& password, VMRD_OldDB& database) {
    MakeKey(password, database);
    if (!ReadMagic(stream) || !ReadName(stream, database) || !ReadCheckBlock(stream, database)) return false;
    ReadItems(stream, database);
    return true;
}

bool ParseOldItem(const u8* body, std::size_t size, VMRD_OldItem& item) {
    if (size < kLongHead) return false;
    std::size_t place = HeadSize(body);
    if (place == 0 || !TextsFit(body, size - place)) return false;
    for (std::size_t i = 0; i < OLD_TEXT_COUNT; ++i) {
        const std::size_t length = BodyWord(body, i + 1);
        std::memcpy(item.m_Texts[i], body + place, length);
        place += length;
    }
    // In the short form this word is the start of the name, which does no harm.
    if (BodyWord(body, kExtraLengthWord) == kExtraSize && kExtraSize <= size - place) {
        std::memcpy(item.m_Extra, body + place, kExtraSize);
    }
    return true;
}
