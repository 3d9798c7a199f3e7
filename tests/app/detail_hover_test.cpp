// The hover buttons of the detail pane: where they appear, what they say, and when they go.
#include "tests/app/detail_stage.h"
#include "tests/app/other_language.h"
#include "toolkit/image.h"

namespace {

constexpr u32 kShowImage = 111;
constexpr u32 kHideImage = 112;

class DetailHover : public DetailTest {
protected:
    // Where the buttons of a field are, counted from 0 at the end of its value.
    [[nodiscard]] POINT Beside(u16 type, int count) const {
        const RECT text = Field(type).m_textRect;
        const RECT button = ClientOf(Pane().m_modifyHover.Handle());
        const LONG border = TheTheme().m_borderWidth;
        return {text.right + border + count * (Width(button) + border),
                text.top + Height(text) / 2 - Height(button) / 2};
    }
    static void ExpectAt(const CVMRAutoHideButton& button, const POINT& place) {
        const RECT rect = PlaceInParent(button.Handle());
        EXPECT_EQ(rect.left, place.x);
        EXPECT_EQ(rect.top, place.y);
    }
    void PointAtButton(const CVMRAutoHideButton& button) const {
        MoveMouseTo(button.Handle());
        EXPECT_TRUE(PumpUntil([&] { return button.m_hover != 0 || TheTheme().m_isSystemDefault; }));
        PumpQueue();
    }
    // The button shows the picture in the colour of icons.
    [[nodiscard]] bool IsPainted(const CVMRAutoHideButton& button) const {
        Settle(button.Handle());
        return Picture(button.Handle()).Count(NoteColor()) > 10;
    }
};

TEST_F(DetailHover, HasSquareButtonsWithoutTabStops) {
    OpenPane();
    for (const CVMRAutoHideButton* button : std::initializer_list<const CVMRAutoHideButton*>{
             &Pane().m_modifyHover, &Pane().m_showHover, &Pane().m_goHover, &Pane().m_copyHover}) {
        const RECT client = ClientOf(button->Handle());
        EXPECT_EQ(client, (RECT{0, 0, 38, 38}));
        EXPECT_FALSE(HasStyle(button->Handle(), WS_TABSTOP));
        EXPECT_EQ(TextOf(button->Handle()).empty(),
                  dynamic_cast<const CVMRDynTipIconButton*>(button) != nullptr);
    }
}

// Where a button that is hidden stays, the mouse goes through it.
TEST_F(DetailHover, HasButtonsThatTheMouseDoesNotMeetWhileHidden) {
    OpenPane();
    CVMRAutoHideButton& button = Pane().m_modifyHover;
    const POINT place{20, 30};
    const auto hit = [&button] {
        POINT middle{10, 10};
        ClientToScreen(button.Handle(), &middle);
        return button.Send(WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y));
    };
    button.Show(true, &place);
    EXPECT_EQ(hit(), HTCLIENT);
    button.Show(false, &place);
    EXPECT_EQ(hit(), HTTRANSPARENT);
    ExpectAt(button, place);
    button.Show(false, nullptr);
    ExpectAt(button, {-48, -48});
}

TEST_F(DetailHover, ShowsNoneWhileTheMouseIsElsewhere) {
    OpenPane();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Pane().m_hotField, kNone);
}

// The name cannot be copied.
TEST_F(DetailHover, OffersToModifyTheNameOnly) {
    OpenPane();
    PointAt(kName);
    EXPECT_EQ(Shown(), "modify");
    ExpectAt(Pane().m_modifyHover, Beside(kName, 0));
    EXPECT_TRUE(IsPainted(Pane().m_modifyHover));
}

TEST_F(DetailHover, OffersToModifyCopyAndOpenTheProgram) {
    OpenPane();
    PointAt(kProgram);
    EXPECT_EQ(Shown(), "modify copy go");
    ExpectAt(Pane().m_modifyHover, Beside(kProgram, 0));
    ExpectAt(Pane().m_copyHover, Beside(kProgram, 1));
    ExpectAt(Pane().m_goHover, Beside(kProgram, 2));
}

TEST_F(DetailHover, OffersToModifyAndCopyTheUserName) {
    OpenPane();
    PointAt(kUser);
    EXPECT_EQ(Shown(), "modify copy");
    ExpectAt(Pane().m_copyHover, Beside(kUser, 1));
}

TEST_F(DetailHover, OffersToModifyCopyAndShowThePassword) {
    OpenPane();
    PointAt(kPassword);
    EXPECT_EQ(Shown(), "modify copy show");
    ExpectAt(Pane().m_modifyHover, Beside(kPassword, 0));
    ExpectAt(Pane().m_showHover, Beside(kPassword, 2));
}

TEST_F(DetailHover, OffersToModifyAnEmptyFieldOnly) {
    for (const u16 type : {kProgram, kUser, kPassword})
        Set(type, u"");
    OpenPane();
    for (const u16 type : {kProgram, kUser, kPassword}) {
        PointAt(type);
        EXPECT_EQ(Shown(), "modify") << type;
    }
}

TEST_F(DetailHover, TakesTheDateForTheName) {
    OpenPane();
    const FieldBox name = Field(kName);
    const LONG date = name.m_textRect.bottom + TheTheme().m_borderWidth;
    MoveMouse(PaneWindow(), name.m_hitRect.left + 3, date + 5);
    EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kName; }));
    EXPECT_EQ(Shown(), "modify");
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"Rename Password Item");
    ExpectAt(Pane().m_modifyHover, Beside(kName, 0));
}

TEST_F(DetailHover, TakesLabelAndRightEndForTheField) {
    OpenPane();
    const RECT hit = Field(kUser).m_hitRect;
    for (const POINT& point : {POINT{hit.left, hit.top}, POINT{hit.right - 1, hit.top},
                               POINT{hit.left, hit.bottom - 1}, POINT{hit.right - 1, hit.bottom - 1}}) {
        PointAt(kName);
        MoveMouse(PaneWindow(), point.x, point.y);
        EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kUser; })) << point.x << ' ' << point.y;
    }
    for (const POINT& point : {POINT{hit.left, hit.top - 1}, POINT{hit.left - 1, hit.top},
                               POINT{hit.right, hit.top}, POINT{hit.left, hit.bottom}}) {
        PointAt(kName);
        MoveMouse(PaneWindow(), point.x, point.y);
        EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kNone; })) << point.x << ' ' << point.y;
        EXPECT_EQ(Shown(), "");
    }
}

TEST_F(DetailHover, OffersNothingForTheHeadingOfTheList) {
    OpenPane();
    PointAt(kUser);
    const RECT heading = Field(kAddition).m_hitRect;
    MoveMouse(PaneWindow(), heading.left + 3, heading.top + 3);
    EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kNone; }));
    EXPECT_EQ(Shown(), "");
}

TEST_F(DetailHover, OffersNothingForAnEntryThatTheItemLacks) {
    OpenPane();
    const RECT user = Field(kUser).m_hitRect;
    ElementArray gone{Entry(kPassword), Entry(kUser)};
    TheDatabase().RemoveEntries(gone, &Item());
    Show(&Item());
    MoveMouse(PaneWindow(), user.left + 3, user.bottom - 3);
    PumpQueue();
    EXPECT_FALSE(Pane().m_hotField == kUser || Pane().m_hotField == kPassword);
    EXPECT_EQ(Shown(), "");
}

// --- The mouse moves ---

TEST_F(DetailHover, MovesWithTheMouseFromFieldToField) {
    OpenPane();
    for (const u16 type : {kName, kPassword, kProgram, kUser, kName}) {
        PointAt(type);
        ExpectAt(Pane().m_modifyHover, Beside(type, 0));
    }
    EXPECT_EQ(Shown(), "modify");
}

TEST_F(DetailHover, StaysWhileTheMouseIsOnAButton) {
    OpenPane();
    PointAt(kProgram);
    for (const CVMRAutoHideButton* button : std::initializer_list<const CVMRAutoHideButton*>{
             &Pane().m_modifyHover, &Pane().m_copyHover, &Pane().m_goHover}) {
        PointAtButton(*button);
        EXPECT_EQ(Pane().m_hotField, kProgram);
        EXPECT_EQ(Shown(), "modify copy go");
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
    }
}

TEST_F(DetailHover, GoesWhenTheMouseLeavesThePaneFromAButton) {
    OpenPane();
    PointAt(kProgram);
    PointAtButton(Pane().m_goHover);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kNone; }));
    EXPECT_EQ(Shown(), "");
    PointAt(kProgram);
    EXPECT_EQ(Shown(), "modify copy go");
}

TEST_F(DetailHover, GoesWhenTheMouseLeavesThePane) {
    OpenPane();
    PointAt(kUser);
    EXPECT_EQ(Pane().m_tracking, 1);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([this] { return Pane().m_hotField == kNone; }));
    EXPECT_EQ(Pane().m_tracking, 0);
    EXPECT_EQ(Shown(), "");
}

TEST_F(DetailHover, ComesToAnotherFieldFromAButton) {
    OpenPane();
    PointAt(kProgram);
    PointAtButton(Pane().m_goHover);
    PointAt(kPassword);
    EXPECT_EQ(Shown(), "modify copy show");
    ExpectAt(Pane().m_modifyHover, Beside(kPassword, 0));
}

TEST_F(DetailHover, GoesWithTheItem) {
    OpenPane();
    PointAt(kProgram);
    Show(&Item());
    EXPECT_EQ(Shown(), "");
    PointAt(kUser);
    EXPECT_NE(Shown(), "");
    Show(nullptr);
    EXPECT_EQ(Shown(), "");
}

// --- Tips ---

TEST_F(DetailHover, SaysWhatEachButtonDoes) {
    OpenPane();
    PointAt(kProgram);
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"&Modify...");
    EXPECT_EQ(TipOf(Pane().m_copyHover), u"Copy");
    EXPECT_EQ(TipOf(Pane().m_goHover), u"Go");
    PointAt(kPassword);
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Show Password");
    PointAt(kName);
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"Rename Password Item");
    PointAt(kUser);
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"&Modify...");
}

TEST_F(DetailHover, ShowsATipOverAButton) {
    OpenPane();
    PointAt(kName);
    TheToolTip().Send(TTM_SETDELAYTIME, TTDT_INITIAL, 20);
    MoveMouseTo(Pane().m_modifyHover.Handle());
    EXPECT_TRUE(PumpUntil([] { return IsWindowVisible(TheToolTip().Handle()) != FALSE; }));
    MoveMouseAway();
    TheToolTip().Send(TTM_SETDELAYTIME, TTDT_AUTOMATIC, -1);
}

TEST_F(DetailHover, KeepsItsTipsThroughThemesAndPictures) {
    OpenPane();
    for (const char16_t* theme : {u"Dark", u"System Default", u"Light"}) {
        UseTheme(theme, Window());
        PointAt(kPassword);
        EXPECT_EQ(TipOf(Pane().m_modifyHover), u"&Modify...") << Letters(theme);
        EXPECT_EQ(TipOf(Pane().m_showHover), u"Show Password");
        Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
        EXPECT_EQ(TipOf(Pane().m_showHover), u"Hide Password");
        Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
        EXPECT_TRUE(IsPainted(Pane().m_showHover));
    }
}

TEST_F(DetailHover, TakesItsTipsFromTheNewLanguage) {
    OpenPane();
    const OtherLanguage language(
        u"[itemdetail]\r\nrename_title = Baptise\r\nshow_pwd = Reveal\r\nhide_pwd = Veil\r\n"
        u"[global]\r\nmodify = &Alter\r\ncopy = &Ditto\\tF5\r\ngo = Lo&s\r\n");
    OtherLanguage::Choose();
    PointAt(kName);
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"Baptise");
    PointAt(kUser);
    EXPECT_EQ(TipOf(Pane().m_modifyHover), u"&Alter");
    EXPECT_EQ(TipOf(Pane().m_copyHover), u"Ditto");
    EXPECT_EQ(TipOf(Pane().m_goHover), u"Los");
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Reveal");
    Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Veil");
}

// --- Showing passwords ---

TEST_F(DetailHover, ShowsAndHidesPasswordsByItsButton) {
    OpenPane();
    PointAt(kPassword);
    const LONG before = Field(kPassword).m_textRect.right;
    Set(kPassword, u"a rather long password");
    Click(Pane().m_showHover.Handle());
    EXPECT_TRUE(PumpUntil([] { return TheAppData().bShowPassword == 1; }));
    EXPECT_EQ(Pane().m_showHover.m_iconId, kHideImage);
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Hide Password");
    EXPECT_GT(Field(kPassword).m_textRect.right, before);
    // The buttons stand at the end of the text that is there now.
    EXPECT_TRUE(PumpUntil([this] { return Shown() == "modify copy show"; }));
    ExpectAt(Pane().m_showHover, Beside(kPassword, 2));
    Click(Pane().m_showHover.Handle());
    EXPECT_TRUE(PumpUntil([] { return TheAppData().bShowPassword == 0; }));
    EXPECT_EQ(Pane().m_showHover.m_iconId, kShowImage);
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Show Password");
}

TEST_F(DetailHover, ShowsPasswordsForThePasswordsFieldOnly) {
    OpenPane();
    for (const u16 type : {kNone, kName, kProgram, kUser, kAddition}) {
        Do(CMD_DETAIL_SHOW_PASSWORD, type);
        EXPECT_EQ(TheAppData().bShowPassword, 0);
    }
}

TEST_F(DetailHover, OffersToHidePasswordsInAWindowThatOpensWhileTheyAreShown) {
    TheAppData().bShowPassword = 1;
    OpenPane();
    EXPECT_EQ(Pane().m_showHover.m_iconId, kHideImage);
    EXPECT_EQ(TipOf(Pane().m_showHover), u"Hide Password");
}

}  // namespace
