#include <cstring>
#include <limits>
#include <utility>

#include "database/container.h"
#include "database/database.h"
#include "database/record.h"
#include "foundation/secret_bytes.h"
#include "foundation/tvbuffer.h"
#include "platform/error.h"

namespace {

constexpr u32 kStreamStep = 512;

// What the records of a database take, so that the stream is reserved once.
std::size_t StreamSize(const VMRD_DB& database) {
    std::size_t size = database.m_Name.empty() ? 0 : RecordSize(database.m_Name);
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        size += RecordSize(item->m_Name) + kDateRecordSize;
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
            size += RecordSize(entry->m_Text);
        }
    }
    return size;
}

bool WriteItem(tvbuffer<u8>& stream, const ItemElement& item) {
    if (!WriteRecord(stream, VMRD_T_ITEMNAME, item.m_Name) || !WriteDateRecord(stream, item.m_Date)) {
        return false;
    }
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        if (!WriteRecord(stream, entry->m_Type, entry->m_Text)) return false;
    }
    return true;
}

bool WriteRecords(tvbuffer<u8>& stream, const VMRD_DB& database) {
    if (!database.m_Name.empty() && !WriteRecord(stream, VMRD_T_DBNAME, database.m_Name)) return false;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        if (!WriteItem(stream, *item)) return false;
    }
    return true;
}

// Puts what one record says into the database; false for an entry or date with no item to take it.
bool TakeRecord(VMRD_DB& database, u16 type, tvstring& text) {
    if (type == VMRD_T_DBNAME) {
        database.m_Name = std::move(text);
        return true;
    }
    if (type == VMRD_T_ITEMNAME) {
        auto* item = new ItemElement;
        item->m_Name = std::move(text);
        return database.Insert(item, nullptr);
    }
    ItemElement* item = database.Tail();
    if (item == nullptr) return false;
    if (type == VMRD_T_DATE) {
        item->m_Date = ParseDate(text);
        return true;
    }
    auto* entry = new EntryElement;
    entry->m_Type = type;
    entry->m_Text = std::move(text);
    return item->Insert(entry, nullptr);
}

}  // namespace

tvdata VMRD_DB::Serialize() const {
    if (!HasMasterPassword()) return {};
    ContainerHeader header{};
    std::memcpy(header.magic, kMagic, sizeof kMagic);
    GenerateSalt(header.salt);
    const std::size_t size = kHeaderSize + StreamSize(*this) + kCipherBlockSize;
    tvbuffer<u8> stream(kStreamStep);
    if (size > std::numeric_limits<u32>::max() || !stream.Reserve(static_cast<u32>(size)) ||
        !stream.Append(reinterpret_cast<const u8*>(&header), kHeaderSize) || !WriteRecords(stream, *this)) {
        return {};
    }
    header.plainSize = stream.Size() - static_cast<u32>(kHeaderSize);
    std::memcpy(stream.Data(), &header, kHeaderSize);
    SecretBytes<kKeySize> key;
    DeriveKey(m_PwdHash, header.salt, key.Data());
    return EncryptContainer(stream, key.Data());
}

bool VMRD_DB::Deserialize(const u8* data, std::size_t size) {
    ContainerHeader header{};
    if (data == nullptr || size <= kHeaderSize || !HasMasterPassword()) return false;
    std::memcpy(&header, data, kHeaderSize);
    if (std::memcmp(header.magic, kMagic, sizeof kMagic) != 0 || header.plainSize > size - kHeaderSize) {
        return false;
    }
    SecretBytes<kKeySize> key;
    DeriveKey(m_PwdHash, header.salt, key.Data());
    const tvdata plain = Decrypt(data + kHeaderSize, size - kHeaderSize, key.Data());
    if (plain.Empty() || plain.Size() < header.plainSize) return false;
    if (ReadRecords(plain.Data(), plain.Size(), header.plainSize)) return true;
    Reset();
    return false;
}

// The last record may run past the plain size; beyond the decrypted bytes there is nothing to take.
bool VMRD_DB::ReadRecords(const u8* data, std::size_t size, std::size_t plainSize) {
    tvstring text;
    u16 type = 0;
    for (std::size_t place = 0; place < plainSize;) {
        const std::size_t taken = ReadRecord(data + place, plainSize - place, size - place, type, text);
        if (taken == 0 || !TakeRecord(*this, type, text)) return false;
        place += taken;
    }
    return true;
}

bool VMRD_DB::Open(const tvstring& path, const tvstring& password) {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it may be m_Path, which goes with Close
    const tvstring newPath(path);
    Close();
    if (password.empty()) return false;
    const i32 size = OpenDatabaseFile(m_File, newPath, false);
    if (size == kOldDatabase) return OpenOld(newPath, password);
    if (size < 1) return false;
    m_Path = newPath;
    HashPassword(password, m_PwdHash);
    const tvdata container = ReadWholeFile(m_File, size);
    if (container.Empty()) {
        Close();
        platform::SetLastError(platform::kErrorNone);
        return false;
    }
    const u32 error = platform::LastError();
    if (!Deserialize(container.Data(), container.Size())) {
        Close();
        platform::SetLastError(error);
        return false;
    }
    m_Changed = false;
    m_Opened = true;
    m_Undo.MarkSaved();
    return true;
}

bool VMRD_DB::Save() {
    if (!m_Opened) return false;
    m_Display.clear();
    const tvdata container = m_Path.empty() || !HasMasterPassword() ? tvdata() : Serialize();
    if (container.Empty()) {
        platform::SetLastError(platform::kErrorNone);
        return false;
    }
    if (OpenDatabaseFile(m_File, m_Path, true) < 1) return false;
    u32 done = 0;  // not compared: a short write that the system calls good counts as good
    if (!platform::WriteNativeFile(m_File.Get(), container.Data(), container.Size(), done)) return false;
    m_Changed = false;
    m_Undo.MarkSaved();
    return true;
}
