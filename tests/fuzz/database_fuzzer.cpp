// Reads containers. The first byte of an input says what the rest is:
//
//   0   a container as it is; its cipher lets hardly any change through
//   1   a plain record stream, encrypted here
//   2   the same in front of whose end the plain size ends, by as many bytes as a further byte says
//
// What is read must be whole as a tree, and must come back the same once it is written.
#include <algorithm>
#include <span>

#include "database/database.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/unit/database/made_container.h"
#include "tests/unit/database/tree.h"

namespace {

using Input = std::span<const u8>;

enum Kind : u8 { RAW, STREAM, OVERRUNNING_STREAM };

std::vector<u8> ContainerOf(Input input) {
    const u8 kind = input.front();
    input = input.subspan(1);
    u32 overrun = 0;
    if (kind == OVERRUNNING_STREAM && !input.empty()) {
        overrun = input.front();
        input = input.subspan(1);
    }
    const std::vector<u8> bytes(input.begin(), input.end());
    const auto size = static_cast<u32>(bytes.size());
    return kind == RAW ? bytes : MadeContainer(bytes, size - std::min(size, overrun));
}

void SetPassword(VMRD_DB& database) {
    HashPassword(kPassword, database.m_PwdHash);
}

void CheckTree(const VMRD_DB& database) {
    i32 items = 0;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        i32 entries = 0;
        for (const EntryElement* entry = item->m_Head; entry != nullptr; entry = entry->m_Next) {
            Require(entry->m_Type >= VMRD_T_PROGRAM && entry->m_Type <= VMRD_T_ADDITION);
            Require(entry->m_Text.size() <= kLongestText);
            Require(entry->m_Next != nullptr || entry == item->m_Tail);
            ++entries;
        }
        Require(entries == item->m_Count && (item->m_Next != nullptr || item == database.m_Tail));
        ++items;
    }
    Require(items == database.m_Count);
}

void CheckRoundTrip(const VMRD_DB& database) {
    const tvdata container = database.Serialize();
    const bool isEmpty = database.m_Name.empty() && database.m_Count == 0;
    Require(container.Empty() == isEmpty);
    if (isEmpty) return;
    VMRD_DB again;
    SetPassword(again);
    Require(again.Deserialize(container.Data(), container.Size()));
    CheckTree(again);
    Require(TreeOf(again) == TreeOf(database));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    if (size == 0) return 0;
    const std::vector<u8> container = ContainerOf({data, size});
    VMRD_DB database;
    SetPassword(database);
    if (database.Deserialize(container.data(), container.size())) {
        Require(database.HasMasterPassword());
        CheckTree(database);
        CheckRoundTrip(database);
    } else {
        Require(TreeOf(database) == Tree());
    }
    return 0;
}
