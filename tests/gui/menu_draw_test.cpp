// How the rows of a menu are measured and painted.
#include "tests/gui/menu_harness.h"
#include "tests/gui/rows.h"
#include "toolkit/draw.h"
#include "toolkit/menu_look.h"
#include "toolkit/rect.h"

namespace {

constexpr COLORREF kNowhere = RGB(255, 0, 255);  // in no theme
constexpr int kWide = 300;

int TextWidth(HFONT font, const wchar_t* text) {
    const tvClientDC screen(nullptr);
    const tvSelected selected(screen.Get(), font);
    RECT rect{};
    DrawTextW(screen.Get(), text, -1, &rect, DT_CALCRECT | DT_SINGLELINE);
    return Width(rect);
}

MEASUREITEMSTRUCT Measure(tvMenu& menu, UINT id) {
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = id;
    item.itemWidth = item.itemHeight = 9999;
    menu.OnMeasureItem(&item);
    return item;
}

UINT IdOfPosition(const tvMenu& menu, int position) {
    return RowAt(menu.Handle(), position).wID;
}

// A row painted onto a canvas: `at` is its place, where the canvas is larger.
class Painted {
public:
    Painted(tvMenu& menu, UINT id, UINT state = 0, POINT at = {})
        : m_Height(menu.GetRowHeight()), m_At(at), m_Canvas(kWide + 20, m_Height + 20, kNowhere) {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_MENU;
        item.itemID = id;
        item.itemState = state;
        item.hDC = m_Canvas.Dc();
        item.rcItem = BoxAt(at.x, at.y, kWide, m_Height);
        menu.OnDrawItem(&item);
    }

    [[nodiscard]] COLORREF At(int x, int y) const { return m_Canvas.At(m_At.x + x, m_At.y + y); }
    [[nodiscard]] COLORREF Ground() const { return At(kWide / 2, 0); }
    [[nodiscard]] const Canvas& All() const { return m_Canvas; }

    // The extent of what is not the ground's colour, of the columns from `left` to `right`.
    [[nodiscard]] RECT InkIn(int left, int right) const {
        RECT found{};
        for (int y = 0; y < m_Height; ++y) {
            for (int x = left; x < right; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                if (At(x, y) != Ground()) UnionRect(&found, &found, &pixel);
            }
        }
        return found;
    }
    [[nodiscard]] bool HasIn(int left, int right, COLORREF color) const {
        for (int y = 0; y < m_Height; ++y)
            for (int x = left; x < right; ++x)
                if (At(x, y) == color) return true;
        return false;
    }
    bool operator==(const Painted& other) const {
        for (int y = 0; y < m_Height; ++y)
            for (int x = 0; x < kWide; ++x)
                if (At(x, y) != other.At(x, y)) return false;
        return true;
    }

    const int m_Height;

private:
    POINT m_At;
    Canvas m_Canvas;
};

class MenuDraw : public MenuTest {
protected:
    MenuDraw() {
        m_Menu.CreatePopup();
        FillMenu(m_Menu);
    }
    ~MenuDraw() override { TheMenuLook().ForgetStyle(); }

    static void UseSystem(bool styled) {
        UseTheme(u"System Default");
        if (!styled) TheMenuLook().GoWithoutStyle();
    }
    [[nodiscard]] int Column() { return m_Menu.GetRowHeight(); }

    tvMenu m_Menu;
};

// --- Measuring ---

TEST_F(MenuDraw, ARowIsALineAndTwelvePixelsHigh) {
    EXPECT_EQ(m_Menu.GetRowHeight(), TheTheme().TextHeight(TheTheme().Font(), nullptr) + 12);
    EXPECT_EQ(Measure(m_Menu, kSave).itemHeight, static_cast<UINT>(m_Menu.GetRowHeight()));
    int letter = 0;
    TheTheme().TextHeight(TheTheme().Font(), &letter);
    EXPECT_EQ(m_Menu.GetAccelGap(), 4 * letter);
    EXPECT_EQ(m_Menu.GetFont(false), TheTheme().Font());
    EXPECT_EQ(m_Menu.GetFont(true), TheTheme().m_fontBold.Get());
}

TEST_F(MenuDraw, ARowIsAsWideAsItsTextInBoldAndTwoColumns) {
    const int text = TextWidth(TheTheme().m_fontBold.Get(), L"Save");
    const int expected = text + m_Menu.GetAccelGap() / 2 + 2 * Column() - GetSystemMetrics(SM_CXMENUCHECK);
    EXPECT_EQ(static_cast<int>(Measure(m_Menu, kSave).itemWidth), expected);
}

TEST_F(MenuDraw, ARowWithAShortcutHasAGapBeforeIt) {
    const HFONT bold = TheTheme().m_fontBold.Get();
    const int texts = TextWidth(bold, L"Open...") + TextWidth(bold, L"Ctrl+O");
    const int expected = texts + m_Menu.GetAccelGap() + 2 * Column() - GetSystemMetrics(SM_CXMENUCHECK);
    EXPECT_EQ(static_cast<int>(Measure(m_Menu, kOpen).itemWidth), expected);
}

TEST_F(MenuDraw, WhatStandsBetweenTwoTabsCountsForNothing) {
    m_Menu.AddItem(50, u"One\tTwo");
    m_Menu.AddItem(51, u"One\tMiddle\tTwo");
    EXPECT_EQ(Measure(m_Menu, 50).itemWidth, Measure(m_Menu, 51).itemWidth);
    EXPECT_TRUE(Painted(m_Menu, 50) == Painted(m_Menu, 51));
}

TEST_F(MenuDraw, ASeparatorIsAsHighAsHalfTheMarginAndEven) {
    for (const int margin : {5, 6, 7, 12}) {
        const int old = std::exchange(TheTheme().m_halfMarginY, margin);
        const MEASUREITEMSTRUCT item = Measure(m_Menu, 0);
        const UINT row = Measure(m_Menu, kSave).itemHeight;
        TheTheme().m_halfMarginY = old;
        EXPECT_EQ(item.itemHeight, static_cast<UINT>((margin + 1) / 2 * 2));
        EXPECT_EQ(item.itemWidth, item.itemHeight);
        EXPECT_EQ(row, static_cast<UINT>(m_Menu.GetRowHeight())) << "only a separator depends on it";
    }
}

TEST_F(MenuDraw, ARowOfABarIsAsWideAsItsText) {
    TestDialog dialog;
    dialog.Open();
    tvMenu bar;
    bar.CreateMenu();
    bar.AddItem(90, u"&File");
    ASSERT_TRUE(bar.SetAsBar(dialog.Handle()));
    const MEASUREITEMSTRUCT item = Measure(bar, 90);
    EXPECT_EQ(static_cast<int>(item.itemWidth), TextWidth(TheTheme().m_fontBold.Get(), L"File"));
    EXPECT_EQ(item.itemHeight, static_cast<UINT>(bar.GetRowHeight()));
}

TEST_F(MenuDraw, ARowThatIsNotThereIsFlat) {
    EXPECT_EQ(Measure(m_Menu, 4711).itemHeight, 0U);
    EXPECT_EQ(Measure(m_Menu, 4711).itemWidth, 160U);
}

TEST_F(MenuDraw, RowsOfSubmenusAreMeasuredFromTheTop) {
    const int text = TextWidth(TheTheme().m_fontBold.Get(), L"Deep");
    const int expected = text + m_Menu.GetAccelGap() / 2 + 2 * Column() - GetSystemMetrics(SM_CXMENUCHECK);
    EXPECT_EQ(static_cast<int>(Measure(m_Menu, kDeep).itemWidth), expected);
}

// --- The ground ---

TEST_F(MenuDraw, HasTheGroundOfItsState) {
    for (const char16_t* theme : {u"Light", u"Dark", u"Blue", u"Green"}) {
        UseTheme(theme);
        EXPECT_EQ(Painted(m_Menu, kSave).Ground(), TheTheme().m_base);
        EXPECT_EQ(Painted(m_Menu, kSave, ODS_SELECTED).Ground(), TheTheme().m_buttonPush);
        EXPECT_EQ(Painted(m_Menu, kSave, ODS_GRAYED).Ground(), TheTheme().m_base);
        EXPECT_EQ(Painted(m_Menu, kSave, ODS_GRAYED | ODS_SELECTED).Ground(), TheTheme().m_button);
        EXPECT_EQ(Painted(m_Menu, kSave, ODS_DISABLED | ODS_SELECTED).Ground(), TheTheme().m_button);
    }
}

TEST_F(MenuDraw, HasTheSystemsGroundWithoutAStyle) {
    UseSystem(false);
    EXPECT_EQ(Painted(m_Menu, kSave).Ground(), GetSysColor(COLOR_MENU));
    EXPECT_EQ(Painted(m_Menu, kSave, ODS_SELECTED).Ground(), GetSysColor(COLOR_MENUHILIGHT));
    EXPECT_EQ(Painted(m_Menu, kSave, ODS_GRAYED | ODS_SELECTED).Ground(), GetSysColor(COLOR_MENU));
}

TEST_F(MenuDraw, HasTheStylesGround) {
    UseSystem(true);
    const HTHEME style = TheMenuLook().Style();
    ASSERT_NE(style, nullptr) << "the system has no visual style";
    const struct {
        UINT state;
        int part;
    } states[] = {{0, MPI_NORMAL},
                  {ODS_SELECTED, MPI_HOT},
                  {ODS_GRAYED, MPI_DISABLED},
                  {ODS_GRAYED | ODS_SELECTED, MPI_DISABLEDHOT}};
    for (const auto& [state, part] : states) {
        const Painted row(m_Menu, 0, state);
        const Canvas expected(kWide, row.m_Height, kNowhere);
        const RECT rect = BoxAt(0, 0, kWide, row.m_Height);
        DrawThemeBackground(style, expected.Dc(), MENU_POPUPBACKGROUND, 0, &rect, nullptr);
        DrawThemeBackground(style, expected.Dc(), MENU_POPUPITEM, part, &rect, nullptr);
        EXPECT_EQ(row.At(3, 3), expected.At(3, 3)) << state;
        EXPECT_EQ(row.At(0, 0), expected.At(0, 0)) << state;
    }
}

TEST_F(MenuDraw, PaintsItsRowAndNothingElse) {
    const Painted row(m_Menu, kSave, ODS_SELECTED, {7, 5});
    EXPECT_EQ(row.At(-1, 0), kNowhere);
    EXPECT_EQ(row.At(0, -1), kNowhere);
    EXPECT_EQ(row.At(kWide, 0), kNowhere);
    EXPECT_EQ(row.At(0, row.m_Height), kNowhere);
    EXPECT_EQ(row.At(0, 0), TheTheme().m_buttonPush);
    EXPECT_EQ(row.At(kWide - 1, row.m_Height - 1), TheTheme().m_buttonPush);
    EXPECT_TRUE(row == Painted(m_Menu, kSave, ODS_SELECTED));
}

TEST_F(MenuDraw, LetsNothingBePaintedOverIt) {
    const Painted row(m_Menu, kSave, 0, {7, 5});
    FillSolid(row.All().Dc(), BoxAt(0, 0, kWide + 20, row.m_Height + 20), RGB(1, 2, 3));
    EXPECT_EQ(row.At(0, 0), TheTheme().m_base);
    EXPECT_EQ(row.At(kWide - 1, row.m_Height - 1), TheTheme().m_base);
    EXPECT_EQ(row.At(-1, 0), RGB(1, 2, 3));
    EXPECT_EQ(row.At(kWide, 0), RGB(1, 2, 3));
}

TEST_F(MenuDraw, PaintsStraightOntoTheTargetIfThereIsNoBuffer) {
    constexpr int kTooLarge = 60000;
    const Canvas canvas(40, 40, kNowhere);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = kSave;
    item.hDC = canvas.Dc();
    item.rcItem = BoxAt(10, 10, kTooLarge, kTooLarge);
    m_Menu.OnDrawItem(&item);
    EXPECT_EQ(canvas.At(9, 9), kNowhere);
    EXPECT_EQ(canvas.At(10, 10), TheTheme().m_base);
    EXPECT_EQ(Painted(m_Menu, kSave).Ground(), TheTheme().m_base) << "the next one has a buffer again";
}

// --- Check mark and chevron ---

TEST_F(MenuDraw, HasATickOnlyWhereItIsChecked) {
    const RECT none = Painted(m_Menu, kSave).InkIn(0, Column());
    EXPECT_TRUE(IsRectEmpty(&none));
    m_Menu.CheckItem(kSave, true);
    const Painted row(m_Menu, kSave);
    const RECT ink = row.InkIn(0, Column());
    EXPECT_FALSE(IsRectEmpty(&ink));
    EXPECT_NEAR((ink.left + ink.right) / 2, Column() / 2, 2);
    EXPECT_NEAR((ink.top + ink.bottom) / 2, Column() / 2, 2);
    EXPECT_EQ(RowsOf(row.All(), BoxAt(0, 0, Column(), row.m_Height)), [&] {
        const Canvas expected(Column(), row.m_Height, TheTheme().m_base);
        DrawMark(expected.Dc(), BoxAt(0, 0, row.m_Height, row.m_Height), kNoColor, kNoColor,
                 TheTheme().m_icon, MarkKind::Tick, 0.7);
        return RowsOf(expected, BoxAt(0, 0, Column(), row.m_Height));
    }());
    EXPECT_TRUE(row.HasIn(0, Column(), TheTheme().m_icon));
    EXPECT_TRUE(Painted(m_Menu, kSave, ODS_SELECTED).HasIn(0, Column(), TheTheme().m_icon));
    const Painted disabled(m_Menu, kSave, ODS_GRAYED);
    EXPECT_TRUE(disabled.HasIn(0, Column(), TheTheme().m_textGray));
    EXPECT_FALSE(disabled.HasIn(0, Column(), TheTheme().m_icon));
}

TEST_F(MenuDraw, ARowWithoutAnIdHasNoTick) {
    MENUITEMINFOW row = MenuItemInfo(MIIM_ID | MIIM_STRING | MIIM_STATE | MIIM_FTYPE);
    row.fType = MFT_OWNERDRAW;
    row.fState = MFS_CHECKED;
    wchar_t text[] = L"x";
    row.dwTypeData = text;
    tvMenu menu;
    menu.CreatePopup();
    ASSERT_TRUE(InsertMenuItemW(menu.Handle(), 0, TRUE, &row));
    const RECT ink = Painted(menu, 0).InkIn(0, Column());
    EXPECT_TRUE(IsRectEmpty(&ink));
}

TEST_F(MenuDraw, HasAChevronOnlyWhereThereIsASubmenu) {
    const RECT none = Painted(m_Menu, kSave).InkIn(kWide - Column(), kWide);
    EXPECT_TRUE(IsRectEmpty(&none));
    const UINT id = IdOfPosition(m_Menu, 2);
    const Painted row(m_Menu, id);
    const RECT ink = row.InkIn(kWide - Column(), kWide);
    EXPECT_FALSE(IsRectEmpty(&ink));
    EXPECT_NEAR((ink.left + ink.right) / 2, kWide - Column() / 2, 2);
    EXPECT_TRUE(row.HasIn(kWide - Column(), kWide, TheTheme().m_icon));
    EXPECT_TRUE(Painted(m_Menu, id, ODS_GRAYED).HasIn(kWide - Column(), kWide, TheTheme().m_textGray));
}

TEST_F(MenuDraw, MarksHaveTheSystemsColoursWithoutAStyle) {
    UseSystem(false);
    m_Menu.CheckItem(kSave, true);
    const struct {
        UINT state;
        int color;
    } states[] = {{0, COLOR_3DDKSHADOW}, {ODS_SELECTED, COLOR_HIGHLIGHTTEXT}, {ODS_GRAYED, COLOR_GRAYTEXT}};
    for (const auto& [state, color] : states) {
        EXPECT_TRUE(Painted(m_Menu, kSave, state).HasIn(0, Column(), GetSysColor(color))) << state;
        EXPECT_TRUE(Painted(m_Menu, IdOfPosition(m_Menu, 2), state)
                        .HasIn(kWide - Column(), kWide, GetSysColor(color)))
            << state;
    }
}

TEST_F(MenuDraw, MarksAreTheStyles) {
    UseSystem(true);
    const HTHEME style = TheMenuLook().Style();
    ASSERT_NE(style, nullptr) << "the system has no visual style";
    const Canvas got(40, 30, kPaper);
    const Canvas expected(40, 30, kPaper);
    const RECT rect{0, 0, 40, 30};
    for (const UINT state : {0U, UINT{ODS_GRAYED}}) {
        const int disabled = state == 0 ? 0 : 1;
        RECT box{0, 2, 26, 28};
        DrawThemeBackground(style, expected.Dc(), MENU_POPUPCHECKBACKGROUND, 2 - disabled, &box, nullptr);
        DrawThemeBackground(style, expected.Dc(), MENU_POPUPCHECK, 1 + disabled, &box, nullptr);
        EXPECT_EQ(m_Menu.DrawCheck(got.Dc(), rect, state, false, tvMenu::Pass::Paint), Column());
        box = {10, 0, 40, 30};
        DrawThemeBackground(style, expected.Dc(), MENU_POPUPSUBMENU, 1 + disabled, &box, nullptr);
        EXPECT_EQ(m_Menu.DrawArrow(got.Dc(), rect, state, tvMenu::Pass::Paint), Column());
        EXPECT_EQ(RowsOf(got, rect), RowsOf(expected, rect));
    }
}

TEST_F(MenuDraw, MeasuringPaintsNothing) {
    const Canvas canvas(100, 40, kPaper);
    const RECT rect{0, 0, 100, 40};
    EXPECT_EQ(m_Menu.DrawCheck(canvas.Dc(), rect, 0, false, tvMenu::Pass::Measure), Column());
    EXPECT_EQ(m_Menu.DrawArrow(canvas.Dc(), rect, 0, tvMenu::Pass::Measure), Column());
    m_Menu.DrawItemText(canvas.Dc(), rect, u"Text\tMore", 0, tvMenu::Pass::Measure);
    EXPECT_EQ(canvas.Count(kPaper), 100 * 40);
}

// --- Separators ---

TEST_F(MenuDraw, ASeparatorIsALineAcrossTheMiddle) {
    const auto check = [this](COLORREF line) {
        const Painted row(m_Menu, 0);
        const int middle = row.m_Height / 2;
        for (const int x : {0, kWide / 2, kWide - 1}) {
            EXPECT_EQ(row.At(x, middle), line);
            EXPECT_EQ(row.At(x, middle - 1), row.Ground());
            EXPECT_EQ(row.At(x, middle + 1), row.Ground());
        }
        EXPECT_EQ(row.All().Count(line), kWide);
    };
    check(TheTheme().m_border);
    UseSystem(false);
    check(GetSysColor(COLOR_BTNSHADOW));
}

// --- Texts ---

TEST_F(MenuDraw, HasItsTextAtTheLeftAndItsShortcutAtTheRight) {
    m_Menu.AddItem(50, u"Move &Up\tCtrl+Up");
    m_Menu.AddItem(51, u"Move &Up");
    m_Menu.AddItem(52, u"\tCtrl+Up");
    const Painted row(m_Menu, 50);
    const RECT ink = row.InkIn(Column(), kWide - Column());
    EXPECT_NEAR(ink.left, Column(), 3);
    EXPECT_NEAR(ink.right, kWide - Column(), 3);
    EXPECT_NEAR((ink.top + ink.bottom) / 2, row.m_Height / 2, 3);
    const Painted left(m_Menu, 51);
    const Painted right(m_Menu, 52);
    const int leftEnd = left.InkIn(Column(), kWide).right;
    const int rightStart = right.InkIn(Column(), kWide).left;
    ASSERT_LT(leftEnd, rightStart);
    for (int y = 0; y < row.m_Height; ++y) {
        for (int x = 0; x < kWide; ++x)
            ASSERT_EQ(row.At(x, y), (x < (leftEnd + rightStart) / 2 ? left : right).At(x, y))
                << x << ' ' << y;
    }
    EXPECT_TRUE(row.HasIn(Column(), kWide, TheTheme().m_text));
}

// Some systems underline the letter all the same.
TEST_F(MenuDraw, UnderlinesTheLetterToPressUnlessItIsHidden) {
    m_Menu.AddItem(50, u"&Up");
    m_Menu.AddItem(51, u"Up");
    const Painted shown(m_Menu, 50);
    EXPECT_FALSE(shown == Painted(m_Menu, 51));
    const RECT rect = BoxAt(0, 0, 100, shown.m_Height);
    for (const UINT state : {0U, UINT{ODS_NOACCEL}}) {
        const Canvas got(100, shown.m_Height, kPaper);
        const Canvas expected(100, shown.m_Height, kPaper);
        for (const Canvas* canvas : {&got, &expected})
            SetBkMode(canvas->Dc(), TRANSPARENT);
        m_Menu.DrawItemText(got.Dc(), rect, u"&Up", state, tvMenu::Pass::Paint);
        SetTextColor(expected.Dc(), TheTheme().m_text);
        RECT place = rect;
        const UINT hide = state == 0 ? 0U : UINT{DT_HIDEPREFIX};
        DrawTextW(expected.Dc(), L"&Up", 3, &place, DT_SINGLELINE | DT_VCENTER | hide);
        EXPECT_EQ(RowsOf(got, rect), RowsOf(expected, rect));
    }
}

TEST_F(MenuDraw, HasTheTextColourOfItsState) {
    const int left = Column();
    EXPECT_TRUE(Painted(m_Menu, kSave).HasIn(left, kWide, TheTheme().m_text));
    EXPECT_TRUE(Painted(m_Menu, kSave, ODS_SELECTED).HasIn(left, kWide, TheTheme().m_text));
    const Painted disabled(m_Menu, kSave, ODS_GRAYED);
    EXPECT_TRUE(disabled.HasIn(left, kWide, TheTheme().m_textGray));
    EXPECT_FALSE(disabled.HasIn(left, kWide, TheTheme().m_text));
}

TEST_F(MenuDraw, HasTheSystemsTextColours) {
    const struct {
        UINT state;
        int color;
        int part;
    } states[] = {{0, COLOR_MENUTEXT, MPI_NORMAL},
                  {ODS_SELECTED, COLOR_HIGHLIGHTTEXT, MPI_HOT},
                  {ODS_GRAYED, COLOR_GRAYTEXT, MPI_DISABLED}};
    for (const bool styled : {false, true}) {
        UseSystem(styled);
        if (styled) TheMenuLook().ForgetStyle();
        for (const auto& [state, color, part] : states) {
            COLORREF expected = GetSysColor(color);
            if (styled) GetThemeColor(TheMenuLook().Style(), MENU_POPUPITEM, part, TMT_TEXTCOLOR, &expected);
            const Canvas canvas(200, 30, RGB(1, 2, 3));
            m_Menu.DrawItemText(canvas.Dc(), {0, 0, 200, 30}, u"Text", state, tvMenu::Pass::Paint);
            EXPECT_EQ(GetTextColor(canvas.Dc()), expected) << state << styled;
        }
    }
}

TEST_F(MenuDraw, TheDefaultRowIsBold) {
    const RECT regular = Painted(m_Menu, kSave).InkIn(Column(), kWide);
    const RECT bold = Painted(m_Menu, kSave, ODS_DEFAULT).InkIn(Column(), kWide);
    EXPECT_GT(Width(bold), Width(regular));
}

TEST_F(MenuDraw, ARowOfABarIsCentredAndHasNoColumns) {
    TestDialog dialog;
    dialog.Open();
    tvMenu bar;
    bar.CreateMenu();
    bar.AddPopup(u"File\tand more");
    bar.AddItem(90, u"Centred");
    bar.CheckItem(90, true);
    ASSERT_TRUE(bar.SetAsBar(dialog.Handle()));
    const RECT ink = Painted(bar, 90).InkIn(0, kWide);
    EXPECT_NEAR((ink.left + ink.right) / 2, kWide / 2, 4);
    EXPECT_LT(Width(ink), kWide / 2) << "no tick";
    const RECT file = Painted(bar, IdOfPosition(bar, 0)).InkIn(0, kWide);
    EXPECT_NEAR((file.left + file.right) / 2, kWide / 2, 8) << "not parted at the tab, and no chevron";
}

}  // namespace
