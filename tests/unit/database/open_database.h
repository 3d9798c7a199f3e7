// The open database as tests want it: empty and clean, on a clock that stands still.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "database/database.h"
#include "foundation/conversion.h"
#include "platform/fault.h"

// The names of a database's items, or the texts of an item's entries, each in brackets: "[first][second]".
template <typename Element>
std::string TextsOf(const tvlist<Element>& list) {
    std::string texts;
    for (const Element* element = list.m_Head; element != nullptr; element = element->m_Next) {
        texts.append("[").append(std::string_view(ToUtf8(ElementText(element)))).append("]");
    }
    return texts;
}

template <typename Element>
std::vector<Element*> ElementsOf(const tvlist<Element>& list) {
    std::vector<Element*> elements;
    for (Element* element = list.m_Head; element != nullptr; element = element->m_Next) {
        elements.push_back(element);
    }
    return elements;
}

// Count, ends and links both ways agree.
template <typename Element>
void ExpectSound(const tvlist<Element>& list) {
    i32 count = 0;
    const Element* last = nullptr;
    for (const Element* element = list.m_Head; element != nullptr; element = element->m_Next) {
        ASSERT_EQ(element->m_Prev, last);
        last = element;
        ++count;
    }
    EXPECT_EQ(list.m_Tail, last);
    EXPECT_EQ(list.m_Count, count);
}

class OpenDatabase : public ::testing::Test {
protected:
    static constexpr u64 kBefore = 133'000'000'000'000'000;
    static constexpr u64 kNow = 133'500'000'000'000'000;

    OpenDatabase() {
        platform::SetClock(kNow, kBefore);
        db.MakeCurrent();
        db.m_Opened = true;
    }
    ~OpenDatabase() override {
        ExpectSound<ItemElement>(db);
        for (const ItemElement* item : ElementsOf<ItemElement>(db))
            ExpectSound<EntryElement>(*item);
        platform::ClearClock();
    }

    // An item of the database that no record tells of, last changed at kBefore.
    ItemElement* PutItem(const tvstring& name, std::initializer_list<VMRD_Entry> entries = {}) {
        VMRD_Item item;
        item.m_Name = name;
        item.m_Date = kBefore;
        for (const VMRD_Entry& entry : entries)
            AddEntryCopy(item, entry, nullptr);
        return AddItemCopy(db, item, nullptr);
    }

    VMRD_DB db;
};

inline VMRD_Entry Program(const tvstring& text) {
    return {VMRD_T_PROGRAM, text};
}
inline VMRD_Entry Username(const tvstring& text) {
    return {VMRD_T_USERNAME, text};
}
inline VMRD_Entry Password(const tvstring& text) {
    return {VMRD_T_PASSWORD, text};
}
inline VMRD_Entry Addition(const tvstring& text) {
    return {VMRD_T_ADDITION, text};
}
