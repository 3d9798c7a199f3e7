// The clipboard for tests of transfers: emptied before and after, with a database that is open.
#pragma once

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "database/clipboard.h"
#include "tests/unit/clipboard_formats.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/open_database.h"
#include "tests/unit/database/tree.h"

using Bytes = std::vector<u8>;

class ClipboardTransfer : public OpenDatabase {
protected:
    ClipboardTransfer() {
        const VMRD_Item registering;
        Clear();
    }
    ~ClipboardTransfer() override {
        platform::ClearFaults();
        EXPECT_FALSE(IsOpen());
        Clear();
    }

    // Tells it by emptying, which a clipboard that is closed refuses.
    static bool IsOpen() { return platform::EmptyClipboard(); }

    static void Clear() {
        platform::OpenClipboard(nullptr);
        platform::EmptyClipboard();
        platform::CloseClipboard();
    }

    // Replaces what is on the clipboard.
    static void Put(u32 format, const Bytes& bytes) {
        ASSERT_TRUE(platform::OpenClipboard(nullptr) && platform::EmptyClipboard());
        ASSERT_TRUE(platform::ClipboardBlock(bytes.size(), bytes).Put(format));
        platform::CloseClipboard();
    }
    static Bytes Get(u32 format) {
        EXPECT_TRUE(platform::OpenClipboard(nullptr));
        Bytes bytes;
        {
            const platform::ClipboardView view(format);
            bytes.assign(view.Bytes().begin(), view.Bytes().end());
        }
        platform::CloseClipboard();
        return bytes;
    }

    // What another program had put there before.
    static constexpr u8 kOldByte = 77;
    static u32 OldFormat() { return platform::RegisterFormat(u"Vaultmere test"); }
    static void PutOld() { Put(OldFormat(), {kOldByte}); }
    static void ExpectOnlyOld() { ExpectOldAnd({}); }
    static void ExpectOldAnd(std::vector<u32> formats) {
        formats.push_back(OldFormat());
        EXPECT_THAT(ClipboardFormats(), testing::UnorderedElementsAreArray(formats));
        EXPECT_EQ(Get(OldFormat()), Bytes{kOldByte});
    }

    static bool Copy(const ElementArray& items) { return CopyItems(nullptr, items); }
    static bool CopyOf(const ElementArray& entries) { return CopyEntries(nullptr, entries); }

    // What a carrier has after a paste; an empty tree, and a failing test, if it cannot be read.
    static Tree Pasted(u32 format) {
        VMRD_DB carrier;
        EXPECT_TRUE(VMRD_DB::ReadClipboard(carrier, format));
        return TreeOf(carrier);
    }
    static Tree PastedItems() { return Pasted(ItemsClipboardFormat()); }
    static Tree PastedEntries() { return Pasted(EntriesClipboardFormat()); }

    static bool Reads(VMRD_DB& carrier, const Bytes& block) { return ReadClipboardBlock(carrier, block); }
};
