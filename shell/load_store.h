// Single settings between memory and the store. A failed read, or a value of another size, leaves what is
// there; a failed write is forgotten. Neither is told to the user.
#pragma once

#include "foundation/registry.h"
#include "foundation/tvstring.h"

// Which way an operation moves its setting.
enum class LoadStore { Store, Load };

// Each returns true if the value was read or written.

// The lowest byte of a value of four bytes; written as a whole word, extended with zeros.
bool LoadStoreBool(LoadStore direction, const char16_t* name, u8& byte);

// A value of four bytes.
bool LoadStoreInt(LoadStore direction, const char16_t* name, u32& word);

// A binary value of exactly `size` bytes.
bool LoadStoreBytes(LoadStore direction, const char16_t* name, void* bytes, u32 size);

// A string value.
bool LoadStoreText(LoadStore direction, const char16_t* name, tvstring& text);
