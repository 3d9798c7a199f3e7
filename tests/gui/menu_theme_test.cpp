// How menus follow the theme and its font.
#include "tests/gui/menu_harness.h"

namespace {

// A font that differs in its height from the theme's, which comes back at the end.
class OtherFont {
public:
    OtherFont() {
        GetObjectW(TheTheme().Font(), sizeof m_Old, &m_Old);
        LOGFONTW changed = m_Old;
        changed.lfHeight *= 2;
        TheTheme().SetFont(changed, 1.45F);
    }
    ~OtherFont() { TheTheme().SetFont(m_Old, 1.45F); }
    OtherFont(const OtherFont&) = delete;
    OtherFont& operator=(const OtherFont&) = delete;

private:
    LOGFONTW m_Old{};
};

TEST_F(MenuTest, IsMadeAnewForSystemDefaultAndKeepsItsRows) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    menu.EnableItem(kOpen, false);
    menu.CheckItem(kSave, true);
    menu.CheckItem(kDeep, true);
    SetMenuDefaultItem(menu.Handle(), kSave, FALSE);
    const HMENU old = menu.Handle();
    const HMENU oldSub = menu.GetSubMenu(2)->Handle();
    UseTheme(u"System Default");
    EXPECT_NE(menu.Handle(), old);
    EXPECT_EQ(IsMenu(old), FALSE);
    EXPECT_EQ(IsMenu(oldSub), FALSE);
    EXPECT_EQ(tvMenu::FromHandle(old), nullptr);
    EXPECT_EQ(tvMenu::FromHandle(menu.Handle()), &menu);
    EXPECT_EQ(menu.m_attached, 0);
    ASSERT_EQ(menu.GetItemCount(), 4);
    EXPECT_EQ(menu.GetItemText(0), u"&Open...\tCtrl+O");
    EXPECT_EQ(menu.GetItemText(2), u"&More");
    EXPECT_EQ(RowAt(menu.Handle(), 0).wID, kOpen);
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_STRING});
    EXPECT_EQ(RowAt(menu.Handle(), 0).fState, UINT{MFS_GRAYED});
    EXPECT_EQ(RowAt(menu.Handle(), 1).fType, UINT{MFT_SEPARATOR});
    EXPECT_EQ(RowAt(menu.Handle(), 3).fState, UINT{MFS_CHECKED | MFS_DEFAULT});
    tvMenu* below = menu.GetSubMenu(2);
    ASSERT_NE(below, nullptr);
    EXPECT_EQ(below->GetItemText(0), u"Deep");
    EXPECT_EQ(RowAt(below->Handle(), 0).wID, kDeep);
    EXPECT_EQ(RowAt(below->Handle(), 0).fState, UINT{MFS_CHECKED});
    EXPECT_EQ(RowAt(below->Handle(), 0).fType, UINT{MFT_STRING});
    EXPECT_EQ(BackOf(menu.Handle()), nullptr);
    EXPECT_EQ(BackOf(below->Handle()), nullptr);
}

TEST_F(MenuTest, KeepsWhatElseARowCarries) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    MENUITEMINFOW extra = MenuItemInfo(MIIM_DATA | MIIM_BITMAP);
    extra.dwItemData = 4711;
    extra.hbmpItem = HBMMENU_POPUP_CLOSE;
    ASSERT_TRUE(WriteMenuItem(menu.Handle(), kOpen, ItemBy::Id, extra));
    menu.EnableItem(RowAt(menu.Handle(), 2).wID, false);
    UseTheme(u"System Default");
    EXPECT_EQ(RowAt(menu.Handle(), 0).dwItemData, 4711U);
    EXPECT_EQ(RowAt(menu.Handle(), 0).hbmpItem, HBMMENU_POPUP_CLOSE);
    EXPECT_EQ(RowAt(menu.Handle(), 3).dwItemData, 0U);
    EXPECT_EQ(RowAt(menu.Handle(), 3).hbmpItem, nullptr);
    EXPECT_EQ(RowAt(menu.Handle(), 2).fState, UINT{MFS_GRAYED}) << "of the row with the submenu";
}

TEST_F(MenuTest, ABarThatIsMadeAnewIsSetOnItsWindowAgain) {
    TestDialog dialog;
    dialog.Open();
    tvMenu bar;
    bar.CreateMenu();
    bar.AddPopup(u"File")->AddItem(kOpen, u"Open");
    ASSERT_TRUE(bar.SetAsBar(dialog.Handle()));
    const HMENU old = bar.Handle();
    UseTheme(u"System Default", dialog.Handle());
    EXPECT_NE(bar.Handle(), old);
    EXPECT_EQ(GetMenu(dialog.Handle()), bar.Handle());
    EXPECT_EQ(TheMenuMap().OwnerOf(bar.Handle()), dialog.Handle());
    EXPECT_EQ(TheMenuMap().OwnerOf(old), nullptr);
    EXPECT_TRUE(bar.GetSubMenu(0)->HasItem(kOpen));
    UseTheme(u"Blue", dialog.Handle());
    EXPECT_TRUE(IsOwnerDrawnAt(bar.Handle(), 0));
    EXPECT_TRUE(IsOwnerDrawnAt(bar.GetSubMenu(0)->Handle(), 0));
}

// The rest of the bar has the colours of the theme.
TEST_F(MenuTest, ABarOfPlainRowsIsDrawnAnewWithTheTheme) {
    class CountingDialog : public TestDialog {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_NCPAINT) ++m_frames;
            return TestDialog::WindowProc(message, wParam, lParam);
        }
        int m_frames = 0;
    };
    CountingDialog dialog;
    dialog.Open();
    tvMenu bar;
    bar.m_plainItems = 1;
    bar.CreateMenu();
    bar.AddItem(kOpen, u"Open");
    ASSERT_TRUE(bar.SetAsBar(dialog.Handle()));
    Settle(dialog.Handle());
    dialog.m_frames = 0;
    TheTheme().Apply(TheTheme().FindTheme(u"Blue"));
    EXPECT_GT(dialog.m_frames, 0);
    EXPECT_FALSE(IsOwnerDrawnAt(bar.Handle(), 0));
}

TEST_F(MenuTest, TakesOnlyANewBackgroundFromAnotherColourTheme) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU before = menu.Handle();
    EXPECT_EQ(BackOf(before), TheTheme().m_baseBrush.Get());
    UseTheme(u"Blue");
    EXPECT_EQ(menu.Handle(), before);
    EXPECT_TRUE(IsOwnerDrawnAt(before, 0));
    EXPECT_EQ(BackOf(before), TheTheme().m_baseBrush.Get());
    EXPECT_EQ(BackOf(menu.GetSubMenu(2)->Handle()), TheTheme().m_baseBrush.Get());
}

TEST_F(MenuTest, BecomesOwnerDrawnUnderAColourThemeWithAllItsSubmenus) {
    UseTheme(u"System Default");
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    menu.CheckItem(kOpen, true);
    menu.GetSubMenu(2)->AddPopup(u"Deeper")->AddItem(77, u"x");
    const HMENU before = menu.Handle();
    UseTheme(u"Dark");
    EXPECT_EQ(menu.Handle(), before);
    EXPECT_EQ(RowAt(before, 0).fType, UINT{MFT_OWNERDRAW});
    EXPECT_EQ(RowAt(before, 0).fState, UINT{MFS_CHECKED});
    EXPECT_EQ(RowAt(before, 1).fType, UINT{MFT_OWNERDRAW | MFT_SEPARATOR});
    EXPECT_EQ(menu.GetItemText(0), u"&Open...\tCtrl+O");
    tvMenu* below = menu.GetSubMenu(2);
    EXPECT_TRUE(IsOwnerDrawnAt(below->Handle(), 0));
    EXPECT_TRUE(IsOwnerDrawnAt(below->GetSubMenu(1)->Handle(), 0));
    EXPECT_EQ(BackOf(below->Handle()), TheTheme().m_baseBrush.Get());
}

TEST_F(MenuTest, PassesOverRowsThatAreRightWithoutLookingBelow) {
    UseTheme(u"System Default");
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    MENUITEMINFOW right = MenuItemInfo(MIIM_FTYPE);
    right.fType = MFT_OWNERDRAW;
    ASSERT_TRUE(WriteMenuItem(menu.Handle(), 2, ItemBy::Position, right));
    UseTheme(u"Dark");
    EXPECT_TRUE(IsOwnerDrawnAt(menu.Handle(), 3));
    EXPECT_FALSE(IsOwnerDrawnAt(menu.GetSubMenu(2)->Handle(), 0));
}

TEST_F(MenuTest, APlainMenuNeverChanges) {
    tvMenu menu;
    menu.m_plainItems = 1;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU before = menu.Handle();
    UseTheme(u"System Default");
    UseTheme(u"Blue");
    EXPECT_EQ(menu.Handle(), before);
    EXPECT_FALSE(IsOwnerDrawnAt(before, 0));
    EXPECT_EQ(BackOf(before), nullptr);
}

TEST_F(MenuTest, AnEmptyMenuLosesTheBackgroundOfTheFormerTheme) {
    tvMenu menu;
    menu.CreatePopup();
    const HMENU before = menu.Handle();
    EXPECT_EQ(BackOf(before), TheTheme().m_baseBrush.Get());
    UseTheme(u"System Default");
    EXPECT_EQ(menu.Handle(), before);
    EXPECT_EQ(BackOf(before), nullptr);
}

// A submenu that somebody else has destroyed cannot be copied.
TEST_F(MenuTest, KeepsTheOldMenuIfItCannotBeCopied) {
    const std::size_t before = TheMenuMap().Count();
    tvMenu menu;
    menu.CreatePopup();
    menu.AddItem(kOpen, u"Open");
    const HMENU submenu = ::CreatePopupMenu();
    menu.AddItem(0, u"Sub", submenu);
    menu.AddPopup(u"Copied before it fails");
    const HMENU handle = menu.Handle();
    DestroyMenu(submenu);
    UseTheme(u"System Default");
    EXPECT_EQ(menu.Handle(), handle);
    EXPECT_EQ(tvMenu::FromHandle(handle), &menu);
    EXPECT_EQ(menu.GetItemText(0), u"Open");
    EXPECT_EQ(BackOf(handle), nullptr) << "the brush is no more";
    menu.Detach(tvMenu::Menu::Destroy);
    EXPECT_EQ(TheMenuMap().Count(), before);
}

TEST_F(MenuTest, IsMadeAnewForAnotherFontUnderAColourTheme) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU before = menu.Handle();
    const int height = menu.GetRowHeight();
    const OtherFont other;
    EXPECT_NE(menu.Handle(), before);
    EXPECT_GT(menu.GetRowHeight(), height);
    EXPECT_TRUE(IsOwnerDrawnAt(menu.Handle(), 0));
    EXPECT_TRUE(IsOwnerDrawnAt(menu.GetSubMenu(2)->Handle(), 0));
    EXPECT_EQ(menu.GetItemText(0), u"&Open...\tCtrl+O");
    EXPECT_EQ(BackOf(menu.Handle()), TheTheme().m_baseBrush.Get());
}

TEST_F(MenuTest, IsLeftAloneIfTheFontIsTheSame) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU before = menu.Handle();
    LOGFONTW same{};
    GetObjectW(TheTheme().Font(), sizeof same, &same);
    TheTheme().SetFont(same, 1.45F);
    EXPECT_EQ(menu.Handle(), before);
}

TEST_F(MenuTest, IsLeftAloneByAnotherFontUnderSystemDefault) {
    UseTheme(u"System Default");
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU before = menu.Handle();
    const OtherFont other;
    EXPECT_EQ(menu.Handle(), before);
}

// What a menu holds comes and goes with each change; nothing may stay.
TEST_F(MenuTest, LosesNothingWhenItIsMadeAnew500Times) {
    const auto rounds = [] {
        tvMenu menu;
        menu.CreatePopup();
        FillMenu(menu);
        LOGFONTW font{};
        GetObjectW(TheTheme().Font(), sizeof font, &font);
        for (int i = 0; i < 250; ++i) {
            menu.CreatePopup();
            FillMenu(menu);
            font.lfHeight += i % 2 == 0 ? 1 : -1;
            TheTheme().SetFont(font, 1.45F);
        }
        return TheMenuMap().Count();
    };
    const std::size_t wrappers = rounds();
    const Holdings before = WhatIsHeld();
    EXPECT_EQ(rounds(), wrappers);
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_LE(after.heapBytes, before.heapBytes + 4096);
}

TEST_F(MenuTest, LosesNothingWhenTheThemeChanges500Times) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const auto rounds = [] {
        for (int i = 0; i < 250; ++i) {
            TheTheme().Apply(TheTheme().FindTheme(u"System Default"));
            TheTheme().Apply(i % 3);
        }
    };
    rounds();
    const std::size_t wrappers = TheMenuMap().Count();
    const Holdings before = WhatIsHeld();
    rounds();
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(TheMenuMap().Count(), wrappers);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_LE(after.heapBytes, before.heapBytes + 4096);
}

}  // namespace
