// A fixture for operations on the open database: what they leave in the tree, the history and the flag.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/database/open_database.h"

// Looks at what an operation left behind: in the history, in the flag.
class Operations : public OpenDatabase {
protected:
    [[nodiscard]] std::size_t Records() const { return db.m_Undo.Count(); }
    [[nodiscard]] std::string Items() const { return TextsOf<ItemElement>(db); }
    [[nodiscard]] static std::string Entries(const ItemElement* item) { return TextsOf<EntryElement>(*item); }

    void ExpectRecord(u32 op, u32 kind, const VMRD_Object* target, u64 date) const {
        ASSERT_EQ(db.m_Undo.Count(), 1U);
        EXPECT_EQ(db.m_Undo.Front().m_Op, op);
        EXPECT_EQ(db.m_Undo.Front().m_Kind, kind);
        EXPECT_EQ(db.m_Undo.Front().m_Target, target);
        EXPECT_EQ(db.m_Undo.Front().m_OldDate, date);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(Records(), 0U);
        EXPECT_FALSE(db.m_Changed);
    }
    int Undo() { return db.Undo(nullptr, nullptr); }
};
