// Items and entries on the clipboard, in a form of the program's own: a small database that carries copies of
// them, in the container of its files. A single element goes along as plain text for other programs.
//
// The block of either format:
//
//   offset 0   32 bytes  key hash of the container, random and new at each copy
//   offset 32  to the end: the container (database/container.h)
//
// The key stands beside the data, so nothing is hidden from who reads the clipboard.
//
// Failures give false and are told to nobody.
#pragma once

#include "database/database.h"
#include "platform/clipboard.h"

inline constexpr std::size_t kKeyHashSize = 32;

// The formats, registered once in the process, when the first object of the class is made that they are told
// with; 0 before that, or if the system has none to give.
u32 ItemsClipboardFormat() noexcept;    // "Vaultmere": the carrier's items (VMRD_DB)
u32 EntriesClipboardFormat() noexcept;  // "VaultmereItem": the entries of its only item (VMRD_Item)
void RegisterItemsFormat() noexcept;
void RegisterEntriesFormat() noexcept;

// Put the elements of an array on the clipboard: null and elements of the other class are passed over. True
// if the program's own format was stored.
bool CopyItems(platform::NativeWindow window, const ElementArray& array);
bool CopyEntries(platform::NativeWindow window, const ElementArray& array);

// Puts a text on the clipboard, which the caller has open and emptied, as UTF-16 and in the ANSI code page.
// True if at least one of the two was stored.
bool PutClipboardText(const tvstring& text);

// --- The block alone ---

// Fill a carrier with copies; false if there is nothing to carry.
bool FillItemsCarrier(VMRD_DB& carrier, const ElementArray& array);
bool FillEntriesCarrier(VMRD_DB& carrier, const ElementArray& array);

// Fills a carrier from a block: it is closed first. True if it then holds at least one item.
bool ReadClipboardBlock(VMRD_DB& carrier, std::span<const u8> block);
