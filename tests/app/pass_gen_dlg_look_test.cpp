// The dialog for passwords: its texts, its layout and what it paints.
#include "tests/app/command_stage.h"
#include "tests/app/expected_paint.h"
#include "tests/app/ink.h"
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "tests/app/pass_gen_stage.h"
#include "tests/gui/growth.h"

namespace {

constexpr int kJoined = 2;  // pixels of a box and its spin buttons in common
constexpr const char16_t* kInfo =
    u"Enter a password manually, or use the password generator to create a secure password:";
constexpr const char16_t* kTitle = u"Password Generator";

SIZE SizeIn(HFONT font, const tvstring& text, int width, UINT flags) {
    const tvClientDC dc(nullptr);
    const tvSelected selected(dc.Get(), font);
    RECT rect{0, 0, width, 0};
    DrawTextW(dc.Get(), Wide(text.c_str()), static_cast<int>(text.size()), &rect, flags | DT_CALCRECT);
    return {rect.right, rect.bottom};
}

class PassGenLook : public PassGenTest {
protected:
    [[nodiscard]] RECT Client() const { return ClientOf(m_Dialog->Handle()); }
    [[nodiscard]] RECT Content() const { return Inset(Client(), TheTheme().m_marginX, TheTheme().m_marginY); }
    static int LineHeight() { return TheTheme().TextHeight(TheTheme().Font(), nullptr); }
    static HFONT HeadingFont() { return TheAppData().font.Get(); }
    static SIZE HeadingSize() { return SizeIn(HeadingFont(), kTitle, 0, DT_SINGLELINE); }
    static COLORREF LinkColor() { return TheTheme().Color(&tvColorTheme::m_link, COLOR_HIGHLIGHT); }

    // Above a control, one line high.
    [[nodiscard]] RECT Above(int id) const {
        const RECT control = PlaceOf(id);
        return {control.left, control.top - TheTheme().m_borderWidth - LineHeight(), control.right,
                control.top};
    }
    [[nodiscard]] RECT FramePlace() const {
        const RECT content = Content();
        const int headingHeight = static_cast<int>(HeadingSize().cy) + 2;
        return {content.left, PlaceOf(kPassword).bottom + TheTheme().m_marginY + headingHeight / 2,
                content.right, PlaceOf(IDOK).top - TheTheme().m_marginY};
    }
    [[nodiscard]] RECT HeadingPlace() const {
        const SIZE text = HeadingSize();
        return BoxAt(static_cast<int>(Content().left) + TheTheme().m_marginX,
                     static_cast<int>(PlaceOf(kPassword).bottom) + TheTheme().m_marginY,
                     static_cast<int>(text.cx) + 12, static_cast<int>(text.cy) + 2);
    }
    // All that is painted, with this label.
    [[nodiscard]] int CountWrongPixels(const tvstring& label) const {
        const ExpectedPaint expected(m_Dialog->Handle());
        const HFONT font = TheTheme().Font();
        expected.Text(font, kInfo, Content(), DT_WORDBREAK | DT_EDITCONTROL);
        expected.Frame(FramePlace());
        expected.Fill(HeadingPlace(), TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
        expected.Text(HeadingFont(), kTitle, HeadingPlace(), DT_SINGLELINE | DT_CENTER | DT_VCENTER);
        expected.Text(font, u"Min length:", Above(kMin), DT_SINGLELINE);
        expected.Text(font, u"Max length:", Above(kMax), DT_SINGLELINE);
        expected.Text(font, label, Above(kGenerate), DT_SINGLELINE | DT_CENTER, LinkColor());
        return expected.CountDifferent();
    }
};

constexpr const char16_t* kThemes[] = {u"Light", u"Dark", u"System Default"};

// --- Texts ---

TEST_F(PassGenLook, HasItsTexts) {
    Show();
    EXPECT_EQ(TextOf(m_Dialog->Handle()), u"Password Generator");
    EXPECT_EQ(TextOf(Item(IDOK)), u"OK");
    EXPECT_EQ(TextOf(Item(IDCANCEL)), u"Cancel");
    EXPECT_EQ(TextOf(Item(kUpper)), u"&Uppercase letters (A-Z)");
    EXPECT_EQ(TextOf(Item(kLower)), u"&Lowercase letters (a-z)");
    EXPECT_EQ(TextOf(Item(kDigits)), u"&Numbers (0-9)");
    EXPECT_EQ(TextOf(Item(kOther)), u"&Other characters (~!@...)");
    EXPECT_EQ(TextOf(Item(kGenerate)), u"&Generate");
}

TEST_F(PassGenLook, HasItsTextsInTheLanguageOfTheProgram) {
    Show();  // what is painted has been fetched once
    Renew();
    const OtherLanguage language(
        u"[global]\r\nok = Fine\r\n[pwdgen]\r\ntitle = Words\r\ninfo = Type.\r\nminlen = From\r\n"
        u"maxlen = To\r\ngen = Make\r\n");
    OtherLanguage::Choose();
    Show();
    EXPECT_EQ(TextOf(m_Dialog->Handle()), u"Words");
    EXPECT_EQ(TextOf(Item(IDOK)), u"Fine");
    EXPECT_EQ(TextOf(Item(kGenerate)), u"Make");
    const ExpectedPaint expected(m_Dialog->Handle());
    expected.Text(TheTheme().Font(), u"Type.", Content(), DT_WORDBREAK);
    expected.Text(TheTheme().Font(), u"From", Above(kMin), DT_SINGLELINE);
    expected.Text(TheTheme().Font(), u"To", Above(kMax), DT_SINGLELINE);
    const SIZE title = SizeIn(HeadingFont(), u"Words", 0, DT_SINGLELINE);
    const RECT heading = BoxAt(static_cast<int>(Content().left) + TheTheme().m_marginX,
                               static_cast<int>(PlaceOf(kPassword).bottom) + TheTheme().m_marginY,
                               static_cast<int>(title.cx) + 12, static_cast<int>(title.cy) + 2);
    expected.Frame(FramePlace());
    expected.Fill(heading, TheTheme().m_base);
    expected.Text(HeadingFont(), u"Words", heading, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(expected.CountDifferent(), 0);
}

// --- Layout ---

TEST_F(PassGenLook, IsLaidOutFromTheTopDown) {
    const KeepFont keep;
    for (const bool isLarge : {false, true}) {
        if (isLarge)
            TheAppData().LoadStoreFont(LoadStore::Store, std::make_unique<LOGFONTW>(keep.Doubled()).get());
        Renew();
        Show();
        const tvTheme& theme = TheTheme();
        const RECT content = Content();
        const RECT button = ClientOf(Item(IDOK));
        EXPECT_EQ(content.left, theme.m_marginX);
        RECT units{0, 0, 245, 178};
        MapDialogRect(m_Dialog->Handle(), &units);
        const int least = 4 * button.right + 3 * theme.m_gapX;
        const int most = 5 * button.right + 4 * theme.m_gapX;
        EXPECT_EQ(Width(content),
                  std::min(std::max(static_cast<int>(units.right) - 2 * theme.m_marginX, least), most));

        const int info =
            static_cast<int>(SizeIn(theme.Font(), kInfo, Width(content), DT_WORDBREAK | DT_EDITCONTROL).cy);
        int y = static_cast<int>(content.top) + info + theme.m_marginY;
        const RECT password = PlaceOf(kPassword);
        EXPECT_EQ(password, (RECT{content.left, y, content.right, y + Height(password)}));

        y += Height(password) + theme.m_marginY + static_cast<int>(HeadingSize().cy) + theme.m_halfMarginY;
        y += LineHeight() + theme.m_borderWidth;
        const int left = static_cast<int>(content.left) + theme.m_marginX;
        const int right = static_cast<int>(content.right) - theme.m_marginX;
        const RECT spin = PlaceOf(kMinSpin);
        const int width = (right - left - 2 * (Width(spin) + theme.m_marginX)) / 2;
        const int height = Height(PlaceOf(kMin));
        EXPECT_EQ(PlaceOf(kMin), BoxAt(left, y, width, height));
        EXPECT_EQ(PlaceOf(kMax), BoxAt(right - width - Width(spin), y, width, height));
        EXPECT_EQ(spin, BoxAt(left + width - kJoined, y, Width(spin), height));
        EXPECT_EQ(PlaceOf(kMaxSpin), BoxAt(right - Width(spin) - kJoined, y, Width(spin), height));

        y += height + theme.m_halfMarginY;
        const int room = right - left - static_cast<int>(button.right) - theme.m_halfMarginX;
        for (const int id : {kUpper, kLower, kDigits, kOther}) {
            if (id != kUpper) y += theme.m_borderWidth;
            const RECT box = PlaceOf(id);
            EXPECT_EQ(box.left, left);
            EXPECT_EQ(box.top, y) << id;
            EXPECT_LE(Width(box), room);
            y += Height(box);
        }
        const RECT generate = PlaceOf(kGenerate);
        EXPECT_EQ(generate, (RECT{right - button.right, y - theme.m_marginY - button.bottom, right,
                                  y - theme.m_marginY}));
        y += 2 * theme.m_marginY;
        EXPECT_EQ(PlaceOf(IDCANCEL), BoxAt(static_cast<int>(content.right - button.right), y,
                                           static_cast<int>(button.right), static_cast<int>(button.bottom)));
        EXPECT_EQ(PlaceOf(IDOK), BoxAt(static_cast<int>(content.right - 2 * button.right) - theme.m_gapX, y,
                                       static_cast<int>(button.right), static_cast<int>(button.bottom)));
        EXPECT_EQ(content.bottom, y + button.bottom);
        ExpectTidy(m_Dialog->Handle(), kJoined);
    }
    platform::DeleteUserTree(u"Software\\Tolvane");
}

// A box for a class is as wide as its text needs.
TEST_F(PassGenLook, FitsTheBoxesToTheirTexts) {
    Show();
    EXPECT_LT(Width(PlaceOf(kDigits)), Width(PlaceOf(kUpper)));
    for (const int id : {kUpper, kLower, kDigits, kOther}) {
        tvstring text = TextOf(Item(id));
        text = text.view().substr(1);  // behind the mark
        const int needed = WidthIn(Item(id), text);
        EXPECT_GT(Width(PlaceOf(id)), needed);
        EXPECT_LT(Width(PlaceOf(id)), needed + 60);
    }
}

TEST_F(PassGenLook, StandsInTheMiddleOfTheMainWindow) {
    Show();
    ExpectInTheMiddle(m_Dialog->Handle());
}

// --- Painting ---

TEST_F(PassGenLook, PaintsTextsAndAFrameCutByItsHeading) {
    for (const char16_t* name : kThemes) {
        UseTheme(name, Window());
        Renew();
        Show();
        EXPECT_EQ(CountWrongPixels(u""), 0) << Letters(name);
        // The frame is there, but for the heading.
        const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
        const RECT frame = FramePlace();
        const RECT heading = HeadingPlace();
        const Picture picture(m_Dialog->Handle());
        EXPECT_NE(picture.At(static_cast<int>(frame.left), static_cast<int>(frame.bottom) - 40), ground);
        EXPECT_NE(picture.At(static_cast<int>(heading.right) + 1, static_cast<int>(frame.top)), ground);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(picture.At(static_cast<int>(heading.left) + i, static_cast<int>(frame.top)), ground);
            EXPECT_EQ(picture.At(static_cast<int>(heading.right) - 1 - i, static_cast<int>(frame.top)),
                      ground);
        }
        EXPECT_NE(picture.At(static_cast<int>(heading.left) - 2, static_cast<int>(frame.top)), ground);
    }
}

TEST_F(PassGenLook, PaintsTheLengthOfAGeneratedPasswordAboveTheButton) {
    for (const char16_t* name : kThemes) {
        UseTheme(name, Window());
        Renew();
        Show();
        PutLengths(u"17", u"17");
        EXPECT_EQ(Picture(m_Dialog->Handle()).Count(Above(kGenerate), LinkColor()), 0);
        Generate();
        EXPECT_EQ(CountWrongPixels(u"L = 17"), 0) << Letters(name);
        EXPECT_GT(Picture(m_Dialog->Handle()).Count(Above(kGenerate), LinkColor()), 5);
        SetFocus(Item(kPassword));
        TypeText(u"x");
        ASSERT_TRUE(PumpUntil([this] { return m_Dialog->m_LengthLabel.empty(); }));
        Settle(m_Dialog->Handle());
        EXPECT_EQ(Picture(m_Dialog->Handle()).Count(Above(kGenerate), LinkColor()), 0);
        EXPECT_EQ(CountWrongPixels(u""), 0) << Letters(name);
    }
}

TEST_F(PassGenLook, CutsLongLabelsOffWithDots) {
    const OtherLanguage language(
        tvstring(u"[pwdgen]\r\nminlen = ").append(tvstring(60, u'W')).append(u"\r\n"));
    OtherLanguage::Choose();
    Show();
    const RECT place = Above(kMin);
    const COLORREF ground = TheTheme().m_base;
    const Picture picture(m_Dialog->Handle());
    const RECT gap{place.right, place.top, PlaceOf(kMax).left, place.bottom - 1};
    const RECT nothing = InkIn(picture, ground, gap);
    EXPECT_TRUE(IsRectEmpty(&nothing)) << "it goes on behind its box";
    // Dots leave nothing in the upper half.
    const RECT end{place.right - 5, place.top, place.right, place.top + Height(place) / 2};
    const RECT high = InkIn(picture, ground, end);
    EXPECT_TRUE(IsRectEmpty(&high)) << "it does not end in dots";
}

TEST_F(PassGenLook, LeavesNothingBehind) {
    constexpr int kRounds = 40;
    const Growth growth = GrowthOver(kRounds, [this] {
        Renew(u"some");
        Show();
        Generate();
        DestroyWindow(m_Dialog->Handle());
    });
    EXPECT_LE(growth.gdiObjects, 4);
    EXPECT_LE(growth.userObjects, 4);
}

}  // namespace
