// The dialog that merges two items: its texts, its layout and what it paints.
#include "tests/app/command_stage.h"
#include "tests/app/expected_paint.h"
#include "tests/app/ink.h"
#include "tests/app/keep_font.h"
#include "tests/app/merge_item_stage.h"
#include "tests/app/other_language.h"
#include "tests/gui/growth.h"

namespace {

constexpr UINT kPreview = DT_NOPREFIX | DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS;

SIZE SizeIn(const tvstring& text, int width, UINT flags) {
    const tvClientDC dc(nullptr);
    const tvSelected selected(dc.Get(), TheTheme().Font());
    RECT rect{0, 0, width, 0};
    if (text.empty()) return {0, 0};
    DrawTextW(dc.Get(), Wide(text.c_str()), static_cast<int>(text.size()), &rect, flags | DT_CALCRECT);
    return {rect.right, rect.bottom};
}

class MergeItemLook : public MergeItemTest {
protected:
    [[nodiscard]] RECT Content() const {
        return Inset(ClientOf(m_Dialog->Handle()), TheTheme().m_marginX, TheTheme().m_marginY);
    }
    [[nodiscard]] RECT FramePlace() const {
        return {Content().left, PlaceOf(kRadio2).bottom + TheTheme().m_marginY / 2, Content().right,
                PlaceOf(IDOK).top - TheTheme().m_marginY};
    }
    [[nodiscard]] int CountWrongPixels(const tvstring& preview) const {
        const ExpectedPaint expected(m_Dialog->Handle());
        expected.Text(TheTheme().Font(), LangText(u"itemlist", u"merge_info"), Content(),
                      DT_WORDBREAK | DT_EDITCONTROL);
        expected.Frame(FramePlace());
        expected.Text(TheTheme().Font(), preview,
                      Inset(FramePlace(), TheTheme().m_marginX, TheTheme().m_marginY / 2), kPreview);
        return expected.CountDifferent();
    }
    [[nodiscard]] SIZE Size() const {
        RECT rect{};
        GetWindowRect(m_Dialog->Handle(), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    // Both names fill their lines and end in dots.
    void ExpectDots(const std::string& theme) const {
        SetFocus(Item(IDOK));  // the dots of the keyboard are none of the name's
        Settle(m_Dialog->Handle());
        for (const int id : {kRadio1, kRadio2}) {
            const Picture picture(Item(id));
            const RECT client = ClientOf(Item(id));
            const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
            const int middle = static_cast<int>(client.bottom) / 2;
            const RECT ink = InkIn(picture, ground, client);
            EXPECT_GT(ink.right, client.right * 3 / 4) << "the name does not fill its line: " << theme;
            const RECT high = InkIn(picture, ground, {ink.right - 6, 0, ink.right, middle});
            EXPECT_TRUE(IsRectEmpty(&high)) << "it does not end in dots: " << theme;
        }
    }
    void Choose(int id) const {
        Click(Item(id));
        ASSERT_TRUE(PumpUntil(SeeingChosen(id)));
        MoveMouseAway();
        Settle(m_Dialog->Handle());
    }
};

TEST_F(MergeItemLook, HasItsTexts) {
    Show();
    EXPECT_EQ(TextOf(m_Dialog->Handle()), u"Merge Password Items");
    EXPECT_EQ(TextOf(Item(IDOK)), u"OK");
    EXPECT_EQ(TextOf(Item(IDCANCEL)), u"Cancel");
}

TEST_F(MergeItemLook, IsLaidOutFromTheTopDown) {
    const KeepFont keep;
    for (const bool isLarge : {false, true}) {
        if (isLarge)
            TheAppData().LoadStoreFont(LoadStore::Store, std::make_unique<LOGFONTW>(keep.Doubled()).get());
        Renew();
        Show();
        const tvTheme& theme = TheTheme();
        const RECT content = Content();
        const RECT button = ClientOf(Item(IDOK));
        RECT units{0, 0, 245, 180};
        MapDialogRect(m_Dialog->Handle(), &units);
        const int least = 4 * button.right + 3 * theme.m_gapX;
        const int most = 5 * button.right + 4 * theme.m_gapX;
        EXPECT_EQ(content.left, theme.m_marginX);
        EXPECT_EQ(Width(content),
                  std::min(std::max(static_cast<int>(units.right) - 2 * theme.m_marginX, least), most));
        EXPECT_EQ(static_cast<int>(button.right), CVMRBaseButton::StandardSize().cx);

        const tvstring info = LangText(u"itemlist", u"merge_info");
        int y =
            static_cast<int>(content.top + SizeIn(info, Width(content), DT_WORDBREAK | DT_EDITCONTROL).cy) +
            theme.m_marginY;
        const int height = Height(PlaceOf(kRadio1));
        EXPECT_EQ(PlaceOf(kRadio1), BoxAt(static_cast<int>(content.left), y, Width(content), height));
        y += height + theme.m_borderWidth;
        EXPECT_EQ(PlaceOf(kRadio2), BoxAt(static_cast<int>(content.left), y, Width(content), height));
        y += height + theme.m_marginY;
        const int lines = 3;
        y += lines * static_cast<int>(SizeIn(u"x", 1000, DT_SINGLELINE).cy) + 2 * theme.m_marginY;
        EXPECT_EQ(PlaceOf(IDOK), BoxAt(static_cast<int>(content.right - 2 * button.right) - theme.m_gapX, y,
                                       static_cast<int>(button.right), static_cast<int>(button.bottom)));
        EXPECT_EQ(PlaceOf(IDCANCEL), BoxAt(static_cast<int>(content.right - button.right), y,
                                           static_cast<int>(button.right), static_cast<int>(button.bottom)));
        EXPECT_EQ(content.bottom, y + button.bottom);
        ExpectTidy(m_Dialog->Handle());
    }
    platform::DeleteUserTree(u"Software\\Tolvane");
}

// The frame has room for the longer of the two previews, whichever is shown.
TEST_F(MergeItemLook, IsOfOneSizeForTheLongerAndTheShorterPreview) {
    Show();
    const SIZE whole = Size();
    Drop(*m_First, VMRD_T_USERNAME);
    Drop(*m_First, VMRD_T_PASSWORD);
    Renew();
    Show();
    EXPECT_EQ(Size(), whole);
    const RECT frame = FramePlace();
    Choose(kRadio2);
    EXPECT_EQ(Size(), whole);
    EXPECT_EQ(FramePlace(), frame);
    Drop(*m_Second, VMRD_T_PROGRAM);
    Renew();
    Show();
    EXPECT_EQ(Size().cy, whole.cy - SizeIn(u"x", 1000, DT_SINGLELINE).cy);
}

TEST_F(MergeItemLook, PaintsTextFrameAndPreview) {
    for (const char16_t* name : {u"Light", u"Dark", u"System Default"}) {
        UseTheme(name, Window());
        Renew();
        Show();
        EXPECT_EQ(CountWrongPixels(u"one.exe\r\nann\r\n\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF"), 0)
            << Letters(name);
        Choose(kRadio2);
        EXPECT_EQ(CountWrongPixels(u"two.exe\r\nbob\r\n\u25CF\u25CF\u25CF\u25CF\u25CF\u25CF"), 0)
            << Letters(name);
    }
}

TEST_F(MergeItemLook, PaintsMarksOfShortCutsAsTheyAreInThePreview) {
    TheAppData().bShowPassword = 1;
    Fill(*m_First, u"a && b", u"c & d", u"&x");
    Show();
    EXPECT_EQ(CountWrongPixels(u"a && b\r\nc & d\r\n&x"), 0);
}

TEST_F(MergeItemLook, KeepsALongTextInsideTheFrame) {
    TheAppData().bShowPassword = 1;
    Fill(*m_First, tvstring(300, u'W').c_str(), u"ann", u"x");
    Show();
    const COLORREF ground = TheTheme().m_base;
    const RECT frame = FramePlace();
    const RECT besides =
        Inset({frame.right - TheTheme().m_marginX, frame.top, frame.right, frame.bottom}, 2, 8);
    const RECT nothing = InkIn(Picture(m_Dialog->Handle()), ground, besides);
    EXPECT_TRUE(IsRectEmpty(&nothing));
}

TEST_F(MergeItemLook, CutsLongNamesOffWithDots) {
    m_First->m_Name = tvstring(200, u'W');
    m_Second->m_Name = tvstring(200, u'H');
    for (const char16_t* name : {u"Light", u"Dark", u"System Default"}) {
        UseTheme(name, Window());
        Renew();
        Show();
        ExpectDots(Letters(name));
    }
}

TEST_F(MergeItemLook, CutsLongNamesOffWithDotsAfterAChangeOfTheTheme) {
    m_First->m_Name = tvstring(200, u'W');
    m_Second->m_Name = tvstring(200, u'H');
    UseTheme(u"Light", Window());
    Show();
    for (const char16_t* name : {u"System Default", u"Dark"}) {
        UseTheme(name, m_Dialog->Handle());
        ExpectDots(Letters(name));
    }
    EXPECT_EQ(TextOf(Item(kRadio1)), tvstring(200, u'W'));
}

TEST_F(MergeItemLook, ShowsAnAmpersandInANameAsItIs) {
    for (const char16_t* theme : {u"Light", u"System Default"}) {
        UseTheme(theme, Window());
        const auto widthOf = [this](const char16_t* name) {
            m_First->m_Name = name;
            Renew();
            Show();
            SetFocus(Item(IDOK));  // its dots are none of the name's
            Settle(m_Dialog->Handle());
            const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
            return Width(InkIn(Picture(Item(kRadio1)), ground, ClientOf(Item(kRadio1))));
        };
        const int without = widthOf(u"ab");
        const int ampersand = static_cast<int>(SizeIn(u"&", 1000, DT_SINGLELINE | DT_NOPREFIX).cx);
        EXPECT_NEAR(widthOf(u"a&b"), without + ampersand, 2) << Letters(theme);
        EXPECT_NEAR(widthOf(u"a&&b"), without + 2 * ampersand, 2) << Letters(theme);
    }
}

TEST_F(MergeItemLook, StandsInTheMiddleOfTheMainWindow) {
    Show();
    ExpectInTheMiddle(m_Dialog->Handle());
}

TEST_F(MergeItemLook, LeavesNothingBehind) {
    constexpr int kRounds = 40;
    const Growth growth = GrowthOver(kRounds, [this] {
        Renew();
        Show();
        DestroyWindow(m_Dialog->Handle());
    });
    EXPECT_LE(growth.gdiObjects, 4);
    EXPECT_LE(growth.userObjects, 4);
}

}  // namespace
