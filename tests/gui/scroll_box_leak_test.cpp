// Scroll boxes leave nothing behind: when they come and go with their controls, with scrolling, and when the
// theme changes.
#include "tests/gui/growth.h"
#include "tests/gui/scroll_box_stage.h"

namespace {

constexpr int kRounds = 500;

void ExpectNothingLeft(const Growth& growth) {
    constexpr long long kSlack = 8;  // objects, far below one a round
    EXPECT_LE(growth.gdiObjects, kSlack);
    EXPECT_LE(growth.userObjects, kSlack);
    EXPECT_LE(growth.heapBytes, 8LL * kRounds);
}

class ScrollBoxLeak : public testing::Test {
protected:
    ScrollBoxLeak() {
        UseTheme(kDark);
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kBefore, 5, 5, 80, 12);
        m_Dialog.Open();
    }
    [[nodiscard]] HWND Make(const wchar_t* className, DWORD style) const {
        return CreateWindowExW(WS_EX_CLIENTEDGE, className, L"", WS_CHILD | WS_VISIBLE | style, 10, 60, 120,
                               80, m_Dialog.Handle(), reinterpret_cast<HMENU>(INT_PTR{kHosted}), nullptr,
                               nullptr);
    }
    KeepTheme m_Keep;
    TestDialog m_Dialog;
};

TEST_F(ScrollBoxLeak, IsNoneOfBoxesThatComeAndGo) {
    ExpectNothingLeft(GrowthOver(kRounds, [this] {
        tvEdit edit;
        edit.SubclassWindow(Make(L"EDIT", kLinesStyle));
        ASSERT_TRUE(edit.m_scrollBox.IsActive());
        UpdateWindow(edit.m_scrollBox.Handle());
        UpdateWindow(edit.Handle());
        PumpQueue();
    }));
}

TEST_F(ScrollBoxLeak, IsNoneOfBoxesOfListsThatComeAndGo) {
    ExpectNothingLeft(GrowthOver(kRounds, [this] {
        tvMListBox list;
        list.SubclassWindow(Make(L"LISTBOX", kListStyle));
        {
            const tvMListBox::Bulk bulk(list);
            for (int i = 0; i < 8; ++i)
                list.AddItem(u"A row");
        }
        UpdateWindow(list.m_scrollBox.Handle());
        UpdateWindow(list.Handle());
        PumpQueue();
    }));
}

TEST_F(ScrollBoxLeak, IsNoneOfScrollingAndOfChangesOfTheTheme) {
    tvMListBox list;
    list.SubclassWindow(Make(L"LISTBOX", kListStyle));
    for (int i = 0; i < 40; ++i)
        list.AddItem(u"A row");
    constexpr std::u16string_view kThemes[] = {kSystem, kDark, u"Blue", kSystem, kLight};
    std::size_t round = 0;
    ExpectNothingLeft(GrowthOver(kRounds, [&] {
        UseTheme(kThemes[round % 5], m_Dialog.Handle());
        list.Send(WM_VSCROLL, round++ % 2 == 0 ? SB_BOTTOM : SB_TOP);
        Settle(m_Dialog.Handle());
    }));
}

}  // namespace
