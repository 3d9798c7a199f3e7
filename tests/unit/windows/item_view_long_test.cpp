// A view of a long list through many changes: what it remembers of one refresh must not show in the next.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>

#include "tests/unit/database/open_database.h"
#include "windows/item_view.h"

namespace {

class LongList : public OpenDatabase {
protected:
    static constexpr std::size_t kItems = 60;

    LongList() {
        for (std::size_t i = 0; i < kItems; ++i)
            Add();
        m_View.SetSource(&db);
    }

    std::size_t Number(std::size_t below) { return m_Random() % below; }

    tvstring NewName() {
        tvstring name;
        for (std::size_t size = Number(4); size > 0; --size)
            name += std::u16string_view(u"aAbB\u00E919 ")[Number(8)];
        return name;
    }
    void Add() {
        ItemElement* item = PutItem(NewName());
        item->m_Date = Number(20);
    }
    ItemElement* Any() { return ElementsOf<ItemElement>(db)[Number(static_cast<std::size_t>(db.m_Count))]; }

    // Changes something in the list.
    void Change() {
        ItemElement* item = Any();
        switch (Number(6)) {
            case 0:
                item->m_Name = NewName();
                break;
            case 1:
                Add();
                break;
            case 2:
                if (db.m_Count > 40) db.Unlink(item, Unlinked::Destroy);
                break;
            case 3: {
                ItemElement* other = Any();
                if (other != item) {
                    db.Unlink(item, Unlinked::Keep);
                    db.Insert(item, other);
                }
                break;
            }
            case 4:
                item->m_Date = Number(20);
                break;
            default:
                break;
        }
    }

    // Changes something of the view, and refreshes.
    void Look() {
        const int sort = static_cast<int>(Number(5));
        const tvstring text = std::u16string_view(u"a19").substr(Number(3), Number(2));
        m_View.SetView(Number(3) == 0 ? &sort : nullptr, Number(2) == 0 ? &text : nullptr);
        m_View.Refresh();
    }

    // The rows are those of the elements that match, in order.
    void ExpectRight() const {
        const std::vector<ViewRow>& rows = m_View.Rows();
        std::multiset<const VMRD_Element*> expected;
        for (const ItemElement* item : ElementsOf<ItemElement>(db)) {
            if (MatchesFilter(item, m_View.FilterText(), FilterAll, SearchPasswords::No))
                expected.insert(item);
        }
        std::multiset<const VMRD_Element*> shown;
        for (const ViewRow& row : rows)
            shown.insert(row.m_data);
        ASSERT_EQ(shown, expected);
        for (std::size_t i = 1; i < rows.size(); ++i)
            ASSERT_FALSE(CompareRows(m_View.Sort(), rows[i], rows[i - 1])) << "at " << i;
    }

    std::mt19937 m_Random{1};
    ItemView m_View;
};

TEST_F(LongList, IsShownRightWhateverHasChanged) {
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        for (std::size_t changes = Number(3); changes > 0; --changes)
            Change();
        Look();
        ExpectRight();
    }
}

TEST_F(LongList, ShowsAnotherListInItsOrder) {
    VMRD_DB other;
    for (std::size_t i = 0; i < kItems; ++i) {
        VMRD_Item item;
        item.m_Name = NewName();
        AddItemCopy(other, item, nullptr);
    }
    const int sort = SortAZ;
    m_View.SetView(&sort, nullptr);
    m_View.SetSource(&other);
    m_View.Refresh();
    ASSERT_EQ(m_View.Rows().size(), kItems);
    for (std::size_t i = 1; i < kItems; ++i)
        EXPECT_FALSE(CompareRows(SortAZ, m_View.Rows()[i], m_View.Rows()[i - 1]));
    m_View.SetSource(&db);
    m_View.Refresh();
    ExpectRight();
}

TEST_F(LongList, ShowsARenamedItemInItsNewPlace) {
    const int sort = SortAZ;
    m_View.SetView(&sort, nullptr);
    ItemElement* item = Any();
    item->m_Name = u"zzzz";
    m_View.Refresh();
    EXPECT_EQ(m_View.Rows().back().m_data, item);
    const int reversed = SortZA;
    m_View.SetView(&reversed, nullptr);
    EXPECT_EQ(m_View.Rows().front().m_data, item);
    item->m_Name = u"";
    m_View.Refresh();
    EXPECT_FALSE(CompareRows(SortZA, m_View.Rows().back(), ViewRow{item}));
}

TEST_F(LongList, IsInOrderWithoutMemoryForSortKeys) {
    for (const int sort : {int{SortAZ}, int{SortZA}}) {
        platform::OrderFault(platform::FaultPoint::AllocateZeroed, 0, 0, 1000);
        m_View.SetView(&sort, nullptr);
        platform::ClearFaults();
        ExpectRight();
    }
}

TEST_F(LongList, IsShownRightWhileASearchNarrowsIt) {
    for (const int sort : {int{SortAZ}, int{SortZA}}) {
        m_View.SetView(&sort, nullptr);
        for (const char16_t* typed : {u"", u"a", u"a1", u"a", u"", u" ", u"9"}) {
            const tvstring text = typed;
            m_View.SetView(nullptr, &text);
            ExpectRight();
        }
    }
}

}  // namespace
