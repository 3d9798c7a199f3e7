// The settings store as a file: a document of keys and values, read and written whole under a lock.
//
// Each key is a line "[path]", each value of it a line "name=type:bytes", bytes and all units outside
// printable ASCII in hexadecimal.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

struct NoCaseLess {
    bool operator()(const std::u16string& a, const std::u16string& b) const noexcept;
};

struct RegistryValue {
    u32 type = 0;
    std::vector<u8> bytes;
};

using RegistryValues = std::map<std::u16string, RegistryValue, NoCaseLess>;
using RegistryKeys = std::map<std::u16string, RegistryValues, NoCaseLess>;

// Keys and values to a document and back. Lines that are no key and no value are passed over, and so are
// values behind a damaged key.
std::string FormatRegistry(const RegistryKeys& keys);
RegistryKeys ParseRegistry(const std::string& text);

}  // namespace platform
