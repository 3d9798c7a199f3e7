// Buttons with an icon or a glyph.
#include "toolkit/button_icon.h"

#include "tests/gui/button_stage.h"
#include "toolkit/tool_tip.h"

namespace {

// An icon of one colour; of two, black and white, without one.
class TestIcon {
public:
    TestIcon(int width, int height, COLORREF color) {
        const Canvas colors(width, height, color);
        const tvBitmapHandle mask(Bits(width, height));
        ICONINFO info{};
        info.fIcon = TRUE;
        info.hbmMask = mask.Get();
        info.hbmColor = static_cast<HBITMAP>(GetCurrentObject(colors.Dc(), OBJ_BITMAP));
        m_Icon.Reset(CreateIconIndirect(&info));
    }
    TestIcon(int width, int height) {
        const tvBitmapHandle masks(Bits(width, height * 2));
        ICONINFO info{};
        info.fIcon = TRUE;
        info.hbmMask = masks.Get();
        m_Icon.Reset(CreateIconIndirect(&info));
    }
    [[nodiscard]] HICON Get() const { return m_Icon.Get(); }

private:
    static HBITMAP Bits(int width, int height) {
        const std::vector<u8> none(static_cast<std::size_t>((width + 15) / 16 * 2 * height));
        return CreateBitmap(width, height, 1, 1, none.data());
    }
    tvIconHandle m_Icon;
};

constexpr COLORREF kRed = RGB(250, 1, 2);

LRESULT SetIcon(HWND window, HICON icon) {
    return SendMessageW(window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
}

template <int Number>
class WithGlyph : public tvButton_customIcon {
public:
    WithGlyph() : tvButton_customIcon(Number) { m_noAnimation = 1; }
};

template <typename Base>
class Unfading : public Base {
public:
    Unfading() { this->m_noAnimation = 1; }
};
using IconButton = Unfading<tvButton_Icon>;
using CustomIconButton = Unfading<tvButton_customIcon>;

int ToolCount() {
    return static_cast<int>(TheToolTip().Send(TTM_GETTOOLCOUNT));
}

UNDER_EACH_THEME(IconButtonInEachTheme);

TEST_P(IconButtonInEachTheme, WithAGlyphPaintsItself) {
    const Stage<WithGlyph<GLYPH_CLOSE>> stage(GetParam());
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    for (const std::u16string_view theme : {kSystem, kDark, kSystem}) {
        UseTheme(theme, stage.dialog.Handle());
        EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    }
}

TEST_P(IconButtonInEachTheme, WithAnIconPaintsItself) {
    const TestIcon icon(16, 16, kRed);
    Stage<IconButton> stage(GetParam());
    EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_PUSHBUTTON);
    EXPECT_EQ(SetIcon(stage.Window(), icon.Get()), 0);
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    EXPECT_EQ(stage.button.m_icon, icon.Get());
    EXPECT_EQ(SetIcon(stage.Window(), nullptr), reinterpret_cast<LRESULT>(icon.Get()));
    EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_PUSHBUTTON);
}

TEST_P(IconButtonInEachTheme, WithNeitherHasTheLookOfItsBase) {
    const Stage<CustomIconButton> stage(GetParam());
    EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_PUSHBUTTON);
}

TEST_P(IconButtonInEachTheme, ShowsItsIconInTheMiddle) {
    const TestIcon icon(16, 12, kRed);
    Stage<IconButton> stage(GetParam());
    SetIcon(stage.Window(), icon.Get());
    const RECT shown = Sheet(stage.Window(), 0).ExtentOf(kRed);
    EXPECT_EQ(shown.right - shown.left, 16);
    EXPECT_EQ(shown.bottom - shown.top, 12);
    const SIZE size = SizeOf(stage.Window());
    EXPECT_NEAR(shown.left + shown.right, size.cx, 1);
    EXPECT_NEAR(shown.top + shown.bottom, size.cy, 1);
    EXPECT_EQ(Extent(stage.Look(), kRed).left, shown.left);
}

TEST_P(IconButtonInEachTheme, ShowsAnIconInPlaceOfItsText) {
    const TestIcon icon(8, 8, kRed);
    Stage<IconButton> stage(GetParam());
    SetIcon(stage.Window(), icon.Get());
    const COLORREF text = TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
    const Sheet with(stage.Window(), 0);
    SetWindowTextW(stage.Window(), L"");
    EXPECT_EQ(with.Count(text), Sheet(stage.Window(), 0).Count(text));
}

TEST_P(IconButtonInEachTheme, SendsItsCommand) {
    const Stage<WithGlyph<GLYPH_PLAY>> stage(GetParam());
    Click(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 1; }));
}

TEST(IconButton, ReadsTheSizeOfItsIcon) {
    const TestIcon colored(20, 24, kRed);
    const TestIcon plain(16, 10);
    Stage<IconButton> stage(kLight);
    SetIcon(stage.Window(), colored.Get());
    EXPECT_EQ(stage.button.m_iconWidth, 20);
    EXPECT_EQ(stage.button.m_iconHeight, 24);
    SetIcon(stage.Window(), plain.Get());
    EXPECT_EQ(stage.button.m_iconWidth, 16);
    EXPECT_EQ(stage.button.m_iconHeight, 10);
    SetIcon(stage.Window(), nullptr);
    EXPECT_EQ(stage.button.m_iconWidth, 0);
    EXPECT_EQ(stage.button.m_iconHeight, 0);
}

TEST(IconButton, LeaksNothingWhenItsIconIsSet) {
    const TestIcon icon(16, 16, kRed);
    Stage<IconButton> stage(kLight);
    SetIcon(stage.Window(), icon.Get());
    const DWORD before = WhatIsHeld().gdiObjects;
    for (int i = 0; i < 50; ++i)
        SetIcon(stage.Window(), icon.Get());
    EXPECT_LE(WhatIsHeld().gdiObjects, before + 5);
}

TEST(IconButton, DoesNotOwnItsIcon) {
    const TestIcon icon(16, 16, kRed);
    {
        Stage<IconButton> stage(kLight);
        SetIcon(stage.Window(), icon.Get());
    }
    ICONINFO info{};
    EXPECT_NE(GetIconInfo(icon.Get(), &info), FALSE);
    const tvBitmapHandle color(info.hbmColor);
    const tvBitmapHandle mask(info.hbmMask);
}

TEST(IconButton, TellsItsIcon) {
    const TestIcon icon(16, 16, kRed);
    Stage<IconButton> stage(kLight);
    SetIcon(stage.Window(), icon.Get());
    EXPECT_EQ(SendMessageW(stage.Window(), BM_GETIMAGE, IMAGE_ICON, 0),
              reinterpret_cast<LRESULT>(icon.Get()));
}

TEST(IconButton, TakesNoBitmap) {
    const Canvas canvas(4, 4);
    Stage<IconButton> stage(kLight);
    SendMessageW(stage.Window(), BM_SETIMAGE, IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(GetCurrentObject(canvas.Dc(), OBJ_BITMAP)));
    EXPECT_EQ(stage.button.m_icon, nullptr);
}

TEST(IconButton, HasItsCaptionAsItsTip) {
    const TestIcon icon(16, 16, kRed);
    const int before = ToolCount();
    Stage<CustomIconButton> stage(kLight);
    EXPECT_EQ(stage.button.m_tip, u"");
    EXPECT_EQ(ToolCount(), before);
    SetIcon(stage.Window(), icon.Get());
    EXPECT_EQ(stage.button.m_tip, u"#0");
    EXPECT_EQ(ToolCount(), before + 1);
    SetIcon(stage.Window(), nullptr);
    EXPECT_EQ(stage.button.m_tip, u"");
    EXPECT_EQ(ToolCount(), before);
}

TEST(GlyphButton, HasItsCaptionAsItsTip) {
    const int before = ToolCount();
    Stage<WithGlyph<GLYPH_BIN>> stage(kLight);
    EXPECT_EQ(stage.button.m_tip, u"#0");
    EXPECT_EQ(ToolCount(), before + 1);
    SetIcon(stage.Window(), nullptr);
    EXPECT_EQ(stage.button.m_tip, u"#0");
}

UNDER_COLOR_THEMES(GlyphButtonColors);

TEST_P(GlyphButtonColors, AreThoseOfGlyphs) {
    Stage<WithGlyph<GLYPH_MINIMISE>> stage(GetParam());
    stage.button.SetSideMask(0);
    EXPECT_EQ(Sheet(stage.Window(), 0).Count(TheTheme().m_icon), 10);
    EXPECT_EQ(Sheet(stage.Window(), ODS_DISABLED).Count(TheTheme().m_textGray), 10);
}

TEST(GlyphButton, UnderSystemDefaultHasTheColorsOfShadows) {
    Stage<WithGlyph<GLYPH_MINIMISE>> stage(kSystem);
    DRAWITEMSTRUCT item{};
    tvButtonColors colors;
    stage.button.GetColors(item, colors);
    EXPECT_EQ(colors.m_text, GetSysColor(COLOR_3DDKSHADOW));
    item.itemState = ODS_DISABLED;
    stage.button.GetColors(item, colors);
    EXPECT_EQ(colors.m_text, GetSysColor(COLOR_BTNSHADOW));
}

TEST(GlyphButton, MinimiseIsABarInTheMiddle) {
    const Stage<WithGlyph<GLYPH_MINIMISE>> stage(kLight);
    const RECT bar = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_icon);
    EXPECT_EQ(bar.right - bar.left, 10);
    EXPECT_EQ(bar.bottom - bar.top, 1);
    EXPECT_NEAR(bar.left + bar.right, SizeOf(stage.Window()).cx, 1);
}

TEST(GlyphButton, IsPaintedInABoxInTheMiddle) {
    const Stage<WithGlyph<GLYPH_DISK>> stage(kLight);
    const RECT disk = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_icon);
    EXPECT_EQ(disk.right - disk.left, 16);
    EXPECT_EQ(disk.bottom - disk.top, 16);
    const SIZE size = SizeOf(stage.Window());
    EXPECT_NEAR(disk.left + disk.right, size.cx, 1);
    EXPECT_NEAR(disk.top + disk.bottom, size.cy, 1);
}

TEST(GlyphButton, HasAGlyphInPlaceOfItsIcon) {
    const TestIcon icon(16, 16, kRed);
    Stage<WithGlyph<GLYPH_DISK>> stage(kLight);
    SetIcon(stage.Window(), icon.Get());
    const Sheet sheet(stage.Window(), 0);
    EXPECT_EQ(sheet.Count(kRed), 0);
    EXPECT_GT(sheet.Count(TheTheme().m_icon), 20);
}

TEST(GlyphButton, OutOfTheTableShowsItsIconOrItsText) {
    const TestIcon icon(16, 16, kRed);
    Stage<WithGlyph<kGlyphs + 1>> stage(kLight, 0, u"nnn");
    EXPECT_EQ(Sheet(stage.Window(), 0).Count(kRed), 0);
    EXPECT_GT(Sheet(stage.Window(), 0).Count(TheTheme().m_icon), 5);  // the text in the colour of glyphs
    SetIcon(stage.Window(), icon.Get());
    EXPECT_EQ(Sheet(stage.Window(), 0).Count(kRed), 256);
}

}  // namespace
