// A menu's handle and its rows.
#include "tests/gui/menu_harness.h"

namespace {

TEST_F(MenuTest, WithoutAHandleAnswersNothing) {
    tvMenu menu;
    EXPECT_FALSE(menu.AddItem(1, u"x"));
    EXPECT_EQ(menu.AddPopup(u"x"), nullptr);
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);
    EXPECT_FALSE(menu.SetItemText(1, u"x"));
    EXPECT_FALSE(menu.EnableItem(1, true));
    EXPECT_FALSE(menu.CheckItem(1, true));
    EXPECT_EQ(menu.GetItemCount(), 0);
    EXPECT_TRUE(menu.GetItemText(0).empty());
    EXPECT_FALSE(menu.HasItem(0));
    EXPECT_EQ(menu.FindOwner(1), nullptr);
    EXPECT_FALSE(tvMenu::IsSubMenuOf(nullptr, nullptr));
    EXPECT_EQ(menu.TrackPopup(0, 0, nullptr, TPM_RETURNCMD), 0);
    EXPECT_FALSE(menu.SetAsBar(nullptr));
    EXPECT_FALSE(menu.IsBar());
    menu.ApplyTheme();
    menu.Detach(tvMenu::Menu::Destroy);
    EXPECT_FALSE(menu.Attach(nullptr, tvMenu::Kind::Owned));
}

TEST_F(MenuTest, IsFoundByItsHandleUntilItIsGone) {
    HMENU handle = nullptr;
    {
        tvMenu menu;
        ASSERT_TRUE(menu.CreatePopup());
        handle = menu.Handle();
        EXPECT_NE(IsMenu(handle), FALSE);
        EXPECT_EQ(tvMenu::FromHandle(handle), &menu);
    }
    EXPECT_EQ(tvMenu::FromHandle(handle), nullptr);
    EXPECT_EQ(IsMenu(handle), FALSE);
    EXPECT_EQ(tvMenu::FromHandle(nullptr), nullptr);
}

TEST_F(MenuTest, LeavesAnAttachedMenuAlone) {
    const tvMenuHandle foreign(::CreatePopupMenu());
    {
        tvMenu menu;
        ASSERT_TRUE(menu.Attach(foreign.Get(), tvMenu::Kind::Attached));
        EXPECT_EQ(tvMenu::FromHandle(foreign.Get()), &menu);
    }
    EXPECT_NE(IsMenu(foreign.Get()), FALSE);
    EXPECT_EQ(tvMenu::FromHandle(foreign.Get()), nullptr);
}

TEST_F(MenuTest, DestroysWhatItHadWhenItTakesAnother) {
    tvMenu menu;
    menu.CreatePopup();
    const HMENU first = menu.Handle();
    FillMenu(menu);
    menu.CreatePopup();
    EXPECT_EQ(IsMenu(first), FALSE);
    EXPECT_EQ(menu.GetItemCount(), 0);
    EXPECT_EQ(tvMenu::FromHandle(menu.Handle()), &menu);
}

TEST_F(MenuTest, TakesItsOwnMenuAgainWithoutHarm) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    ASSERT_TRUE(menu.Attach(menu.Handle(), tvMenu::Kind::Owned));
    EXPECT_EQ(menu.GetItemCount(), 4);
}

TEST_F(MenuTest, KeepsTheMenuWhenItIsOnlyDetached) {
    tvMenu menu;
    menu.CreatePopup();
    const tvMenuHandle handle(menu.Handle());
    menu.m_attached = 1;
    menu.Detach(tvMenu::Menu::Keep);
    EXPECT_NE(IsMenu(handle.Get()), FALSE);
    EXPECT_EQ(menu.Handle(), nullptr);
    EXPECT_EQ(menu.m_attached, 0);
    EXPECT_EQ(tvMenu::FromHandle(handle.Get()), nullptr);
}

TEST_F(MenuTest, DeletesTheWrappersOfItsSubmenus) {
    const std::size_t before = TheMenuMap().Count();
    {
        tvMenu menu;
        menu.CreatePopup();
        tvMenu* first = menu.AddPopup(u"First");
        first->AddPopup(u"Second")->AddItem(1, u"x");
        EXPECT_EQ(TheMenuMap().Count(), before + 3);
    }
    EXPECT_EQ(TheMenuMap().Count(), before);
}

TEST_F(MenuTest, ABarThatWentWithItsWindowLeavesNoWrappers) {
    const std::size_t before = TheMenuMap().Count();
    tvMenu bar;
    {
        TestDialog dialog;
        dialog.Open();
        bar.CreateMenu();
        bar.AddPopup(u"File")->AddItem(1, u"x");
        ASSERT_TRUE(bar.SetAsBar(dialog.Handle()));
        EXPECT_EQ(GetMenu(dialog.Handle()), bar.Handle());
    }
    ASSERT_EQ(IsMenu(bar.Handle()), FALSE);
    bar.Detach(tvMenu::Menu::Destroy);
    EXPECT_EQ(TheMenuMap().Count(), before);
}

TEST_F(MenuTest, AWindowHasOneBar) {
    TestDialog dialog;
    dialog.Open();
    tvMenu first;
    tvMenu second;
    first.CreateMenu();
    second.CreateMenu();
    ASSERT_TRUE(first.SetAsBar(dialog.Handle()));
    ASSERT_TRUE(second.SetAsBar(dialog.Handle()));
    EXPECT_FALSE(first.IsBar());
    EXPECT_TRUE(second.IsBar());
    EXPECT_EQ(TheMenuMap().OwnerOf(second.Handle()), dialog.Handle());
}

// --- Rows ---

TEST_F(MenuTest, AddsOwnerDrawnRowsUnderAColourTheme) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    ASSERT_EQ(menu.GetItemCount(), 4);
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_OWNERDRAW});
    EXPECT_EQ(RowAt(menu.Handle(), 1).fType, UINT{MFT_OWNERDRAW | MFT_SEPARATOR});
    EXPECT_EQ(RowAt(menu.Handle(), 2).fType, UINT{MFT_OWNERDRAW});
    EXPECT_EQ(RowAt(menu.Handle(), 0).wID, kOpen);
    EXPECT_EQ(menu.GetItemText(0), u"&Open...\tCtrl+O");
    EXPECT_TRUE(menu.GetItemText(1).empty());
    EXPECT_EQ(menu.GetItemText(2), u"&More");
    EXPECT_TRUE(menu.GetItemText(4).empty());
    EXPECT_TRUE(menu.GetItemText(-1).empty());
}

TEST_F(MenuTest, AddsPlainRowsUnderSystemDefault) {
    UseTheme(u"System Default");
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_STRING});
    EXPECT_EQ(RowAt(menu.Handle(), 1).fType, UINT{MFT_SEPARATOR});
    EXPECT_FALSE(IsOwnerDrawnAt(menu.GetSubMenu(2)->Handle(), 0));
}

TEST_F(MenuTest, AddsPlainRowsToAPlainMenuAndItsSubmenus) {
    tvMenu menu;
    menu.m_plainItems = 1;
    menu.CreatePopup();
    FillMenu(menu);
    EXPECT_FALSE(IsOwnerDrawnAt(menu.Handle(), 0));
    EXPECT_EQ(menu.GetSubMenu(2)->m_plainItems, 1);
    EXPECT_FALSE(IsOwnerDrawnAt(menu.GetSubMenu(2)->Handle(), 0));
    EXPECT_EQ(BackOf(menu.Handle()), nullptr);
}

TEST_F(MenuTest, AddsAForeignSubmenu) {
    tvMenu menu;
    menu.CreatePopup();
    const HMENU submenu = ::CreatePopupMenu();
    ASSERT_TRUE(menu.AddItem(7, u"Sub", submenu));
    EXPECT_EQ(RowAt(menu.Handle(), 0).hSubMenu, submenu);
    EXPECT_EQ(RowAt(menu.Handle(), 0).wID, 7U);
    tvMenu* wrapper = menu.GetSubMenu(0);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->m_attached, 1);
    EXPECT_EQ(menu.GetSubMenu(0), wrapper);
}

TEST_F(MenuTest, GivesTheWrapperOfTheNewSubmenu) {
    tvMenu menu;
    menu.CreatePopup();
    menu.AddItem(kOpen, u"Open");
    tvMenu* popup = menu.AddPopup(u"More");
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup, menu.GetSubMenu(1));
    EXPECT_EQ(popup->Handle(), ::GetSubMenu(menu.Handle(), 1));
    EXPECT_EQ(popup->m_attached, 1);
    EXPECT_EQ(BackOf(popup->Handle()), TheTheme().m_baseBrush.Get());
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);
    EXPECT_EQ(menu.GetSubMenu(2), nullptr);
}

TEST_F(MenuTest, ChangesTheTextOfARowAnywhereBelow) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    EXPECT_TRUE(menu.SetItemText(kOpen, u"Other"));
    EXPECT_TRUE(menu.SetItemText(kDeep, u"Deeper"));
    EXPECT_FALSE(menu.SetItemText(1, u"x"));
    EXPECT_EQ(menu.GetItemText(0), u"Other");
    EXPECT_EQ(menu.GetSubMenu(2)->GetItemText(0), u"Deeper");
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_OWNERDRAW});
}

TEST_F(MenuTest, EnablesAndDisablesRows) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    EXPECT_TRUE(menu.EnableItem(kOpen, false));
    EXPECT_EQ(RowAt(menu.Handle(), 0).fState, UINT{MF_GRAYED | MF_DISABLED});
    EXPECT_TRUE(menu.EnableItem(kOpen, true));
    EXPECT_EQ(RowAt(menu.Handle(), 0).fState, 0U);
    EXPECT_TRUE(menu.EnableItem(kDeep, false));
    EXPECT_FALSE(menu.EnableItem(1, false));
}

TEST_F(MenuTest, ChecksRowsAndNeverAsRadioButtons) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    MENUITEMINFOW radio = MenuItemInfo(MIIM_FTYPE);
    radio.fType = MFT_OWNERDRAW | MFT_RADIOCHECK;
    ASSERT_TRUE(WriteMenuItem(menu.Handle(), kOpen, ItemBy::Id, radio));
    menu.EnableItem(kOpen, false);
    EXPECT_TRUE(menu.CheckItem(kOpen, true));
    EXPECT_EQ(RowAt(menu.Handle(), 0).fState, UINT{MFS_CHECKED | MFS_GRAYED});
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_OWNERDRAW});
    ASSERT_TRUE(WriteMenuItem(menu.Handle(), kOpen, ItemBy::Id, radio));
    EXPECT_TRUE(menu.CheckItem(kOpen, false));
    EXPECT_EQ(RowAt(menu.Handle(), 0).fState, UINT{MFS_GRAYED});
    EXPECT_EQ(RowAt(menu.Handle(), 0).fType, UINT{MFT_OWNERDRAW});
    EXPECT_EQ(menu.GetItemText(0), u"&Open...\tCtrl+O");
    EXPECT_FALSE(menu.CheckItem(1, true));
}

TEST_F(MenuTest, FindsTheMenuThatHoldsARow) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    tvMenu* deeper = menu.GetSubMenu(2)->AddPopup(u"Deeper");
    deeper->AddItem(77, u"x");
    EXPECT_TRUE(menu.HasItem(kOpen));
    EXPECT_FALSE(menu.HasItem(kDeep));
    EXPECT_EQ(menu.FindOwner(kSave), &menu);
    EXPECT_EQ(menu.FindOwner(kDeep), menu.GetSubMenu(2));
    EXPECT_EQ(menu.FindOwner(77), deeper);
    EXPECT_EQ(menu.FindOwner(78), nullptr);
}

TEST_F(MenuTest, KnowsWhatLiesBelowAMenu) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    tvMenu* below = menu.GetSubMenu(2);
    tvMenu* deeper = below->AddPopup(u"Deeper");
    EXPECT_TRUE(tvMenu::IsSubMenuOf(menu.Handle(), below->Handle()));
    EXPECT_TRUE(tvMenu::IsSubMenuOf(menu.Handle(), deeper->Handle()));
    EXPECT_FALSE(tvMenu::IsSubMenuOf(menu.Handle(), menu.Handle()));
    EXPECT_FALSE(tvMenu::IsSubMenuOf(below->Handle(), menu.Handle()));
    EXPECT_FALSE(tvMenu::IsSubMenuOf(menu.Handle(), nullptr));
}

TEST_F(MenuTest, FindsARowWithASubmenuByTheSubmenusHandle) {
    tvMenu menu;
    menu.CreatePopup();
    FillMenu(menu);
    const HMENU submenu = menu.GetSubMenu(2)->Handle();
    const auto id = static_cast<UINT>(reinterpret_cast<std::uintptr_t>(submenu));
    EXPECT_EQ(TheMenuMap().FindByItem(id), &menu);
    EXPECT_EQ(TheMenuMap().FindByItem(kOpen), nullptr) << "a command, not a handle";
    EXPECT_EQ(TheMenuMap().FindByItem(0), nullptr);
    tvMenu large;
    large.CreatePopup();
    large.AddItem(65535, u"x");
    large.AddItem(65534, u"x");
    EXPECT_EQ(TheMenuMap().FindByItem(65535), &large);
    EXPECT_EQ(TheMenuMap().FindByItem(65534), nullptr);
}

}  // namespace
