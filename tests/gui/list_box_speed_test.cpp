// How long a list box takes with many rows. The limits are far above what is needed, and far below what it
// takes when each row is walked to.
#include "tests/gui/list_box_harness.h"

namespace {

constexpr int kMany = 60000;

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

    // Milliseconds.
    template <typename Work>
    static double Time(const char* what, Work work) {
        LARGE_INTEGER start;
        LARGE_INTEGER end;
        LARGE_INTEGER frequency;
        QueryPerformanceCounter(&start);
        work();
        QueryPerformanceCounter(&end);
        QueryPerformanceFrequency(&frequency);
        const double milliseconds = 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) /
                                    static_cast<double>(frequency.QuadPart);
        RecordProperty(what, std::to_string(milliseconds));
        std::printf("%s: %.0f ms\n", what, milliseconds);
        return milliseconds;
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
    EXPECT_LT(Time("fill", [&] { Fill(m_Flat, u""); }), 1500);
    EXPECT_EQ(m_Flat.GetCount(), kMany);
    EXPECT_LT(Time("select all", [&] { m_Flat.SelectAll(); }), 1000);
    EXPECT_EQ(m_Flat.GetSelCount(), kMany);
    EXPECT_LT(Time("invert", [&] { m_Flat.InvertSelection(); }), 1500);
    EXPECT_EQ(m_Flat.GetSelCount(), 0);
    const auto selectEach = [&] {
        const tvMListBox::Bulk bulk(m_Flat);
        for (int row = 0; row < kMany; ++row)
            m_Flat.SetSel(row, true);
    };
    EXPECT_LT(Time("select each", selectEach), 1500);
    EXPECT_EQ(m_Flat.GetSelCount(), kMany);
    EXPECT_LT(Time("delete", [&] { m_Flat.DeleteAll(); }), 1500);
}

TEST_F(ListSpeed, RowsWithTextsAndNotes) {
    EXPECT_LT(Time("fill", [&] { Fill(m_List, u"A text as names have it\tA note"); }), 2000);
    EXPECT_LT(Time("find all", [&] { m_List.FindItem(u"names", FIND_ALL, false); }), 2000);
    EXPECT_EQ(m_List.GetSelCount(), kMany);
    const auto paint = [&] {
        for (int row = 0; row < kMany; row += kMany / 50) {
            m_List.Send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
            Settle(Window());
        }
    };
    EXPECT_LT(Time("50 pictures", paint), 2000);
    const auto setFont = [&] {
        m_List.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    };
    EXPECT_LT(Time("another font", setFont), 2000);
}

}  // namespace
