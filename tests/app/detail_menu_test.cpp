// The context menu of a field of the detail pane.
#include "tests/app/detail_stage.h"
#include "tests/app/menu_stage.h"
#include "tests/app/shell_calls.h"

namespace {

class DetailMenu : public DetailTest {
protected:
    DetailMenu() { TheAppData().BuildMenus(); }

    static HWND MenuWindow() { return FindWindowW(L"#32768", nullptr); }
    static HMENU OpenedMenu() {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's answer
        return reinterpret_cast<HMENU>(SendMessageW(MenuWindow(), MN_GETHMENU, 0, 0));
    }
    using Action = std::function<void()>;

    // Carries out what opens a menu, and once that is there the step.
    static void OpenMenu(const Action& action, const Action& step) {
        const DuringModal during({[&step] {
            if (MenuWindow() == nullptr || IsWindowVisible(MenuWindow()) == FALSE) return false;
            step();
            return true;
        }});
        action();
        EXPECT_TRUE(PumpUntil([&during] { return during.Done() && MenuWindow() == nullptr; }));
        PumpQueue();
    }
    [[nodiscard]] Action RightClick(u16 type) const {
        return [this, type] {
            const RECT hit = Field(type).m_hitRect;
            PointAt(type);
            Click(PaneWindow(), hit.left + 3, hit.top + 3, MouseButton::Right);
        };
    }
    // The commands that can be chosen on a field, as "2010 2011".
    std::string Choices(u16 type) const {
        std::string choices;
        OpenMenu(RightClick(type), [&choices] {
            EXPECT_EQ(OpenedMenu(), TheAppData().detailMenu.Handle());
            choices = EnabledOf(TheAppData().detailMenu);
            EndMenu();
        });
        return choices;
    }
    // Chooses a row of the menu that is open, by the keyboard.
    static void Choose(int row) {
        Type(VK_HOME);
        for (int i = 0; i < row; ++i)
            Type(VK_DOWN);
        Type(VK_RETURN);
    }
};

TEST_F(DetailMenu, OffersWhatTheFieldIsGoodFor) {
    OpenPane();
    EXPECT_EQ(Choices(kName), "2010");
    EXPECT_EQ(Choices(kProgram), "2010 2011 2012");
    EXPECT_EQ(Choices(kUser), "2010 2011");
    EXPECT_EQ(Choices(kPassword), "2010 2011 2013");
}

TEST_F(DetailMenu, OffersToModifyAnEmptyFieldOnly) {
    for (const u16 type : {kProgram, kUser, kPassword})
        Set(type, u"");
    OpenPane();
    for (const u16 type : {kProgram, kUser, kPassword})
        EXPECT_EQ(Choices(type), "2010") << type;
}

TEST_F(DetailMenu, NamesWhatItDoesToPasswords) {
    OpenPane();
    Choices(kPassword);
    EXPECT_EQ(RowText(TheAppData().detailMenu, CMD_DETAIL_SHOW_PASSWORD), u"Show Password");
    TheAppData().bShowPassword = 1;
    Show(&Item());
    Choices(kPassword);
    EXPECT_EQ(RowText(TheAppData().detailMenu, CMD_DETAIL_SHOW_PASSWORD), u"Hide Password");
}

TEST_F(DetailMenu, OpensAtThePointer) {
    OpenPane();
    const RECT hit = Field(kUser).m_hitRect;
    POINT at{hit.left + 3, hit.top + 3};
    ClientToScreen(PaneWindow(), &at);
    OpenMenu(RightClick(kUser), [&at] {
        RECT place{};
        GetWindowRect(MenuWindow(), &place);
        EXPECT_EQ(place.left, at.x);
        EXPECT_EQ(place.top, at.y);
        EndMenu();
    });
}

TEST_F(DetailMenu, CarriesOutTheChosenCommandOnItsField) {
    OpenPane();
    OpenMenu(RightClick(kUser), [] { Choose(1); });
    EXPECT_TRUE(PumpUntil([] { return ClipboardText() == u"somebody"; }));
}

// The rows of the menu lie over other fields.
TEST_F(DetailMenu, KeepsItsFieldWhileTheMouseMovesOverOthers) {
    OpenPane();
    OpenMenu(RightClick(kProgram), [this] {
        const RECT password = Field(kPassword).m_hitRect;
        POINT point{password.left + 200, password.bottom - 3};
        ClientToScreen(PaneWindow(), &point);
        SetCursorPos(static_cast<int>(point.x), static_cast<int>(point.y));
        SendMessageW(PaneWindow(), WM_MOUSELEAVE, 0, 0);  // as the system does when a menu is entered
        EXPECT_EQ(Pane().m_hotField, kPassword);
        Choose(1);
    });
    EXPECT_TRUE(PumpUntil([] { return ClipboardText() == u"https://bank.example/"; }));
}

TEST_F(DetailMenu, ShowsThePasswordByItsCommand) {
    OpenPane();
    OpenMenu(RightClick(kPassword), [] { Choose(3); });
    EXPECT_TRUE(PumpUntil([] { return TheAppData().bShowPassword == 1; }));
    ExpectDrawn(Field(kPassword).m_textRect, u"tiger", ValueFont(), TextColor());
}

TEST_F(DetailMenu, OpensOverAHoverButton) {
    OpenPane();
    std::string choices;
    OpenMenu(
        [this] {
            PointAt(kProgram);
            const HWND button = Pane().m_copyHover.Handle();
            Click(button, 10, 10, MouseButton::Right);
        },
        [&choices] {
            choices = EnabledOf(TheAppData().detailMenu);
            EndMenu();
        });
    EXPECT_EQ(choices, "2010 2011 2012");
}

TEST_F(DetailMenu, IsNotThereBesideTheFieldsOrWithoutAnItem) {
    OpenPane();
    const RECT heading = Field(kAddition).m_hitRect;
    const RECT user = Field(kUser).m_hitRect;
    MoveMouse(PaneWindow(), heading.left + 3, heading.top + 3);
    PumpQueue();
    const DuringModal none({});  // fails once a menu stays
    Click(PaneWindow(), heading.left + 3, heading.top + 3, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(MenuWindow(), nullptr);
    Show(nullptr);
    Click(PaneWindow(), user.left + 3, user.top + 3, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(MenuWindow(), nullptr);
}

TEST_F(DetailMenu, OfTheListIsAnother) {
    AddEntries(2);
    OpenPane();
    OpenMenu([this] { Click(Pane().m_list.Handle(), 10, 10, MouseButton::Right); },
             [] {
                 EXPECT_EQ(OpenedMenu(), TheAppData().itemMenu.Handle());
                 EndMenu();
             });
}

// The keyboard means the list, wherever the mouse is.
TEST_F(DetailMenu, OfTheListIsThatOfTheKeyboard) {
    AddEntries(2);
    OpenPane();
    PointAt(kUser);
    int opened = 0;
    OpenMenu(
        [this] {
            SendMessageW(Pane().m_list.Handle(), WM_CONTEXTMENU,
                         reinterpret_cast<WPARAM>(Pane().m_list.Handle()), -1);
        },
        [&opened] {
            ++opened;
            EXPECT_EQ(OpenedMenu(), TheAppData().itemMenu.Handle());
            EndMenu();
        });
    EXPECT_EQ(opened, 1);
}

// Where the list is pressed, though the pane still takes the mouse to be over a field.
TEST_F(DetailMenu, OfTheListIsTheOnlyOne) {
    AddEntries(2);
    OpenPane();
    PointAt(kUser);
    RECT list = OuterScreenPlace(Pane().m_list.Handle());
    const HWND windows[] = {Pane().m_list.Handle(), tvScrollBox::OuterOf(Pane().m_list.Handle())};
    for (const HWND window : windows) {
        std::vector<HMENU> opened;
        const auto look = [&opened] {
            if (MenuWindow() == nullptr || IsWindowVisible(MenuWindow()) == FALSE) return false;
            opened.push_back(OpenedMenu());
            EndMenu();
            return true;
        };
        const auto noOther = [&look] { return look() || MenuWindow() == nullptr; };
        const DuringModal during({look, noOther});
        ASSERT_EQ(Pane().m_hotField, kUser);
        SendMessageW(PaneWindow(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(list.left + 10, list.top + 10));
        EXPECT_TRUE(PumpUntil([&during] { return during.Done(); }));
        EXPECT_EQ(opened, std::vector<HMENU>{TheAppData().itemMenu.Handle()});
    }
}

TEST_F(DetailMenu, IsNotOpenedIfThereIsNone) {
    OpenPane();
    TheAppData().detailMenu.Detach(tvMenu::Menu::Destroy);
    const DuringModal none({});  // fails once a menu stays
    RightClick(kUser)();
    PumpQueue();
    EXPECT_EQ(MenuWindow(), nullptr);
    TheAppData().BuildMenus();
}

TEST_F(DetailMenu, IsNotThereForAnEntryThatTheItemLacks) {
    OpenPane();
    ElementArray gone{Entry(kPassword)};
    TheDatabase().RemoveEntries(gone, &Item());
    Show(&Item());
    Pane().m_hotField = kPassword;
    const RECT place = Field(kUser).m_hitRect;
    POINT at{place.left + 3, place.top + 3};
    ClientToScreen(PaneWindow(), &at);
    const DuringModal none({});  // fails once a menu stays
    SendMessageW(PaneWindow(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(PaneWindow()),
                 MAKELPARAM(at.x, at.y));
    PumpQueue();
    EXPECT_EQ(MenuWindow(), nullptr);
}

}  // namespace
