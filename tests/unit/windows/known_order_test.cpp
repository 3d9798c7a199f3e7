#include "windows/known_order.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

#include "foundation/conversion.h"

namespace {

class KnownOrderTest : public testing::Test {
protected:
    KnownOrderTest() {
        for (const char16_t* name : {u"c", u"a", u"e", u"b", u"d"}) {
            VMRD_Item& item = m_Items.emplace_back();
            item.m_Name = name;
            m_Rows.push_back({&item});
        }
        Learn();
    }

    void Learn() { m_Order.Learn(m_Rows, OrderByText(m_Rows)); }
    void Rename(std::size_t row, const tvstring& name) { m_Items[row].m_Name = name; }

    // The rows at these places after they were put in order; empty if they could not be.
    std::string Sorted(std::initializer_list<std::size_t> places) {
        std::vector<ViewRow> rows;
        for (const std::size_t place : places)
            rows.push_back(m_Rows[place]);
        const std::vector<ViewRow> before = rows;
        const bool sorted = m_Order.Sort(rows);
        EXPECT_EQ(rows.size(), before.size());
        std::string names;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_TRUE(sorted || rows[i].m_data == before[i].m_data);
            names.append(std::string_view(ToUtf8(ElementText(rows[i].m_data))));
        }
        return sorted ? names : "";
    }

    std::deque<VMRD_Item> m_Items;
    std::vector<ViewRow> m_Rows;
    KnownOrder m_Order;
};

TEST_F(KnownOrderTest, PutsAllRowsInOrder) {
    EXPECT_EQ(Sorted({0, 1, 2, 3, 4}), "abcde");
}

TEST_F(KnownOrderTest, PutsSomeOfTheRowsInOrder) {
    EXPECT_EQ(Sorted({0, 1, 4}), "acd");
    EXPECT_EQ(Sorted({2, 3}), "be");
    EXPECT_EQ(Sorted({4}), "d");
}

TEST_F(KnownOrderTest, TakesTheSelectionAlong) {
    m_Rows[2].selected = true;
    std::vector<ViewRow> rows = m_Rows;
    ASSERT_TRUE(m_Order.Sort(rows));
    for (const ViewRow& row : rows)
        EXPECT_EQ(row.selected, row.m_data == &m_Items[2]);
}

TEST_F(KnownOrderTest, ServesNoneWhoseTextHasChanged) {
    Rename(3, u"bb");
    EXPECT_EQ(Sorted({0, 3}), "");
    EXPECT_EQ(Sorted({0, 1, 2, 3, 4}), "");
    EXPECT_EQ(Sorted({0, 1}), "ac");
    Rename(3, u"b");
    EXPECT_EQ(Sorted({0, 3}), "bc");
}

TEST_F(KnownOrderTest, SeesAChangeAnywhereInALongText) {
    const tvstring text(21, u'x');
    Rename(0, text);
    Learn();
    EXPECT_EQ(Sorted({0, 1}), "a" + std::string(21, 'x'));
    for (std::size_t place = 0; place < text.size(); ++place) {
        tvstring changed = text;
        changed[place] = u'y';
        Rename(0, changed);
        EXPECT_EQ(Sorted({0, 1}), "") << place;
    }
    Rename(0, text + u"x");
    EXPECT_EQ(Sorted({0, 1}), "");
    Rename(0, text.substr(1));
    EXPECT_EQ(Sorted({0, 1}), "");
}

TEST_F(KnownOrderTest, SeesAZeroUnitMoreOrLess) {
    Rename(0, tvstring(u"c\0", 2));
    EXPECT_EQ(Sorted({0, 1}), "");
    Rename(0, u"");
    Learn();
    Rename(0, tvstring(1, u'\0'));
    EXPECT_EQ(Sorted({0, 1}), "");
}

TEST_F(KnownOrderTest, ServesNoRowThatIsNew) {
    m_Rows.push_back({&m_Items.emplace_back()});
    EXPECT_EQ(Sorted({0, 5}), "");
    EXPECT_EQ(Sorted({5}), "");
    EXPECT_EQ(Sorted({0, 1}), "ac");
}

TEST_F(KnownOrderTest, ServesNoRowsThatHaveChangedPlaces) {
    EXPECT_EQ(Sorted({1, 0}), "");
}

TEST_F(KnownOrderTest, IsForgotten) {
    m_Order.Forget();
    EXPECT_EQ(Sorted({0, 1}), "");
}

TEST_F(KnownOrderTest, IsNoneAtFirst) {
    KnownOrder fresh;
    std::vector<ViewRow> rows = m_Rows;
    EXPECT_FALSE(fresh.Sort(rows));
}

TEST_F(KnownOrderTest, IsTheLastThatWasLearned) {
    Rename(0, u"z");
    Learn();
    EXPECT_EQ(Sorted({0, 1, 2, 3, 4}), "abdez");
    const std::vector<ViewRow> fewer(m_Rows.begin(), m_Rows.begin() + 2);
    m_Order.Learn(fewer, OrderByText(fewer));
    EXPECT_EQ(Sorted({0, 1}), "az");
    EXPECT_EQ(Sorted({0, 4}), "");
}

}  // namespace
