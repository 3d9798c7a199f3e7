// Menus that are open on the display.
#include "tests/gui/menu_harness.h"
#include "tests/gui/message_box_harness.h"
#include "tests/gui/plain_window.h"
#include "toolkit/app.h"
#include "toolkit/menu_look.h"
#include "toolkit/rect.h"

namespace {

HWND MenuWindow() {
    return FindWindowW(L"#32768", nullptr);
}

bool IsOpen() {
    return MenuWindow() != nullptr && IsWindowVisible(MenuWindow()) != FALSE;
}

HMENU ActivePopup() {
    return tvBaseApp::Get()->m_activePopup;
}

void SendPopup(HWND window, UINT message, HMENU menu) {
    SendMessageW(window, message, reinterpret_cast<WPARAM>(menu), 0);
}

class MenuOpen : public MenuTest {
protected:
    MenuOpen() {
        m_Dialog.Open();
        m_Menu.CreatePopup();
        FillMenu(m_Menu);
    }
    ~MenuOpen() override { tvBaseApp::Get()->m_activePopup = nullptr; }

    // Opens the menu and carries out the steps, the last of which closes it.
    int OpenUntilClosed(std::vector<std::function<bool()>> steps, UINT flags = 0) {
        steps.insert(steps.begin(), [] { return IsOpen(); });
        const DuringModal during(std::move(steps));
        RECT place{};
        GetWindowRect(m_Dialog.Handle(), &place);
        return m_Menu.TrackPopup(place.left + 40, place.top + 60, m_Dialog.Handle(), flags);
    }

    // Opens the menu, carries out the steps and closes it.
    void Open(std::vector<std::function<bool()>> steps) {
        steps.push_back(Once([] { EndMenu(); }));
        OpenUntilClosed(std::move(steps));
    }

    TestDialog m_Dialog;
    tvMenu m_Menu;
};

TEST_F(MenuOpen, TheRowsHaveTheSizesThatWereMeasured) {
    Open({[this] {
        RECT row{};
        RECT line{};
        GetMenuItemRect(nullptr, m_Menu.Handle(), 0, &row);
        GetMenuItemRect(nullptr, m_Menu.Handle(), 1, &line);
        EXPECT_EQ(Height(row), m_Menu.GetRowHeight());
        EXPECT_EQ(Height(line), (TheTheme().m_halfMarginY + 1) / 2 * 2);
        return true;
    }});
}

TEST_F(MenuOpen, IsPaintedInTheThemesColours) {
    m_Menu.EnableItem(kOpen, false);
    m_Menu.CheckItem(kSave, true);
    COLORREF ground = CLR_INVALID;
    int icon = 0;
    int gray = 0;
    Open({[&] {
        Settle(MenuWindow());
        const Picture picture(MenuWindow());
        ground = picture.At(picture.Width() - 3, picture.Height() / 2);
        icon = picture.Count(TheTheme().m_icon);
        gray = picture.Count(TheTheme().m_textGray);
        return true;
    }});
    EXPECT_EQ(ground, TheTheme().m_base);
    EXPECT_GT(icon, 0);
    EXPECT_GT(gray, 0);
}

TEST_F(MenuOpen, TheRowUnderTheMouseIsLit) {
    COLORREF lit = CLR_INVALID;
    Open({[this] {
              RECT row{};
              GetMenuItemRect(nullptr, m_Menu.Handle(), 3, &row);
              MoveMouse(nullptr, row.left + 5, row.top + 5);
              return true;
          },
          [&] {
              RECT row{};
              GetMenuItemRect(nullptr, m_Menu.Handle(), 3, &row);
              const tvClientDC screen(nullptr);
              lit = GetPixel(screen.Get(), row.left + 3, row.top + 3);
              return lit == TheTheme().m_buttonPush;
          }});
    EXPECT_EQ(lit, TheTheme().m_buttonPush);
}

TEST_F(MenuOpen, SendsTheChosenCommand) {
    OpenUntilClosed({Key(VK_UP), Key(VK_RETURN)});  // the last row
    EXPECT_TRUE(PumpUntil([this] { return m_Dialog.CountCommands(kSave) == 1; }));
}

TEST_F(MenuOpen, GivesTheChosenCommandIfAskedFor) {
    EXPECT_EQ(OpenUntilClosed({Key(VK_DOWN), Key(VK_RETURN)}, TPM_RETURNCMD), static_cast<int>(kOpen));
}

TEST_F(MenuOpen, IsTheActivePopupWhileItIsOpenAlsoWithASubmenu) {
    HMENU alone = nullptr;
    HMENU withSubmenu = nullptr;
    const HMENU below = m_Menu.GetSubMenu(2)->Handle();
    Open({Once([&] { alone = ActivePopup(); }), Key(VK_DOWN), Key(VK_DOWN), Key(VK_RIGHT),
          [&] {
              RECT row{};
              if (GetMenuItemRect(nullptr, below, 0, &row) == FALSE || Height(row) == 0) return false;
              EXPECT_EQ(Height(row), m_Menu.GetRowHeight());
              withSubmenu = ActivePopup();
              return true;
          },
          Key(VK_LEFT), Once([&] { EXPECT_EQ(ActivePopup(), m_Menu.Handle()); })});
    EXPECT_EQ(alone, m_Menu.Handle());
    EXPECT_EQ(withSubmenu, m_Menu.Handle());
    EXPECT_EQ(ActivePopup(), nullptr);
}

TEST_F(MenuOpen, IsNotActiveAnyMoreWhenItsWindowDoesNotSaySo) {
    const PlainWindow window;
    const DuringModal during({[] { return IsOpen(); },
                              [this] {
                                  EXPECT_EQ(ActivePopup(), m_Menu.Handle());
                                  EndMenu();
                                  return true;
                              }});
    m_Menu.TrackPopup(50, 50, window.Handle(), 0);
    EXPECT_EQ(ActivePopup(), nullptr);
}

// --- Messages ---

TEST_F(MenuOpen, ASubmenuDoesNotBecomeTheActivePopup) {
    const HMENU below = m_Menu.GetSubMenu(2)->Handle();
    const HWND window = m_Dialog.Handle();
    SendPopup(window, WM_INITMENUPOPUP, m_Menu.Handle());
    EXPECT_EQ(ActivePopup(), m_Menu.Handle());
    SendPopup(window, WM_INITMENUPOPUP, below);
    EXPECT_EQ(ActivePopup(), m_Menu.Handle());
    SendPopup(window, WM_UNINITMENUPOPUP, below);
    EXPECT_EQ(ActivePopup(), m_Menu.Handle());
    SendPopup(window, WM_UNINITMENUPOPUP, m_Menu.Handle());
    EXPECT_EQ(ActivePopup(), nullptr);
}

TEST_F(MenuOpen, AnotherMenuTakesThePlaceOfTheActivePopup) {
    tvMenu other;
    other.CreatePopup();
    SendPopup(m_Dialog.Handle(), WM_INITMENUPOPUP, m_Menu.Handle());
    SendPopup(m_Dialog.Handle(), WM_INITMENUPOPUP, other.Handle());
    EXPECT_EQ(ActivePopup(), other.Handle());
}

TEST_F(MenuOpen, RowsAreMeasuredByTheActivePopup) {
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = kDeep;
    const auto measure = [&] {
        item.itemHeight = 9999;
        EXPECT_EQ(SendMessageW(m_Dialog.Handle(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&item)), 1);
        return item.itemHeight;
    };
    EXPECT_EQ(measure(), 9999U) << "a command, and no popup is open";
    SendPopup(m_Dialog.Handle(), WM_INITMENUPOPUP, m_Menu.Handle());
    EXPECT_EQ(measure(), static_cast<UINT>(m_Menu.GetRowHeight()));
}

TEST_F(MenuOpen, RowsWithASubmenuAreMeasuredWithoutAnActivePopup) {
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = RowAt(m_Menu.Handle(), 2).wID;
    EXPECT_EQ(SendMessageW(m_Dialog.Handle(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&item)), 1);
    EXPECT_EQ(item.itemHeight, static_cast<UINT>(m_Menu.GetRowHeight()));
}

TEST_F(MenuOpen, RowsArePaintedByTheirOwnMenu) {
    const Canvas canvas(200, 40, RGB(255, 0, 255));
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = kDeep;
    item.hDC = canvas.Dc();
    item.rcItem = BoxAt(0, 0, 200, 40);
    item.hwndItem = reinterpret_cast<HWND>(m_Menu.GetSubMenu(2)->Handle());
    EXPECT_EQ(SendMessageW(m_Dialog.Handle(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), 1);
    EXPECT_EQ(canvas.At(0, 0), TheTheme().m_base);
}

TEST_F(MenuOpen, ABarIsMeasuredAndPaintedToo) {
    tvMenu bar;
    bar.CreateMenu();
    bar.AddPopup(u"File")->AddItem(kOpen, u"Open");
    bar.AddPopup(u"A longer one");
    ASSERT_TRUE(bar.SetAsBar(m_Dialog.Handle()));
    Settle(m_Dialog.Handle());
    RECT first{};
    RECT second{};
    ASSERT_NE(GetMenuItemRect(m_Dialog.Handle(), bar.Handle(), 0, &first), FALSE);
    ASSERT_NE(GetMenuItemRect(m_Dialog.Handle(), bar.Handle(), 1, &second), FALSE);
    EXPECT_GT(Width(second), Width(first));
    const tvClientDC screen(nullptr);
    EXPECT_EQ(GetPixel(screen.Get(), first.left + 1, first.top + 1), TheTheme().m_base);
}

TEST_F(MenuOpen, TheMainWindowOpensTheStyleAnewWhenTheSystemsHasChanged) {
    TheMenuLook().GoWithoutStyle();
    m_Dialog.Send(WM_THEMECHANGED);
    EXPECT_EQ(TheMenuLook().Style(), nullptr) << "it is not the main window";
    m_Dialog.BeMain();
    m_Dialog.Send(WM_THEMECHANGED);
    const tvThemeHandle expected(OpenThemeData(nullptr, L"Menu"));
    EXPECT_EQ(TheMenuLook().Style() != nullptr, static_cast<bool>(expected));
}

}  // namespace
