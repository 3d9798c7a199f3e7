// Files of the old format, which is read only. Numbers are little-endian, text is in the system's ANSI code
// page without a terminator:
//
//   6 bytes   "VTMR01"
//   u32 n     length of the database's name, at most 598
//   n bytes   the name, not encrypted
//   u32 L     length of the check block; only 32 comes through all tests
//   L bytes   check block, encrypted: u32 total, u32 key size, u32 count size, 16 bytes copy of the key,
//             i32 number of items
//
// and for each item
//
//   u32 M     length of the body, at least 16
//   M bytes   body, encrypted: u32 total, five u32 text lengths, in the long form a sixth u32 for an extra
//             field, then the texts, the extra field and filler
//
// Everything encrypted is RC6 in single blocks of 16 bytes; the key is the MD5 of the password.
#pragma once

#include <optional>

#include "database/cipher_rc6.h"
#include "foundation/tvstream.h"
#include "foundation/tvstring.h"

// The longest text, in bytes; in memory a terminating zero follows.
inline constexpr std::size_t kLongestOldText = 598;

// The texts of an item in the order of the body.
enum OldTexts : std::size_t {
    OLD_NAME,
    OLD_USERNAME,
    OLD_PASSWORD,
    OLD_PROGRAM,  // program, document or URL
    OLD_ADDITION,
    OLD_TEXT_COUNT,
};

// An item as the file has it. Wiped when it goes.
struct VMRD_OldItem {
    VMRD_OldItem() = default;
    ~VMRD_OldItem();
    VMRD_OldItem(const VMRD_OldItem&) = delete;
    VMRD_OldItem& operator=(const VMRD_OldItem&) = delete;

    char m_Texts[OLD_TEXT_COUNT][kLongestOldText + 1] = {};
    u32 m_Extra[6] = {};  // carries nothing that the program uses
    VMRD_OldItem* m_Next = nullptr;
};

// A file as it was read, for as long as the conversion takes. Wiped, with its items, when it goes.
struct VMRD_OldDB {
    VMRD_OldDB() = default;
    ~VMRD_OldDB();
    VMRD_OldDB(const VMRD_OldDB&) = delete;
    VMRD_OldDB& operator=(const VMRD_OldDB&) = delete;

    u8 m_Key[CipherRC6::kKeySize] = {};
    char m_Name[kLongestOldText + 1] = {};
    i32 m_Count = 0;                  // of items, by the file's word; fewer may be in the chain
    VMRD_OldItem* m_Items = nullptr;  // in file order, each owning the next by m_Next
    std::optional<CipherRC6> m_Cipher;
};

// Reads a whole file from its beginning into a new record. False if it is no old file, if a length in its
// head is out of bounds or if the password is wrong. Items that cannot be read are left out.
bool ReadOldDatabase(tvstream& stream, const tvstring& password, VMRD_OldDB& database);

// Reads an item, a new one, from its decrypted body. False, and the item as it was, for a body whose lengths
// do not sum up, with a text longer than kLongestOldText or one that runs past the body's end.
bool ParseOldItem(const u8* body, std::size_t size, VMRD_OldItem& item);
