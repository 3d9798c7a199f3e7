// The settings store of the current user: a tree of named keys, each with named values that carry a numeric
// type and a block of bytes. On Windows it is the registry; elsewhere one file with the same contract. Names
// of keys (parted by backslashes) and values ignore case; the empty name is a key's default value.
//
// Operations give a status: kErrorNone or the number of the cause.
#pragma once

#include <string>

#include "platform/error.h"
#include "platform/types.h"

namespace platform {

inline constexpr u32 kErrorMoreData = 234;
inline constexpr u32 kErrorKeyDeleted = 1018;

// Types of values.
inline constexpr u32 kRegString = 1;
inline constexpr u32 kRegBinary = 3;
inline constexpr u32 kRegWord = 4;
inline constexpr u32 kRegQuadWord = 11;

// An open key; 0 means none, for which operations give kErrorInvalidHandle; kErrorKeyDeleted if the key was
// deleted meanwhile. To be closed with CloseKey.
using NativeKey = std::uintptr_t;

// What an open key can be used for: a key opened for writing cannot be read from, nor the other way round.
enum class KeyAccess {
    Read,   // an existing key: kErrorFileNotFound if there is none
    Write,  // made with its parents if missing
};

u32 OpenUserKey(const char16_t* subkey, KeyAccess access, NativeKey& key);
void CloseKey(NativeKey key);

// The type and data of a value. `size` gives the room at `data` and takes the data's size; with a null `data`
// only type and size are told. kErrorMoreData if there is too little room. `type` may be null.
u32 QueryValue(NativeKey key, const char16_t* name, u32* type, u8* data, u32& size);
u32 WriteValue(NativeKey key, const char16_t* name, u32 type, const u8* data, u32 size);

// Deletes a value, needs a key opened for writing; or a key with all that is below it, but never the user's
// root.
u32 DeleteValue(NativeKey key, const char16_t* name);
u32 DeleteUserTree(const char16_t* subkey);

// The file of the store, where the store is one; by default vaultmere/registry in the user's configuration
// folder. Nothing happens on Windows.
void UseRegistryFile(const std::u16string& path);

}  // namespace platform
