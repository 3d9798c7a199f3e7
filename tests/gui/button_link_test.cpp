// Links.
#include "toolkit/button_link.h"

#include "tests/gui/button_stage.h"
#include "toolkit/system.h"
#include "toolkit/text_draw.h"

namespace {

class Link : public tvButton_Link {
public:
    Link() { m_noAnimation = 1; }
};
class LooseLink : public Link {
public:
    LooseLink() { m_autoFit = 0; }
};

// What a link has to be as large as.
SIZE TextSize(HWND window, const char16_t* text, UINT flags = 0) {
    const tvClientDC dc(window);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): as the message has it
    const tvSelected selected(dc.Get(), reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT rect{0, 0, 32000, 32000};
    MeasureText(text, DT_SINGLELINE | DT_EXPANDTABS | flags, dc.Get(), rect);
    return {rect.right - rect.left + 2, rect.bottom - rect.top + 2};
}

COLORREF LinkColor() {
    return TheTheme().Color(&tvColorTheme::m_link, COLOR_HOTLIGHT);
}
COLORREF Ground() {
    return TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
}

UNDER_EACH_THEME(LinkInEachTheme);

TEST_P(LinkInEachTheme, PaintsItself) {
    const Stage<Link> stage(GetParam());
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    UseTheme(kSystem, stage.dialog.Handle());
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
}

TEST_P(LinkInEachTheme, IsATextInTheColorOfLinks) {
    const Stage<Link> stage(GetParam());
    const Sheet sheet(stage.Window(), 0);
    EXPECT_EQ(sheet.At(0, 0), Ground());
    EXPECT_GT(sheet.Count(LinkColor()), 20);
    EXPECT_GT(stage.Look().Count(LinkColor()), 20);
}

TEST_P(LinkInEachTheme, IsUnderlinedFromEndToEnd) {
    const Stage<LooseLink> stage(GetParam(), 0, u"n");
    const Sheet sheet(stage.Window(), 0);
    const int last = static_cast<int>(sheet.size.cx) - 1;
    const int y = static_cast<int>(sheet.size.cy) - 2;
    for (int x = 1; x < last; ++x)
        EXPECT_EQ(sheet.At(x, y), LinkColor()) << x;
    EXPECT_EQ(sheet.At(0, y), Ground());
    EXPECT_EQ(sheet.At(last, y), Ground());
    EXPECT_EQ(sheet.At(3, y - 1), Ground());
    EXPECT_EQ(sheet.At(3, y + 1), Ground());
}

TEST_P(LinkInEachTheme, IsGrayWhenItIsDisabled) {
    const Stage<Link> stage(GetParam());
    EnableWindow(stage.Window(), FALSE);
    const Picture picture = stage.Look();
    EXPECT_GT(picture.Count(TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)), 20);
    EXPECT_EQ(picture.Count(LinkColor()), 0);
}

TEST_P(LinkInEachTheme, HasDotsAtItsEdgeWithTheFocus) {
    const Stage<Link> stage(GetParam());
    const COLORREF text = TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
    const Sheet sheet(stage.Window(), ODS_FOCUS);
    const int bottom = static_cast<int>(sheet.size.cy) - 1;
    EXPECT_EQ(sheet.At(0, bottom), text);
    EXPECT_EQ(sheet.At(0, bottom - 1), Ground());
    EXPECT_EQ(sheet.At(0, bottom - 2), text);
    EXPECT_EQ(Sheet(stage.Window(), ODS_FOCUS | ODS_NOFOCUSRECT).At(0, bottom), Ground());
}

TEST_P(LinkInEachTheme, ShowsAHandForTheMouse) {
    const Stage<Link> stage(GetParam());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([] { return GetCursor() == LoadSharedCursor(32649); }));
    SetCursor(nullptr);
    EXPECT_EQ(SendMessageW(stage.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(stage.Window()),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
              TRUE);
    EXPECT_EQ(GetCursor(), LoadSharedCursor(32649));
}

TEST_P(LinkInEachTheme, SendsItsCommand) {
    const Stage<Link> stage(GetParam());
    Click(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 1; }));
}

TEST_P(LinkInEachTheme, IsAsLargeAsItsText) {
    const Stage<Link> stage(GetParam(), 0, u"Some text");
    const SIZE wanted = TextSize(stage.Window(), u"Some text");
    EXPECT_EQ(SizeOf(stage.Window()).cx, wanted.cx);
    EXPECT_EQ(SizeOf(stage.Window()).cy, wanted.cy);
    SetWindowTextW(stage.Window(), L"Other and longer");
    EXPECT_EQ(SizeOf(stage.Window()).cx, TextSize(stage.Window(), u"Other and longer").cx);
}

TEST(Link, KeepsTheEdgesThatItIsAlignedTo) {
    const struct {
        DWORD style;
        bool left, right, top, bottom;
    } kCases[] = {{BS_LEFT | BS_TOP, true, false, true, false},
                  {BS_RIGHT | BS_BOTTOM, false, true, false, true},
                  {BS_LEFT | BS_BOTTOM, true, false, false, true}};
    for (const auto& one : kCases) {
        Stage<Link> stage(kLight, one.style, u"n");
        const HWND dialog = stage.dialog.Handle();
        const RECT before = PlaceIn(dialog, stage.Window());
        SetWindowTextW(stage.Window(), L"Much longer");
        SendMessageW(stage.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()),
                     TRUE);
        const RECT after = PlaceIn(dialog, stage.Window());
        ASSERT_GT(after.right - after.left, before.right - before.left + 4);
        ASSERT_GT(after.bottom - after.top, before.bottom - before.top + 2);
        EXPECT_EQ(after.left == before.left, one.left) << one.style;
        EXPECT_EQ(after.right == before.right, one.right) << one.style;
        EXPECT_EQ(after.top == before.top, one.top) << one.style;
        EXPECT_EQ(after.bottom == before.bottom, one.bottom) << one.style;
    }
}

TEST(Link, KeepsItsMiddle) {
    for (const DWORD style : {0UL, DWORD{BS_CENTER | BS_VCENTER}}) {
        Stage<Link> stage(kLight, style, u"n");
        const HWND dialog = stage.dialog.Handle();
        const RECT before = PlaceIn(dialog, stage.Window());
        SetWindowTextW(stage.Window(), L"Much longer");
        const RECT after = PlaceIn(dialog, stage.Window());
        EXPECT_NEAR(after.left + after.right, before.left + before.right, 1);
        EXPECT_NEAR(after.top + after.bottom, before.top + before.bottom, 1);
        EXPECT_LT(after.left, before.left);
    }
}

TEST(Link, StaysWhereItFits) {
    Stage<Link> stage(kLight);
    const HandedOn handed(stage.button);
    stage.button.OnAutoFit();
    EXPECT_TRUE(handed.Of(WM_WINDOWPOSCHANGING).empty());
}

TEST(Link, KeepsItsSizeIfItIsNotToFitItself) {
    const Stage<LooseLink> stage(kLight);
    const SIZE before = SizeOf(stage.Window());
    SetWindowTextW(stage.Window(), L"Much longer than it has been before");
    EXPECT_EQ(SizeOf(stage.Window()).cx, before.cx);
}

TEST(Link, ShowsMarksAsTheyAreIfItIsToldTo) {
    struct NoPrefix : Link {
        NoPrefix() { m_noPrefix = 1; }
    };
    const Stage<NoPrefix> stage(kLight, 0, u"a&b");
    EXPECT_EQ(SizeOf(stage.Window()).cx, TextSize(stage.Window(), u"a&b", DT_NOPREFIX).cx);
    const Stage<Link> plain(kLight, 0, u"a&b");
    EXPECT_EQ(SizeOf(plain.Window()).cx, TextSize(plain.Window(), u"ab").cx);
    EXPECT_GT(Sheet(stage.Window(), 0).Count(TheTheme().m_link),
              Sheet(plain.Window(), 0).Count(TheTheme().m_link));
}

TEST(Link, EndsInDotsWhereItHasNoRoom) {
    Stage<LooseLink> stage(kLight, BS_LEFT, u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    const Sheet cut(stage.Window(), 0);
    const RECT dots{cut.size.cx - 6, 0, cut.size.cx, cut.size.cy - 4};
    int colored = 0;
    for (int x = dots.left; x < dots.right; ++x)
        for (int y = 1; y < cut.size.cy / 2; ++y)
            colored += cut.At(x, y) == TheTheme().m_link ? 1 : 0;
    EXPECT_EQ(colored, 0);  // the dots lie low
}

}  // namespace
