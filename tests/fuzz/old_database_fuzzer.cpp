// Reads files of the old format. The first byte of an input says what the rest is:
//
//   0   a file as it is; its cipher lets hardly any change through
//   1   a file below its cipher: u8 length of the name, the name; 32 bytes of difference to a good check
//       block; then items, each a u16 length and a plain body, encrypted here; a length that the rest cannot
//       fill stands for a body cut off
//   2   a plain item body, parsed by itself in a block of just its size
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <span>

#include "database/database.h"
#include "database/old_format.h"
#include "foundation/textops.h"
#include "tests/fuzz/fuzz_text.h"
#include "tests/unit/database/old_file_builder.h"

namespace {

using Input = std::span<const u8>;

// The file that is read, in memory and without a name in any folder; replaced at each run.
class InputFile {
public:
    InputFile() : m_Descriptor(::memfd_create("input", MFD_CLOEXEC)) { Require(m_Descriptor >= 0); }
    ~InputFile() { ::close(m_Descriptor); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    [[nodiscard]] tvstring Write(Input bytes) const {
        Require(::ftruncate(m_Descriptor, 0) == 0);
        const ::ssize_t done = ::pwrite(m_Descriptor, bytes.data(), bytes.size(), 0);
        Require(done == static_cast<::ssize_t>(bytes.size()));
        return tvstring(u"/proc/self/fd/") + FormatInt(m_Descriptor);
    }

private:
    int m_Descriptor;
};

void CheckItem(const ItemElement& item, u64 date) {
    Require(!item.m_Name.empty() && item.m_Name.size() <= kLongestOldText && item.m_Date == date);
    u16 expected = VMRD_T_PROGRAM;
    i32 count = 0;
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        Require(entry->m_Type == expected && entry->m_Text.size() <= kLongestOldText);
        if (expected == VMRD_T_ADDITION) {
            Require(!entry->m_Text.empty() && entry->m_Text.find(u"\r\n") == tvstring::npos);
        } else {
            ++expected;
        }
        ++count;
    }
    Require(expected == VMRD_T_ADDITION && count == item.m_Count);
}

void ReadFile(Input bytes) {
    static const InputFile file;
    VMRD_DB database;
    const bool opened = database.OpenOld(file.Write(bytes), u"alt");
    Require(opened == database.m_Opened && opened == database.m_Changed);
    Require(opened || (database.m_Count == 0 && database.m_Name.empty()));
    Require(!opened || !database.m_Name.empty());
    // No item without a length word and two cipher blocks.
    Require(static_cast<std::size_t>(database.m_Count) <= bytes.size() / 36);
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next)
        CheckItem(*item, database.m_Head->m_Date);
}

Input Take(Input& rest, std::size_t size) {
    const Input taken = rest.first(std::min(size, rest.size()));
    rest = rest.subspan(taken.size());
    return taken;
}

// A file that is well formed where the input is all zeros.
old_file::Bytes FileFrom(Input rest) {
    const old_file::Key key = old_file::KeyOf("alt");
    old_file::CheckBlock check;
    check.keyCopy = key;
    const Input nameSize = Take(rest, 1);
    const Input name = Take(rest, nameSize.empty() ? 0 : nameSize[0]);
    old_file::Bytes file = old_file::NameHead({reinterpret_cast<const char*>(name.data()), name.size()});
    old_file::Bytes plain = old_file::PlainCheckBlock(check);
    const Input difference = Take(rest, plain.size());
    for (std::size_t i = 0; i < difference.size(); ++i)
        plain[i] ^= difference[i];
    old_file::Append(file, old_file::ItemBlock(key, plain));
    while (rest.size() >= 2) {
        const Input length = Take(rest, 2);
        const std::size_t size = length[0] + length[1] * std::size_t{256};
        const Input body = Take(rest, size);
        const old_file::Bytes cipher = Rc6EncryptEcb(key.data(), {body.begin(), body.end()});
        old_file::AppendWord(file, static_cast<u32>(body.size() < size ? size : cipher.size()));
        old_file::Append(file, cipher);
    }
    return file;
}

void ParseBody(Input bytes) {
    const auto body = std::make_unique<u8[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), body.get());
    VMRD_OldItem item;
    const bool parsed = ParseOldItem(body.get(), bytes.size(), item);
    for (const auto& text : item.m_Texts) {
        Require(text[kLongestOldText] == 0);
        Require(parsed || text[0] == 0);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    if (size == 0) return 0;
    const Input rest(data + 1, size - 1);
    switch (data[0]) {
        case 0:
            ReadFile(rest);
            break;
        case 1:
            ReadFile(FileFrom(rest));
            break;
        case 2:
            ParseBody(rest);
            break;
        default:
            break;
    }
    return 0;
}
