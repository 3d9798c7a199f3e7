// Keys of the item list and its menu, with the real keyboard and mouse.
#include <gmock/gmock.h>

#include "tests/app/item_stage.h"
#include "tests/app/menu_stage.h"

namespace {

// --- Keys ---

struct KeyCommand {
    const char* name;
    WORD key;
    unsigned held;
    const char* told;  // FORWARD with the command
};
void PrintTo(const KeyCommand& value, std::ostream* out) {
    *out << value.name;
}

class KeysOfTheItemList : public ItemTest, public testing::WithParamInterface<KeyCommand> {};
INSTANTIATE_TEST_SUITE_P(Keys, KeysOfTheItemList,
                         testing::Values(KeyCommand{"Delete", VK_DELETE, HOLD_NOTHING, "FORWARD 2009"},
                                         KeyCommand{"CtrlDelete", VK_DELETE, HOLD_CTRL, "FORWARD 2009"},
                                         KeyCommand{"Space", VK_SPACE, HOLD_NOTHING, "FORWARD 32783"},
                                         KeyCommand{"CtrlSpace", VK_SPACE, HOLD_CTRL, "FORWARD 32783"},
                                         KeyCommand{"Return", VK_RETURN, HOLD_NOTHING, "FORWARD 32783"},
                                         KeyCommand{"CtrlReturn", VK_RETURN, HOLD_CTRL, "FORWARD 32783"},
                                         KeyCommand{"CtrlX", 'X', HOLD_CTRL, "FORWARD 32786"},
                                         KeyCommand{"CtrlV", 'V', HOLD_CTRL, "FORWARD 32787"},
                                         KeyCommand{"CtrlUp", VK_UP, HOLD_CTRL, "FORWARD 2007"},
                                         KeyCommand{"CtrlDown", VK_DOWN, HOLD_CTRL, "FORWARD 2008"}),
                         [](const auto& key) { return key.param.name; });

TEST_P(KeysOfTheItemList, AreForwardedWhateverIsSelected) {
    OpenWith({u"a", u"b", u"c"});
    std::string told;
    Doing([&] {
        Type(GetParam().key, GetParam().held);
        PumpUntil([&] { return (told += Telling().Told()).find("FORWARD") != std::string::npos; });
    });
    EXPECT_EQ(told.substr(0, told.find(';')), GetParam().told);
    EXPECT_EQ(Items(), "[a][b][c]");
}

class ItemListKeys : public ItemTest {
protected:
    [[nodiscard]] bool Becomes(const char* rows) const {
        return PumpUntil([&] { return Rows() == rows; });
    }
};

TEST_F(ItemListKeys, DeleteRemovesWhatIsSelected) {
    OpenWith({u"a", u"b", u"c"});
    ClickRow(1);
    Type(VK_DELETE);
    EXPECT_TRUE(Becomes("[a][c]"));
}

TEST_F(ItemListKeys, CtrlUpAndCtrlDownMoveTheItem) {
    OpenWith({u"a", u"b", u"c"});
    ClickRow(1);
    Type(VK_UP, HOLD_CTRL);
    EXPECT_TRUE(Becomes("[b*][a][c]"));
    Type(VK_DOWN, HOLD_CTRL);
    Type(VK_DOWN, HOLD_CTRL);
    EXPECT_TRUE(Becomes("[a][c][b*]"));
    EXPECT_EQ(Items(), "[a][c][b]");
}

TEST_F(ItemListKeys, CtrlUpOfTheFirstRowLeavesAllAsItWas) {
    OpenWith({u"a", u"b"});
    ClickRow(0);
    const std::string told = Doing([this] {
        Type(VK_UP, HOLD_CTRL);
        PumpUntil([this] { return !PeekMessageW(nullptr, nullptr, 0, 0, PM_NOREMOVE); });
    });
    EXPECT_EQ(told, "FORWARD 2007");
    EXPECT_EQ(Rows(), "[a*][b]");
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(ItemListKeys, ArrowsWithoutCtrlMoveTheSelection) {
    OpenWith({u"a", u"b"});
    ClickRow(0);
    Type(VK_DOWN);
    EXPECT_TRUE(Becomes("[a][b*]"));
    EXPECT_EQ(Items(), "[a][b]");
}

TEST_F(ItemListKeys, XAndVWithoutCtrlAreNoCommands) {
    OpenWith({u"a", u"b"});
    ClickRow(0);
    EXPECT_EQ(Doing([] {
                  Type('X');
                  Type('V');
                  PumpQueue();
              }),
              "");
}

TEST_F(ItemListKeys, CtrlCCtrlXAndCtrlVGoThroughTheClipboard) {
    OpenWith({u"a", u"b"});
    ClickRow(0);
    Type('C', HOLD_CTRL);
    EXPECT_TRUE(PumpUntil([] { return IsClipboardFormatAvailable(ItemsClipboardFormat()) != FALSE; }));
    Type('V', HOLD_CTRL);
    EXPECT_TRUE(Becomes("[a*][a][b]"));
    Type('X', HOLD_CTRL);
    EXPECT_TRUE(Becomes("[a][b]"));
}

TEST_F(ItemListKeys, CtrlASelectsAll) {
    OpenWith({u"a", u"b"});
    Type('A', HOLD_CTRL);
    EXPECT_TRUE(Becomes("[a*][b*]"));
}

TEST_F(ItemListKeys, ReturnIsForTheListAndNotForTheDialog) {
    OpenWith({u"a"});
    EXPECT_NE(List().Send(WM_GETDLGCODE, VK_RETURN) & DLGC_WANTMESSAGE, 0);
    EXPECT_EQ(List().Send(WM_GETDLGCODE, VK_TAB) & DLGC_WANTMESSAGE, 0);
}

TEST_F(ItemListKeys, AKeyWithAnOrderInForceIsRefusedAndTold) {
    OpenWith({u"b", u"a"});
    ChooseOrder(SortNewOld);
    SearchFor(u"a");
    ClickRow(0);
    std::string told;
    Doing([&] {
        Type(VK_UP, HOLD_CTRL);
        PumpUntil([&] { return (told += Telling().Told()).find("ERROR") != std::string::npos; });
    });
    EXPECT_NE(told.find("ERROR The operation cannot be performed while sort or search is enabled"),
              std::string::npos)
        << told;
    EXPECT_EQ(Items(), "[b][a]");
}

TEST_F(ItemListKeys, AKeyOfAnotherListIsNotForThisPane) {
    OpenWith({u"a"});
    Select({0});
    Main().OnAppNotify(APPN_FORWARDCMD, CMD_REMOVE, AsArgument(Pane().Handle()), 0);
    PumpQueue();
    EXPECT_EQ(Rows(), "[a*]");
    Main().OnAppNotify(APPN_FORWARDCMD, 0x10000 + CMD_REMOVE, AsArgument(ListWindow()), 0);
    EXPECT_EQ(Rows(), "[a*]") << "the command is posted";
    PumpQueue();
    EXPECT_EQ(Rows(), "");
}

// --- What the menu offers ---

struct Offer {
    int rows;
    std::vector<int> selected;
    const char* enabled;
};
void PrintTo(const Offer& value, std::ostream* out) {
    *out << value.selected.size() << " of " << value.rows;
}

class ItemMenu : public ItemTest, public testing::WithParamInterface<Offer> {};
INSTANTIATE_TEST_SUITE_P(
    Selections, ItemMenu,
    testing::Values(Offer{0, {}, "32782"}, Offer{3, {}, "32782 32789"},
                    Offer{1, {0}, "32782 2009 32783 32785 32786 32790 32791"},
                    Offer{3, {0}, "32782 2009 32783 2007 2008 32785 32786 32789 32790 32791"},
                    Offer{3, {0, 2}, "32782 2009 2007 2008 32785 32786 32789 32790 32791 32788"},
                    Offer{4, {0, 1, 2}, "32782 2009 2007 2008 32785 32786 32789 32790 32791"},
                    Offer{3, {0, 1, 2}, "32782 2009 32785 32786 32790 32791"}));

TEST_P(ItemMenu, OffersWhatTheSelectionAllows) {
    OpenWith(GetParam().rows);
    Select(GetParam().selected);
    EXPECT_TRUE(UpdateItemMenu(&List(), false));
    EXPECT_EQ(EnabledOf(TheAppData().itemMenu), GetParam().enabled);
}

class ItemListMenu : public ItemListKeys {
protected:
    // After what the user does.
    void ExpectMenuAboveTheButton(const std::function<void()>& action) {
        RECT button{};
        GetWindowRect(Pane().m_menuBtn.Handle(), &button);
        WithItemMenu(
            [&](const RECT& place) {
                EXPECT_EQ(place.left, button.left);
                EXPECT_EQ(place.bottom, button.top);
            },
            action);
    }

    void AskForMenu(const tvWnd& window) {
        window.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1);
    }
};

TEST_F(ItemListMenu, OffersPasteForItemsOnTheClipboard) {
    OpenWith({u"a"});
    UpdateItemMenu(&List(), false);
    EXPECT_FALSE(IsEnabled(TheAppData().itemMenu, CMD_PASTE));
    Select({0});
    List().CopySelection();
    UpdateItemMenu(&List(), false);
    EXPECT_TRUE(IsEnabled(TheAppData().itemMenu, CMD_PASTE));
}

TEST_F(ItemListMenu, TheRightButtonOpensItWhereItIsPressed) {
    OpenWith({u"a", u"b"});
    const POINT at = OnScreen(MiddleOf(1));
    WithItemMenu(
        [&](const RECT& place) {
            EXPECT_EQ(place.left, at.x);
            EXPECT_EQ(place.top, at.y);
            EXPECT_TRUE(IsEnabled(TheAppData().itemMenu, CMD_RENAME));
            EXPECT_EQ(RowText(TheAppData().itemMenu, CMD_ADD), u"&Add");
            EXPECT_EQ(RowText(TheAppData().itemMenu, CMD_RENAME), u"Rena&me...");
        },
        [this] { ClickRow(1, MouseButton::Right); });
    EXPECT_EQ(Rows(), "[a][b*]");
}

TEST_F(ItemListMenu, WhatIsChosenIsDone) {
    OpenWith({u"a", u"b"});
    const DuringModal during({[] {
        if (!IsMenuOpen()) return false;
        Type('R');
        return true;
    }});
    ClickRow(0, MouseButton::Right);
    EXPECT_TRUE(Becomes("[b]"));
}

TEST_F(ItemListMenu, TheMenuKeyOpensItAboveTheButton) {
    OpenWith({u"a", u"b"});
    ExpectMenuAboveTheButton([this] { AskForMenu(Pane()); });
}

// From the list, through the box around it.
TEST_F(ItemListMenu, TheKeyForMenusInTheListOpensItAboveTheButton) {
    OpenWith({u"a", u"b"});
    ExpectMenuAboveTheButton([this] { AskForMenu(List()); });
}

TEST_F(ItemListMenu, TheButtonOpensItAboveItself) {
    OpenWith({u"a", u"b"});
    ExpectMenuAboveTheButton([this] { Click(Pane().m_menuBtn.Handle()); });
}

TEST_F(ItemListMenu, DoesNotOpenForAPointOutsideOfTheList) {
    OpenWith({u"a"});
    const RECT list = OuterScreenPlace(ListWindow());
    const DuringModal noMenu({});
    for (const POINT& at : {POINT{list.left - 1, list.top}, POINT{list.left, list.bottom}})
        Pane().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), MAKELPARAM(at.x, at.y));
    EXPECT_FALSE(IsMenuOpen());
}

TEST_F(ItemListMenu, DoesNotOpenWhileTheListIsHidden) {
    OpenWith({u"a"});
    ShowWindow(ListWindow(), SW_HIDE);
    const POINT at = OnScreen({5, 5});
    Pane().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), MAKELPARAM(at.x, at.y));
    Pane().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), -1);
    PumpQueue();
    EXPECT_FALSE(IsMenuOpen());
}

TEST_F(ItemListMenu, DoesNotOpenIfThereIsNone) {
    OpenWith({u"a"});
    TheAppData().itemMenu.Detach(tvMenu::Menu::Destroy);
    EXPECT_FALSE(UpdateItemMenu(&List(), false));
    const POINT at = OnScreen({5, 5});
    Pane().Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(ListWindow()), MAKELPARAM(at.x, at.y));
    PaneCommand(CMD_MAIN_MENU);
    EXPECT_FALSE(IsMenuOpen());
    TheAppData().BuildMenus();
}

}  // namespace
