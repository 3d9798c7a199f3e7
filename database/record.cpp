#include "database/record.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "database/element.h"
#include "foundation/textops.h"

// Units and numbers go to the file as they lie in memory.
static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t kLongestDeclared = 65535;

constexpr bool IsRecordType(u16 type) {
    return type >= VMRD_T_DBNAME && type <= VMRD_T_DATE;
}

}  // namespace

bool WriteRecord(tvbuffer<u8>& stream, u16 type, const tvstring& text) {
    if (!IsRecordType(type)) return false;
    const std::size_t size = RecordSize(text);
    if (size > std::numeric_limits<u32>::max()) return false;
    u8* const place = stream.Extend(static_cast<u32>(size));
    if (place == nullptr) return false;
    const u16 head[] = {type, static_cast<u16>(std::min(text.size(), kLongestDeclared))};
    std::memcpy(place, head, sizeof head);
    std::memcpy(place + sizeof head, text.data(), size - sizeof head);
    return true;
}

std::size_t RecordSize(const tvstring& text) {
    return kRecordHeadSize + text.size() * sizeof(char16_t);
}

std::size_t ReadRecord(const u8* data, std::size_t remaining, std::size_t present, u16& type,
                       tvstring& text) {
    type = 0;
    text.clear();
    if (remaining < kRecordHeadSize) return 0;
    u16 length = 0;
    std::memcpy(&type, data, sizeof type);
    if (!IsRecordType(type)) return 0;
    std::memcpy(&length, data + sizeof type, sizeof length);
    const std::size_t units = std::min<std::size_t>(length, (present - kRecordHeadSize) / sizeof(char16_t));
    text.assign_bytes(data + kRecordHeadSize, units);
    return kRecordHeadSize + std::size_t{length} * sizeof(char16_t);
}

bool WriteDateRecord(tvbuffer<u8>& stream, u64 date) {
    char16_t record[2 + kHexU64Length] = {VMRD_T_DATE, kHexU64Length};
    static_assert(sizeof record == kDateRecordSize);
    WriteHexU64(date, record + 2);
    return stream.Append(reinterpret_cast<const u8*>(record), sizeof record);
}

u64 ParseDate(const tvstring& text) {
    return ParseU64(text);
}
