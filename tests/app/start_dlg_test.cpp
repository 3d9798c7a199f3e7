// The start page: its buttons, its layout at all sizes, and when it shows its list.
#include "tests/app/keep_font.h"
#include "tests/app/other_language.h"
#include "tests/app/start_stage.h"

namespace {

constexpr int kEntries = 8;  // as many as there can be

class StartPage : public StartTest {
protected:
    // What the page has to itself within its margins.
    [[nodiscard]] RECT Room() const {
        return Inset(ClientOf(Page().Handle()), TheTheme().m_marginX, 2 * TheTheme().m_marginY);
    }
    [[nodiscard]] LONG Bottom() const { return IsListShown() ? ListPlace().bottom : OpenPlace().bottom; }

    // The block stands at the top, or, where it takes less than two thirds of the room, a third of what is
    // free down.
    void ExpectBlockInPlace() const {
        const RECT room = Room();
        const LONG block = Bottom() - CreatePlace().top;
        const LONG free = Height(room) - block;
        const LONG down = block < Height(room) * 2 / 3 ? free / 3 : 0;
        EXPECT_EQ(CreatePlace().top, room.top + down);
    }

    void ExpectOrder() const {
        const tvTheme& theme = TheTheme();
        const LONG heading = TheTheme().TextHeight(theme.m_fontLarge.Get(), nullptr);
        EXPECT_EQ(OpenPlace().top, CreatePlace().bottom + 2 * theme.m_marginY);
        EXPECT_EQ(ListPlace().top, OpenPlace().bottom + theme.m_halfMarginY + theme.m_borderWidth + heading);
        for (const RECT& place : {CreatePlace(), OpenPlace(), ListPlace()}) {
            EXPECT_EQ(place.left, CreatePlace().left);
            EXPECT_EQ(place.right, CreatePlace().right);
        }
    }

    // All that is shown lies in the room, and the list has whole rows.
    void ExpectWithinTheRoom() const {
        const RECT room = Room();
        EXPECT_GE(CreatePlace().left, room.left);
        EXPECT_LE(CreatePlace().right, room.right);
        EXPECT_GE(CreatePlace().top, room.top);
        EXPECT_LE(Bottom(), room.bottom);
        const int row = List().CalcItemHeight(-1);
        EXPECT_EQ(Height(ListPlace()) % row, 0);
        EXPECT_GE(Height(ListPlace()), row);
        EXPECT_LE(Height(ListPlace()), (List().GetCount() + 1) * row);
    }
};

// --- Buttons ---

TEST_F(StartPage, HasPlainTitlesWithNotes) {
    OpenWindow();
    EXPECT_EQ(TextOf(Page().m_createBtn.Handle()), u"Create New Database");
    EXPECT_EQ(TextOf(Page().m_openBtn.Handle()), u"Open Database");
    EXPECT_TRUE(Page().m_createBtn.m_note.starts_with(u"Create a new VMR database"));
    EXPECT_EQ(Page().m_openBtn.m_note, u"Open an existing VMR database with correct master password.");
}

TEST_F(StartPage, ItsFirstButtonCreatesADatabase) {
    OpenWindow();
    const DuringModal steps({AnswerWith(u"fresh")});
    Click(Page().m_createBtn.Handle());
    EXPECT_TRUE(PumpUntil([] { return TheDatabase().m_Opened; }));
    EXPECT_EQ(TheDatabase().m_Name, u"fresh");
    EXPECT_EQ(Noting().CountCommands(CMD_NEW), 1);
    EXPECT_FALSE(IsWindowVisible(Page().Handle()));
}

TEST_F(StartPage, ItsSecondButtonOpensADatabase) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenWindow();
    const FileAnswer file(FileAnswer::Kind::Open, path);
    const DuringModal steps({AnswerWith(u"one")});
    Click(Page().m_openBtn.Handle());
    EXPECT_TRUE(PumpUntil([] { return TheDatabase().m_Opened; }));
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_EQ(Noting().CountCommands(CMD_OPEN), 1);
}

TEST_F(StartPage, PaintsThePicturesInTheColourOfTheTheme) {
    OpenWindow();
    for (const char16_t* theme : {u"Light", u"Dark", u"Light", u"System Default"}) {
        UseTheme(theme, Window());
        const COLORREF color = TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
        for (const CVMRStartButton* button : {&Page().m_createBtn, &Page().m_openBtn}) {
            ASSERT_EQ(button->m_iconWidth, 32);
            const Picture picture(button->Handle());
            EXPECT_GT(picture.Count({0, 0, 44, 44}, color), 20) << Letters(theme);
        }
    }
}

TEST_F(StartPage, TakesItsTextsFromTheNewLanguage) {
    OpenWith(1);
    const RECT english = HeadingInk();
    const OtherLanguage language(
        u"[start]\r\ncreate = Ma&ke (&X)...\r\ncreate_info = Makes\r\nopen = &Fetch...\r\n"
        u"open_info = Fetches\r\nrecent_title = Those\r\n");
    OtherLanguage::Choose();
    EXPECT_EQ(TextOf(Page().m_openBtn.Handle()), u"Fetch");
    EXPECT_EQ(Page().m_createBtn.m_note, u"Makes");
    EXPECT_EQ(Page().m_openBtn.m_note, u"Fetches");
    EXPECT_LT(HeadingInk().right, english.right);
    EXPECT_TRUE(HasHeading());
}

// --- When the list is shown ---

TEST_F(StartPage, ShowsNoListWithoutEntries) {
    OpenWindow();
    EXPECT_FALSE(IsListShown());
    EXPECT_FALSE(HasHeading());
}

TEST_F(StartPage, ShowsTheListUnderItsHeading) {
    OpenWith(3);
    for (const char16_t* theme : {u"Light", u"Dark", u"System Default"}) {
        UseTheme(theme, Window());
        EXPECT_TRUE(IsListShown());
        const RECT ink = HeadingInk();
        EXPECT_GE(ink.left, ListPlace().left);
        EXPECT_LT(ink.left, ListPlace().left + 10);
        EXPECT_GT(Width(ink), 80) << Letters(theme);
        EXPECT_LE(ink.bottom, ListPlace().top - TheTheme().m_borderWidth);
    }
}

TEST_F(StartPage, EndsAHeadingThatIsTooLongInItsColumn) {
    OpenWith(1);
    const OtherLanguage language(
        tvstring(u"[start]\r\nrecent_title = ").append(tvstring(300, u'W')).append(u"\r\n"));
    OtherLanguage::Choose();
    EXPECT_GT(HeadingInk().right, ListPlace().right - 60);
    EXPECT_LE(HeadingInk().right, ListPlace().right);
}

TEST_F(StartPage, ShowsNoListWhileTheHistoryIsOff) {
    AddGone(3);
    TheAppData().bHistory = 0;
    OpenWindow();
    EXPECT_EQ(List().GetCount(), 3);
    EXPECT_FALSE(IsListShown());
    EXPECT_FALSE(HasHeading());
}

TEST_F(StartPage, PutsTheButtonsAloneInTheirOwnPlaceWhileTheHistoryIsOff) {
    OpenWith(kEntries);
    Resize(1000, 620);
    const LONG withList = CreatePlace().top;
    TheAppData().bHistory = 0;
    Main().OnAppNotify(APPN_START, 0, 0, 0);
    EXPECT_FALSE(IsListShown());
    ExpectBlockInPlace();
    EXPECT_NE(CreatePlace().top, withList);
}

TEST_F(StartPage, ShowsTheListAsSoonAsThereIsAnEntry) {
    OpenWindow();
    AddGone(1);
    Main().OnAppNotify(APPN_START, 0, 0, 0);
    EXPECT_TRUE(IsListShown());
    EXPECT_TRUE(HasHeading());
}

TEST_F(StartPage, TakesAnyNotificationForANewList) {
    OpenWindow();
    AddGone(2);
    Page().OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    EXPECT_EQ(ShownNames(), "Name 1, Name 2");
    EXPECT_TRUE(IsListShown());
}

TEST_F(StartPage, ShowsAndHidesTheBoxAroundTheListWithIt) {
    OpenWindow();
    const HWND box = tvScrollBox::OuterOf(ListWindow());
    ASSERT_NE(box, ListWindow());
    EXPECT_FALSE(IsWindowVisible(box));
    AddGone(2);
    Main().OnAppNotify(APPN_START, 0, 0, 0);
    EXPECT_TRUE(IsWindowVisible(box));
    EXPECT_TRUE(IsWindowVisible(ListWindow()));
    TheAppData().bHistory = 0;
    Main().OnAppNotify(APPN_START, 0, 0, 0);
    EXPECT_FALSE(IsWindowVisible(box));
}

TEST_F(StartPage, HasTheScrollBarWithinTheListsColumn) {
    OpenWith(kEntries);
    Resize(10, 10);
    const tvScrollBox& box = List().m_scrollBox;
    ASSERT_FALSE(IsRectEmpty(&box.m_parts[SCROLL_BAR]));
    EXPECT_EQ(ListPlace(), PlaceInParent(box.Handle()));
    EXPECT_EQ(ListPlace().right, CreatePlace().right);
    EXPECT_EQ(box.m_parts[SCROLL_BAR].right, ClientOf(box.Handle()).right);
    EXPECT_EQ(ClientOf(ListWindow()).right, Width(ListPlace()) - GetSystemMetrics(SM_CXVSCROLL) + 1);
}

TEST_F(StartPage, HidesTheListWhenItsCommandSwitchesTheHistoryOff) {
    OpenWith(2);
    {
        const DuringModal steps({AnswerBox(IDYES)});
        Command(CMD_HISTORY);
    }
    EXPECT_FALSE(IsListShown());
    EXPECT_FALSE(HasHeading());
    EXPECT_EQ(KeptNames(), "");
}

// --- Layout ---

TEST_F(StartPage, StandsAThirdOfTheFreeRoomDownAtAnySize) {
    OpenWith(3);
    bool wasAtTop = false;
    bool wasLower = false;
    for (int height = 10; height <= 870; height += 43) {
        Resize(900, height);
        ExpectBlockInPlace();
        ExpectOrder();
        ExpectWithinTheRoom();
        (CreatePlace().top == Room().top ? wasAtTop : wasLower) = true;
    }
    EXPECT_TRUE(wasAtTop);
    EXPECT_TRUE(wasLower);
}

TEST_F(StartPage, StandsTheSameWithoutAList) {
    TheAppData().bHistory = 0;
    OpenWindow();
    for (int height = 10; height <= 870; height += 86) {
        Resize(900, height);
        ExpectBlockInPlace();
    }
}

TEST_F(StartPage, LeavesRoomForOneMoreRowWhereThereIs) {
    OpenWith(3);
    Resize(900, 800);
    EXPECT_EQ(Height(ListPlace()), 4 * Height(RowRect(0)));
}

TEST_F(StartPage, LetsNothingOverlapInTheSmallestWindow) {
    OpenWith(kEntries);
    Resize(10, 10);
    EXPECT_GT(ClientOf(Window()).right, 400);  // its least size
    ExpectOrder();
    ExpectWithinTheRoom();
    EXPECT_LT(Height(ListPlace()), kEntries * Height(RowRect(0)));
    EXPECT_TRUE(HasHeading());
    EXPECT_LE(ListPlace().bottom, ClientOf(Page().Handle()).bottom);
}

TEST_F(StartPage, StaysInTheMiddleAndNoWiderThan128Letters) {
    OpenWith(2);
    int letter = 0;
    TheTheme().TextHeight(TheTheme().Font(), &letter);
    for (const int width : {10, 900, 1000, 1200}) {
        Resize(width, 700);
        const RECT room = Room();
        EXPECT_EQ(Width(CreatePlace()), std::min(128 * letter, Width(room)));
        const LONG left = CreatePlace().left - room.left;
        const LONG right = room.right - CreatePlace().right;
        EXPECT_LE(std::abs(left - right), 1);
    }
    EXPECT_LT(Width(CreatePlace()), Width(Room()));
}

TEST_F(StartPage, IsLaidOutAnewInANewFont) {
    const KeepFont keep;
    OpenWith(3);
    Resize(1200, 870);
    const LONG row = Height(RowRect(0));
    const LONG button = Height(CreatePlace());
    TheTheme().SetFont(keep.Doubled(), 1.45F);
    Settle(Window());
    EXPECT_GT(Height(RowRect(0)), row * 3 / 2);
    EXPECT_GT(Height(CreatePlace()), button * 5 / 4);
    ExpectOrder();
    ExpectWithinTheRoom();
    ExpectBlockInPlace();
    EXPECT_TRUE(HasHeading());
    platform::DeleteUserTree(u"Software\\Tolvane");
}

// The page keeps its size then: nothing else would have it laid out.
TEST_F(StartPage, IsLaidOutAnewInANewFontOfItsOwn) {
    OpenWith(3);
    Resize(1200, 870);
    const LONG button = Height(CreatePlace());
    tvfont font;
    font.Set(KeepFont().Doubled());
    Page().Send(WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    EXPECT_GT(Height(CreatePlace()), button);
    ExpectOrder();
    ExpectWithinTheRoom();
    Page().Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), TRUE);
    EXPECT_EQ(Height(CreatePlace()), button);
    ExpectOrder();
}

// So large a font that the buttons alone fill the window.
TEST_F(StartPage, KeepsOneRowWhereThereIsNoRoomAtAll) {
    const KeepFont keep;
    OpenWith(3);
    LOGFONTW font = keep.Regular();
    font.lfHeight *= 5;
    TheTheme().SetFont(font, 1.45F);
    Resize(10, 10);
    ASSERT_LT(Height(Room()), 2 * Height(CreatePlace()));
    EXPECT_EQ(Height(ListPlace()), List().CalcItemHeight(-1));
    EXPECT_EQ(CreatePlace().top, Room().top);
    ExpectOrder();
    platform::DeleteUserTree(u"Software\\Tolvane");
}

}  // namespace
