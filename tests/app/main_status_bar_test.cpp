// The status bar of the main window: its panes, and what it tells for a while.
#include "windows/main_status_bar.h"

#include "tests/app/ink.h"
#include "tests/app/other_language.h"
#include "toolkit/control_state.h"
#include "toolkit/theme.h"

namespace {

constexpr u16 kBar = 50;
constexpr COLORREF kOrange = RGB(255, 192, 0);
constexpr COLORREF kGreen = RGB(0, 144, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// Notes what is drawn.
class NotingBar : public CVMRStatusBar {
public:
    using CVMRStatusBar::m_idle;
    using CVMRStatusBar::m_message;
    using CVMRStatusBar::m_messageTimer;

    void DrawLabel(HDC dc, const RECT& rect, const tvstring& text) override {
        m_place = rect;
        m_text = text;
        CVMRStatusBar::DrawLabel(dc, rect, text);
        m_color = GetTextColor(dc);
    }
    void DrawIcon(HDC dc, const RECT& rect, HICON icon) override {
        m_icon = icon;
        CVMRStatusBar::DrawIcon(dc, rect, icon);
    }
    RECT m_place{};
    tvstring m_text;
    COLORREF m_color = CLR_INVALID;
    HICON m_icon = nullptr;
};

// The bar alone, with the application's database.
class MainStatusBar : public AppTest {
protected:
    MainStatusBar() {
        m_Dialog.Add(ATOM_STATIC, kBar, 0, 100, 320, 14);
        m_Dialog.Wrap(m_Bar, kBar);
        m_Dialog.Open();
    }
    void Tell(StatusNotification kind, const char16_t* text) {
        m_Bar.OnAppNotify(APPN_STATUS, kind, AsArgument(text), 0);
    }
    void Repaint() {
        m_Bar.OnAppNotify(APPN_STATUS, STATUS_REPAINT, 0, 0);
        Settle(m_Dialog.Handle());
    }
    [[nodiscard]] Picture Look() const {
        Settle(m_Dialog.Handle());
        return Picture(m_Bar.Handle());
    }
    [[nodiscard]] int Width(const char16_t* text) const { return WidthIn(m_Bar.Handle(), text); }

    // Where the lines between panes are, from the right.
    [[nodiscard]] std::vector<int> Lines() {
        Repaint();
        const Picture picture = Look();
        const RECT place = m_Bar.m_place;
        std::vector<int> lines;
        for (int x = static_cast<int>(place.right); x > place.left; --x) {
            const RECT column{x, place.top, x + 1, place.bottom};
            if (picture.Count(column, TheTheme().m_border) == place.bottom - place.top) lines.push_back(x);
        }
        return lines;
    }
    // The text at the left, which is as wide as this one.
    void ExpectLeftText(const char16_t* text) {
        Repaint();
        RECT place = m_Bar.m_place;
        const RECT ink = InkIn(Look(), TheTheme().m_button, place);
        EXPECT_EQ(ink.right - ink.left, InkWidthIn(m_Bar.Handle(), text));
    }
    // A saved database with so many items.
    void OpenDatabase(int items) {
        ASSERT_TRUE(TheDatabase().New(u"Name"));
        TheDatabase().SetPath(InFolder(u"bar.vmr"));
        TheDatabase().SetMasterPassword(u"secret");
        for (int i = 1; i < items; ++i)
            ASSERT_NE(TheDatabase().AddNewItem(&TheDatabase()), nullptr);
        ASSERT_TRUE(TheDatabase().Save());
        ASSERT_FALSE(TheDatabase().m_Changed);
    }

    NotingBar m_Bar;
    TestDialog m_Dialog{340, 120};
};

// --- Panes ---

TEST_F(MainStatusBar, IgnoresWhatItDoesNotKnow) {
    Settle(m_Dialog.Handle());
    for (const int kind : {-1, 5, 1000})
        m_Bar.OnAppNotify(APPN_STATUS, kind, AsArgument(u"text"), 0);
    EXPECT_FALSE(GetUpdateRect(m_Bar.Handle(), nullptr, FALSE));
    EXPECT_EQ(m_Bar.m_message.m_text, u"");
}

TEST_F(MainStatusBar, ShowsAutoSaveWithoutChangedOnceTheDatabaseWasSaved) {
    OpenDatabase(1);
    TheDatabase().bFilterPWD = true;
    const std::vector<int> search = Lines();
    TheDatabase().bFilterPWD = false;
    TheDatabase().bAutoSave = true;
    TheDatabase().SetName(u"Another");  // is saved at once
    const std::vector<int> autoSave = Lines();
    ASSERT_EQ(search.size(), 1U);
    ASSERT_EQ(autoSave.size(), 1U);
    EXPECT_NEAR(autoSave[0] - search[0], Width(u"Search Password") - Width(u"Auto Save"), 1);
}

TEST_F(MainStatusBar, ShowsAutoSaveThenSearchPasswordThenChangedFromTheRight) {
    OpenDatabase(1);
    TheDatabase().bFilterPWD = true;
    TheDatabase().SetName(u"Another");
    TheDatabase().bAutoSave = true;
    const std::vector<int> lines = Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NEAR(lines[0], m_Bar.m_place.right - 16 - Width(u"Auto Save"), 1);
    EXPECT_NEAR(lines[0] - lines[1], 17 + Width(u"Search Password"), 1);
    EXPECT_NEAR(lines[1] - lines[2], 17 + Width(u"*Changed"), 1);
}

TEST_F(MainStatusBar, CountsShortlyWhenAllRowsAreHit) {
    OpenDatabase(3);
    m_Bar.OnAppNotify(APPN_STATUS, STATUS_COUNTS, 3, 2);
    ExpectLeftText(u"Total 3, selected 2");
    m_Bar.OnAppNotify(APPN_STATUS, STATUS_COUNTS, 1, 1);
    ExpectLeftText(u"Total 3, search result 1, selected 1");
}

TEST_F(MainStatusBar, TakesItsTextsFromTheNewLanguageOnTheNextPaint) {
    const OtherLanguage language(
        u"[statusbar]\r\nready = Everything is prepared\r\nautosave = By itself\r\n");
    ExpectLeftText(u"Ready");
    OtherLanguage::Choose();
    m_Bar.OnAppNotify(APPN_LANGUAGE, 0, 0, 0);
    EXPECT_TRUE(GetUpdateRect(m_Bar.Handle(), nullptr, FALSE));
    ExpectLeftText(u"Everything is prepared");
    TheDatabase().bAutoSave = true;
    const std::vector<int> lines = Lines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0], m_Bar.m_place.right - 16 - Width(u"By itself"), 1);
}

// --- Messages ---

TEST_F(MainStatusBar, TellsErrorsInBlackOnOrangeAndTheRestInWhiteOnGreen) {
    struct {
        StatusNotification kind;
        int icon;
    } const cases[] = {{STATUS_INFORMATION, ICON_INFORMATION_SMALL},
                       {STATUS_ERROR, ICON_ERROR_SMALL},
                       {STATUS_WARNING, ICON_WARNING_SMALL}};
    for (const auto& [kind, icon] : cases) {
        const bool isError = kind == STATUS_ERROR;
        Tell(kind, u"WWWW");
        const Picture picture = Look();
        EXPECT_GT(picture.Count(isError ? kOrange : kGreen), picture.Width() * picture.Height() / 2) << kind;
        EXPECT_GT(picture.Count(m_Bar.m_place, isError ? kBlack : kWhite), 5) << kind;
        EXPECT_EQ(m_Bar.m_color, isError ? kBlack : kWhite) << kind;
        EXPECT_EQ(picture.At(5, 0), TheTheme().m_border) << kind;
        EXPECT_EQ(m_Bar.m_icon, TheTheme().m_icons.Find(icon)) << kind;
    }
}

TEST_F(MainStatusBar, TakesTheLargeIconOnlyWhereThereIsMoreThanRoomForIt) {
    const LONG large = TheTheme().m_icons.SizeOf(ICON_INFORMATION).cy;
    const LONG fits = large + 2 * TheTheme().m_borderWidth;
    const RECT place = PlaceInParent(m_Bar.Handle());
    for (const LONG height : {fits - 8, fits, fits + 1}) {
        SetWindowPos(m_Bar.Handle(), nullptr, 0, 0, place.right - place.left, height,
                     SWP_NOMOVE | SWP_NOZORDER);
        for (const auto& [kind, icon] :
             {std::pair(STATUS_INFORMATION, ICON_INFORMATION), std::pair(STATUS_ERROR, ICON_ERROR),
              std::pair(STATUS_WARNING, ICON_WARNING)}) {
            Tell(kind, u"Text");
            Settle(m_Dialog.Handle());
            EXPECT_EQ(m_Bar.m_icon, TheTheme().m_icons.Find(height > fits ? icon : icon + 1)) << height;
        }
    }
}

// The second message would go early if the time of the first one ran on.
TEST_F(MainStatusBar, TellsOneMessageInPlaceOfAnotherForAsLong) {
    constexpr int kTime = 600;  // milliseconds
    EXPECT_EQ(m_Bar.m_idle.m_timeout, 5000);
    m_Bar.m_idle.m_timeout = kTime;
    Tell(STATUS_INFORMATION, u"First");
    const ULONGLONG first = GetTickCount64();
    PumpUntil([first] { return GetTickCount64() >= first + kTime / 2; });
    const ULONGLONG second = GetTickCount64();
    Tell(STATUS_ERROR, u"Second");
    Settle(m_Dialog.Handle());
    EXPECT_EQ(m_Bar.m_text, u"Second");
    EXPECT_TRUE(PumpUntil([this] { return m_Bar.m_message.m_text.empty(); }));
    EXPECT_GE(GetTickCount64(), second + kTime * 3 / 4);
    EXPECT_EQ(Look().Count(kOrange), 0);
}

TEST_F(MainStatusBar, IsNotTouchedWhenNoMessageIsToBeTakenAway) {
    Repaint();
    const Picture before = Look();
    Tell(STATUS_INFORMATION, nullptr);
    EXPECT_FALSE(GetUpdateRect(m_Bar.Handle(), nullptr, FALSE));
    EXPECT_EQ(m_Bar.m_message.m_icon, nullptr);
    EXPECT_EQ(m_Bar.m_messageTimer.m_id, 0U);
    EXPECT_TRUE(Look() == before);
}

TEST_F(MainStatusBar, ShowsItsPanesAgainWhenAMessageIsTakenAway) {
    Repaint();
    const Picture before = Look();
    Tell(STATUS_ERROR, u"Text");
    EXPECT_FALSE(Look() == before);
    Tell(STATUS_INFORMATION, nullptr);
    EXPECT_TRUE(Look() == before);
}

}  // namespace
