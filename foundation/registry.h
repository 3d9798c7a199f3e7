// Named values of the current user's settings store: a thin layer that moves bytes with a type tag and knows
// no name of a key or value itself. (What the store is, is told in platform/registry.h.)
//
// Failures are told by results, with the cause in the last error, which each operation sets to 0 at its
// start.
#pragma once

#include "foundation/tvdata.h"
#include "foundation/tvstring.h"
#include "platform/registry.h"

using platform::kRegBinary;
using platform::kRegQuadWord;
using platform::kRegString;
using platform::kRegWord;

// Opens a key below the current user's root, or gives 0; also for a null or empty subkey, with a last error
// of 0. With `create` the key is made if it is missing, and can be written to but not read; without, it can
// be read but not written to. To be closed with platform::CloseKey.
platform::NativeKey RegOpenUserKey(const char16_t* subkey, bool create);

// The data of a value and its type. Empty, with a type of 0, if there is no key, no such value (last error 2)
// or the system fails; empty with the type told and a last error of 0 for a value without data. `type` may be
// null. An empty or null name is the key's default value.
tvdata RegReadValue(platform::NativeKey key, const char16_t* name, u32* type);

// The same in a key that is opened for it and closed again.
tvdata RegReadUserValue(const char16_t* subkey, const char16_t* name, u32* type);

// True if the value was written. False without a key and for null data with a size above 0, which change
// nothing; null with size 0 writes an empty value.
bool RegWriteValue(platform::NativeKey key, const char16_t* name, const void* data, u32 size, u32 type);

// --- Forms of values ---

// A value of exactly four bytes, of whatever type; false, and `word` as it was, for anything else.
bool RegReadWord(platform::NativeKey key, const char16_t* name, u32& word);
bool RegWriteWord(platform::NativeKey key, const char16_t* name, u32 word);

// The text of a string value up to its first zero unit; false for an absent value and any other type.
bool RegReadText(platform::NativeKey key, const char16_t* name, tvstring& text);

// Writes a string value with its terminating zero.
bool RegWriteText(platform::NativeKey key, const char16_t* name, const tvstring& text);

// --- The owner of an open key ---

class RegKey {
public:
    enum class For { Reading, Writing };

    // Not open if RegOpenUserKey gives 0.
    RegKey(const char16_t* subkey, For purpose) : m_Key(RegOpenUserKey(subkey, purpose == For::Writing)) {}
    ~RegKey() { platform::CloseKey(m_Key); }
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;

    explicit operator bool() const noexcept { return m_Key != 0; }
    [[nodiscard]] platform::NativeKey Get() const noexcept { return m_Key; }

private:
    platform::NativeKey m_Key;
};
