#include "windows/sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <deque>
#include <limits>
#include <random>
#include <set>
#include <string>

#include "foundation/conversion.h"
#include "foundation/textops.h"
#include "platform/fault.h"

namespace {

using Random = std::mt19937;

constexpr std::array kModes = {int{SortAZ}, int{SortZA}, int{SortNewOld}, int{SortOldNew}};
constexpr std::array kNoModes = {
    int{SortNone}, -1, 5, 7, 255, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};

// Items that rows point at, which no list owns.
class Sort : public testing::Test {
protected:
    ~Sort() override { platform::ClearFaults(); }

    ViewRow Row(const tvstring& name, u64 date = 0) {
        VMRD_Item& item = m_Items.emplace_back();
        item.m_Name = name;
        item.m_Date = date;
        return {&item};
    }
    ViewRow EntryRow(const tvstring& text) { return {&m_Entries.emplace_back(VMRD_T_ADDITION, text)}; }

    // Rows with names of few letters and digits and with few dates, so that there are many ties.
    std::vector<ViewRow> RandomRows(std::size_t count, unsigned seed) {
        Random random(seed);
        const std::u16string_view units = u"aAbB\u00E9 -109";
        std::vector<ViewRow> rows;
        for (std::size_t i = 0; i < count; ++i) {
            std::u16string name;
            for (std::size_t size = random() % 4; size > 0; --size)
                name += units[random() % units.size()];
            rows.push_back(Row(name, random() % (count / 4)));
        }
        return rows;
    }

private:
    std::deque<VMRD_Item> m_Items;
    std::deque<VMRD_Entry> m_Entries;
};

std::string NamesOf(const std::vector<ViewRow>& rows) {
    std::string names;
    for (const ViewRow& row : rows)
        names.append("[").append(std::string_view(ToUtf8(ElementText(row.m_data)))).append("]");
    return names;
}

std::vector<const VMRD_Element*> ElementsOf(const std::vector<ViewRow>& rows) {
    std::vector<const VMRD_Element*> elements;
    elements.reserve(rows.size());
    for (const ViewRow& row : rows)
        elements.push_back(row.m_data);
    return elements;
}

std::multiset<const VMRD_Element*> SetOf(const std::vector<ViewRow>& rows) {
    const auto elements = ElementsOf(rows);
    return {elements.begin(), elements.end()};
}

void SortStably(int mode, std::vector<ViewRow>& rows) {
    std::stable_sort(rows.begin(), rows.end(),
                     [mode](const ViewRow& a, const ViewRow& b) { return CompareRows(mode, a, b); });
}

// The rows are those of `unsorted`, and each is a tie with the one that a stable sort puts in its place.
void ExpectSorted(int mode, const std::vector<ViewRow>& rows, std::vector<ViewRow> unsorted) {
    EXPECT_EQ(SetOf(rows), SetOf(unsorted));
    ASSERT_EQ(rows.size(), unsorted.size());
    SortStably(mode, unsorted);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ASSERT_FALSE(CompareRows(mode, rows[i], unsorted[i])) << mode << " at " << i;
        ASSERT_FALSE(CompareRows(mode, unsorted[i], rows[i])) << mode << " at " << i;
    }
}

// --- Modes ---

TEST(SortMode, HasTheNumbersOfTheChoicesAsItsValues) {
    EXPECT_EQ(SortNone, 0);
    EXPECT_EQ(SortAZ, 1);
    EXPECT_EQ(SortZA, 2);
    EXPECT_EQ(SortNewOld, 3);
    EXPECT_EQ(SortOldNew, 4);
}

TEST(SortMode, ReadsAsNoneOutsideOfItsValues) {
    for (int mode = SortNone; mode <= SortOldNew; ++mode)
        EXPECT_EQ(SortModeOf(mode), mode);
    for (const int value : kNoModes)
        EXPECT_EQ(SortModeOf(value), SortNone) << value;
}

// --- Two rows ---

TEST_F(Sort, ByTextGoesByTheNameOfAnItem) {
    const ViewRow a = Row(u"alpha", 9);
    const ViewRow b = Row(u"Beta", 1);
    EXPECT_TRUE(CompareRows(SortAZ, a, b));
    EXPECT_FALSE(CompareRows(SortAZ, b, a));
    EXPECT_FALSE(CompareRows(SortZA, a, b));
    EXPECT_TRUE(CompareRows(SortZA, b, a));
}

TEST_F(Sort, ByTextGoesByTheTextOfAnEntry) {
    const ViewRow a = EntryRow(u"alpha");
    const ViewRow b = EntryRow(u"Beta");
    EXPECT_TRUE(CompareRows(SortAZ, a, b));
    EXPECT_TRUE(CompareRows(SortZA, b, a));
}

TEST_F(Sort, ByTextNeverGoesByTheOneLineForm) {
    const ViewRow a = Row(u"alpha");
    const ViewRow b = Row(u"beta");
    static_cast<VMRD_Item*>(a.m_data)->m_Display = u"zzz";
    static_cast<VMRD_Item*>(b.m_data)->m_Display = u"aaa";
    EXPECT_TRUE(CompareRows(SortAZ, a, b));
    EXPECT_FALSE(CompareRows(SortAZ, b, a));
}

TEST_F(Sort, ByTextTakesDigitsAsNumbers) {
    EXPECT_TRUE(CompareRows(SortAZ, Row(u"Item 9"), Row(u"Item 10")));
    EXPECT_FALSE(CompareRows(SortAZ, Row(u"Item 10"), Row(u"Item 9")));
    EXPECT_TRUE(CompareRows(SortZA, Row(u"Item 10"), Row(u"Item 9")));
}

TEST_F(Sort, ByTextTakesBothCasesAsTies) {
    for (const int mode : {SortAZ, SortZA}) {
        EXPECT_FALSE(CompareRows(mode, Row(u"item 1"), Row(u"ITEM 1")));
        EXPECT_FALSE(CompareRows(mode, Row(u"ITEM 1"), Row(u"item 1")));
    }
}

TEST_F(Sort, ByTimeGoesByTheDate) {
    const ViewRow old = Row(u"a", 1);
    const ViewRow recent = Row(u"b", 0xFFFF'FFFF'FFFF'FFFF);
    EXPECT_TRUE(CompareRows(SortNewOld, recent, old));
    EXPECT_FALSE(CompareRows(SortNewOld, old, recent));
    EXPECT_TRUE(CompareRows(SortOldNew, old, recent));
    EXPECT_FALSE(CompareRows(SortOldNew, recent, old));
}

TEST_F(Sort, ByTimeGoesByAll64Bits) {
    const ViewRow old = Row(u"a", 0xFFFF'FFFF);
    const ViewRow recent = Row(u"b", 0x1'0000'0000);
    EXPECT_TRUE(CompareRows(SortOldNew, old, recent));
    EXPECT_FALSE(CompareRows(SortOldNew, recent, old));
    EXPECT_TRUE(CompareRows(SortNewOld, recent, old));
    EXPECT_FALSE(CompareRows(SortNewOld, old, recent));
}

TEST_F(Sort, ByTimeTakesAnEntryAsTheOldest) {
    const ViewRow entry = EntryRow(u"a");
    const ViewRow item = Row(u"b", 1);
    EXPECT_TRUE(CompareRows(SortOldNew, entry, item));
    EXPECT_TRUE(CompareRows(SortNewOld, item, entry));
    EXPECT_FALSE(CompareRows(SortOldNew, entry, EntryRow(u"b")));
}

TEST_F(Sort, HasNoSecondKey) {
    EXPECT_FALSE(CompareRows(SortAZ, Row(u"a", 1), Row(u"a", 2)));
    EXPECT_FALSE(CompareRows(SortAZ, Row(u"a", 2), Row(u"a", 1)));
    EXPECT_FALSE(CompareRows(SortNewOld, Row(u"a", 1), Row(u"b", 1)));
    EXPECT_FALSE(CompareRows(SortOldNew, Row(u"b", 1), Row(u"a", 1)));
}

TEST_F(Sort, PutsNothingBeforeAnythingInAnyOtherMode) {
    const ViewRow a = Row(u"a", 1);
    const ViewRow b = Row(u"b", 2);
    for (const int mode : kNoModes) {
        EXPECT_FALSE(CompareRows(mode, a, b)) << mode;
        EXPECT_FALSE(CompareRows(mode, b, a)) << mode;
    }
}

// --- Many rows ---

TEST_F(Sort, PutsFewRowsInOrder) {
    std::vector<ViewRow> rows = {Row(u"item 10", 3), Row(u"Beta", 1), Row(u"alpha", 4), Row(u"Item 9", 2)};
    SortRows(SortAZ, rows);
    EXPECT_EQ(NamesOf(rows), "[alpha][Beta][Item 9][item 10]");
    SortRows(SortZA, rows);
    EXPECT_EQ(NamesOf(rows), "[item 10][Item 9][Beta][alpha]");
    SortRows(SortNewOld, rows);
    EXPECT_EQ(NamesOf(rows), "[alpha][item 10][Item 9][Beta]");
    SortRows(SortOldNew, rows);
    EXPECT_EQ(NamesOf(rows), "[Beta][Item 9][item 10][alpha]");
}

TEST_F(Sort, LeavesTheRowsInAnyOtherMode) {
    for (const std::size_t count : {5U, 200U}) {
        const std::vector<ViewRow> rows = RandomRows(count, 1);
        for (const int mode : kNoModes) {
            std::vector<ViewRow> sorted = rows;
            SortRows(mode, sorted);
            EXPECT_EQ(ElementsOf(sorted), ElementsOf(rows)) << mode;
        }
    }
}

TEST_F(Sort, TakesNoRowsAndOne) {
    for (const int mode : kModes) {
        std::vector<ViewRow> none;
        SortRows(mode, none);
        EXPECT_TRUE(none.empty());
        std::vector<ViewRow> one = {Row(u"one")};
        SortRows(mode, one);
        EXPECT_EQ(NamesOf(one), "[one]");
    }
}

TEST_F(Sort, KeepsTiesInTheirOrderUpTo32Rows) {
    for (std::size_t count = 4; count <= 32; ++count) {
        const std::vector<ViewRow> rows = RandomRows(count, static_cast<unsigned>(count));
        for (const int mode : kModes) {
            std::vector<ViewRow> sorted = rows;
            std::vector<ViewRow> expected = rows;
            SortRows(mode, sorted);
            SortStably(mode, expected);
            EXPECT_EQ(ElementsOf(sorted), ElementsOf(expected)) << count << " rows in mode " << mode;
        }
    }
}

TEST_F(Sort, Keeps32RowsOfOneDateInTheirOrder) {
    std::vector<ViewRow> rows;
    for (int i = 0; i < 32; ++i)
        rows.push_back(Row(u"z", 7));
    for (const int mode : kModes) {
        std::vector<ViewRow> sorted = rows;
        SortRows(mode, sorted);
        EXPECT_EQ(ElementsOf(sorted), ElementsOf(rows));
    }
}

TEST_F(Sort, PutsAnyNumberOfRowsInOrder) {
    for (const std::size_t count : {31U, 32U, 33U, 34U, 64U, 100U, 333U, 700U}) {
        const std::vector<ViewRow> rows = RandomRows(count, static_cast<unsigned>(count));
        for (const int mode : kModes) {
            std::vector<ViewRow> sorted = rows;
            SortRows(mode, sorted);
            ExpectSorted(mode, sorted, rows);
        }
    }
}

// Names that differ only behind what fits in a few bytes of a sort key, of very different lengths.
TEST_F(Sort, PutsLongNamesInOrder) {
    Random random(5);
    std::vector<ViewRow> rows;
    for (int i = 0; i < 400; ++i) {
        std::u16string name(random() % 3 == 0 ? 5000 : 40, u'a');
        for (int k = 0; k < 3; ++k)
            name += std::u16string_view(u"ab1\u0436\u6F22")[random() % 5];
        rows.push_back(Row(name));
    }
    for (const int mode : {int{SortAZ}, int{SortZA}}) {
        std::vector<ViewRow> sorted = rows;
        SortRows(mode, sorted);
        ExpectSorted(mode, sorted, rows);
    }
}

TEST_F(Sort, PutsDatesOf64BitsInOrder) {
    Random random(12);
    std::vector<ViewRow> rows;
    for (int i = 0; i < 100; ++i)
        rows.push_back(Row(u"", u64{random()} << 32 | random()));
    for (const int mode : {int{SortNewOld}, int{SortOldNew}}) {
        std::vector<ViewRow> sorted = rows;
        SortRows(mode, sorted);
        ExpectSorted(mode, sorted, rows);
    }
}

TEST_F(Sort, PutsManyEntriesInOrder) {
    Random random(6);
    std::vector<ViewRow> rows;
    for (int i = 0; i < 100; ++i)
        rows.push_back(EntryRow(FormatInt(static_cast<i32>(random() % 1000))));
    std::vector<ViewRow> sorted = rows;
    SortRows(SortAZ, sorted);
    ExpectSorted(SortAZ, sorted, rows);
}

TEST_F(Sort, SortsWhatIsSortedOrReversedAlready) {
    const std::vector<ViewRow> rows = RandomRows(300, 8);
    for (const int mode : kModes) {
        std::vector<ViewRow> sorted = rows;
        SortRows(mode, sorted);
        SortRows(mode, sorted);
        ExpectSorted(mode, sorted, rows);
        std::reverse(sorted.begin(), sorted.end());
        SortRows(mode, sorted);
        ExpectSorted(mode, sorted, rows);
    }
}

TEST_F(Sort, TakesTheSelectionAlong) {
    for (const std::size_t count : {20U, 200U}) {
        std::vector<ViewRow> rows = RandomRows(count, 9);
        std::set<const VMRD_Element*> selected;
        for (std::size_t i = 0; i < count; i += 3) {
            rows[i].selected = true;
            selected.insert(rows[i].m_data);
        }
        for (const int mode : kModes) {
            SortRows(mode, rows);
            for (const ViewRow& row : rows)
                ASSERT_EQ(row.selected, selected.contains(row.m_data)) << mode;
        }
    }
}

// Without room for sort keys, at once or for the later ones, the names are compared one by one.
TEST_F(Sort, WorksWithoutMemoryForSortKeys) {
    std::vector<ViewRow> rows = RandomRows(400, 10);
    for (const ViewRow& row : RandomRows(400, 11))
        rows.push_back(Row(tvstring(300, u'x') + ElementText(row.m_data)));
    for (const int after : {0, 1}) {
        for (const int mode : {int{SortAZ}, int{SortZA}}) {
            std::vector<ViewRow> sorted = rows;
            platform::OrderFault(platform::FaultPoint::AllocateZeroed, 0, after, 1000);
            SortRows(mode, sorted);
            platform::ClearFaults();
            ExpectSorted(mode, sorted, rows);
        }
    }
}

// --- Orders ---

TEST_F(Sort, ByTextHasAnOrderToPutRowsIn) {
    const std::vector<ViewRow> rows = {Row(u"c"), Row(u"item 10"), Row(u"a"), Row(u"Item 9"), Row(u"B")};
    const std::vector<u32> order = OrderByText(rows);
    EXPECT_EQ(order, (std::vector<u32>{2, 4, 0, 3, 1}));
    std::vector<ViewRow> sorted = rows;
    PutInOrder(sorted, order);
    EXPECT_EQ(NamesOf(sorted), "[a][B][c][Item 9][item 10]");
    EXPECT_TRUE(OrderByText({}).empty());
}

// Their keys have more bytes than they have themselves.
TEST_F(Sort, ByTextHasAnOrderOfVeryLongNames) {
    const tvstring start(40'000, u'\u6F22');
    const std::vector<ViewRow> rows = {Row(start + u"2"), Row(start + u"10"), Row(start), Row(start + u"1")};
    EXPECT_EQ(OrderByText(rows), (std::vector<u32>{2, 3, 0, 1}));
}

TEST_F(Sort, ByTextHasNoOrderWithoutMemoryForSortKeys) {
    const std::vector<ViewRow> rows = RandomRows(100, 13);
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, 0, 0, 1000);
    EXPECT_TRUE(OrderByText(rows).empty());
    platform::ClearFaults();
    EXPECT_EQ(OrderByText(rows).size(), 100U);
}

}  // namespace
