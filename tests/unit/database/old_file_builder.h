// Builds files of the old format, well formed or broken on purpose. The program itself only reads them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "database/hash_md5.h"
#include "tests/unit/database/rc6_encryptor.h"

namespace old_file {

using Bytes = std::vector<u8>;
using Key = std::array<u8, HashMD5::kDigestSize>;

inline void AppendWord(Bytes& bytes, u32 word) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<u8>(word >> shift));
}

inline void AppendText(Bytes& bytes, std::string_view text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

inline void Append(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

// The key of a password given in the ANSI code page.
inline Key KeyOf(std::string_view password) {
    Key key{};
    HashMD5 hash;
    hash.Update(password.data(), password.size());
    hash.Final(key.data());
    return key;
}

struct Item {
    std::string name;
    std::string userName;
    std::string password;
    std::string program;
    std::string addition;
};

inline constexpr std::size_t kExtraSize = 24;

// Bodies before encryption. The long form ends in its extra field, the values 1 to 6.
inline Bytes ShortBody(const Item& item) {
    Bytes body;
    const std::string_view texts[] = {item.name, item.userName, item.password, item.program, item.addition};
    std::size_t total = 0;
    for (const std::string_view text : texts)
        total += text.size();
    AppendWord(body, static_cast<u32>(total));
    for (const std::string_view text : texts)
        AppendWord(body, static_cast<u32>(text.size()));
    for (const std::string_view text : texts)
        AppendText(body, text);
    return body;
}

inline void PutWord(Bytes& body, std::size_t index, u32 word) {
    for (std::size_t i = 0; i < 4; ++i)
        body.at(4 * index + i) = static_cast<u8>(word >> (8 * i));
}

inline u32 WordAt(const Bytes& body, std::size_t index) {
    u32 word = 0;
    for (std::size_t i = 4; i-- > 0;)
        word = word << 8 | body.at(4 * index + i);
    return word;
}

inline Bytes LongBody(const Item& item) {
    Bytes body = ShortBody(item);
    Bytes extraLength;
    AppendWord(extraLength, kExtraSize);
    body.insert(body.begin() + 24, extraLength.begin(), extraLength.end());
    PutWord(body, 0, WordAt(body, 0) + kExtraSize);
    for (u32 value = 1; value <= 6; ++value)
        AppendWord(body, value);
    return body;
}

// A block as it stands in the file: the length word, then the bytes.
inline Bytes Block(const Bytes& bytes) {
    Bytes block;
    AppendWord(block, static_cast<u32>(bytes.size()));
    Append(block, bytes);
    return block;
}

// An item's block from its plain body, which is filled up with zeros to whole cipher blocks.
inline Bytes ItemBlock(const Key& key, const Bytes& body) {
    return Block(Rc6EncryptEcb(key.data(), body));
}

struct CheckBlock {
    u32 total = 20;
    u32 keySize = 16;
    u32 countSize = 4;
    Key keyCopy{};
    i32 count = 0;
};

inline Bytes PlainCheckBlock(const CheckBlock& check) {
    Bytes plain;
    AppendWord(plain, check.total);
    AppendWord(plain, check.keySize);
    AppendWord(plain, check.countSize);
    plain.insert(plain.end(), check.keyCopy.begin(), check.keyCopy.end());
    AppendWord(plain, static_cast<u32>(check.count));
    return plain;
}

// The magic and the name.
inline Bytes NameHead(std::string_view name) {
    Bytes file;
    AppendText(file, "VTMR01");
    AppendWord(file, static_cast<u32>(name.size()));
    AppendText(file, name);
    return file;
}

// All in front of the item blocks, for a password given in the ANSI code page.
inline Bytes Head(std::string_view name, std::string_view password, i32 count) {
    CheckBlock check;
    check.keyCopy = KeyOf(password);
    check.count = count;
    Bytes file = NameHead(name);
    Append(file, ItemBlock(check.keyCopy, PlainCheckBlock(check)));
    return file;
}

// A whole file of these bodies, in which the count is right.
inline Bytes File(std::string_view name, std::string_view password, const std::vector<Bytes>& bodies) {
    Bytes file = Head(name, password, static_cast<i32>(bodies.size()));
    for (const Bytes& body : bodies)
        Append(file, ItemBlock(KeyOf(password), body));
    return file;
}

}  // namespace old_file
