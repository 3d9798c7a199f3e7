// How long a list box takes with many rows. The limits are far above what is needed, and far below what it
// takes when each row is walked to.
#include "tests/gui/list_box_harness.h"
#include "tests/gui/timing.h"

namespace {

constexpr int kMany = 60000;
// Milliseconds on a busy machine. What grows with the square of the rows takes twenty seconds and more.
constexpr double kLimit = 4000;

// Rows whose height does not depend on their texts.
class FlatList : public tvMListBox {
public:
    int CalcItemHeight(int) override { return 20; }
};

class ListSpeed : public MultiListTest {
protected:
    ListSpeed() {
        m_Large.Add(ATOM_LISTBOX, kListId, 5, 5, 160, 90, kMultiple);
        m_Large.Wrap(m_Flat, kListId);
        m_Large.Open();
    }

    static void Fill(tvMListBox& list, const tvstring& text) {
        const tvMListBox::Bulk bulk(list);
        for (int i = 0; i < kMany; ++i)
            list.AddItem(text, 0, -1, false, i);
    }

    FlatList m_Flat;
    TestDialog m_Large;
};

TEST_F(ListSpeed, RowsWithoutTexts) {
    EXPECT_LT(TimeOf("fill", [&] { Fill(m_Flat, u""); }), kLimit);
    EXPECT_EQ(m_Flat.GetCount(), kMany);
    EXPECT_LT(TimeOf("select all", [&] { m_Flat.SelectAll(); }), kLimit);
    EXPECT_EQ(m_Flat.GetSelCount(), kMany);
    EXPECT_LT(TimeOf("invert", [&] { m_Flat.InvertSelection(); }), kLimit);
    EXPECT_EQ(m_Flat.GetSelCount(), 0);
    const auto selectEach = [&] {
        const tvMListBox::Bulk bulk(m_Flat);
        for (int row = 0; row < kMany; ++row)
            m_Flat.SetSel(row, true);
    };
    EXPECT_LT(TimeOf("select each", selectEach), kLimit);
    EXPECT_EQ(m_Flat.GetSelCount(), kMany);
    EXPECT_LT(TimeOf("delete", [&] { m_Flat.DeleteAll(); }), kLimit);
}

TEST_F(ListSpeed, RowsWithTextsAndNotes) {
    EXPECT_LT(TimeOf("fill", [&] { Fill(m_List, u"A text as names have it\tA note"); }), kLimit);
    EXPECT_LT(TimeOf("find all", [&] { m_List.FindItem(u"names", FIND_ALL, false); }), kLimit);
    EXPECT_EQ(m_List.GetSelCount(), kMany);
    const auto paint = [&] {
        for (int row = 0; row < kMany; row += kMany / 50) {
            m_List.Send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
            Settle(Window());
        }
    };
    EXPECT_LT(TimeOf("50 pictures", paint), kLimit);
    const auto setFont = [&] {
        m_List.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    };
    EXPECT_LT(TimeOf("another font", setFont), kLimit);
}

}  // namespace
