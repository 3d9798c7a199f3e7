// The cue of an edit box.
#include "tests/gui/input_stage.h"
#include "toolkit/edit.h"

namespace {

using EditStage = InputStage<tvEdit, ATOM_EDIT>;

constexpr COLORREF kRed = RGB(250, 10, 20);
constexpr COLORREF kUsual = 0xFF000000;

class CountingEdit : public tvEdit {
public:
    void OnDraw(HDC dc, const RECT& rect, void* paint) override {
        ++m_painted;
        tvEdit::OnDraw(dc, rect, paint);
    }
    int m_painted = 0;
};

COLORREF Ground() {
    return TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW);
}

// How much ink of any colour is in the box. The mouse and the caret are elsewhere.
int Ink(const EditStage& stage) {
    return CountOthers(stage.Look(), Ground());
}

// A box of the toolkit's under a system with a visual style is out of reach here: without one the class
// paints under System Default too.
UNDER_EACH_THEME(EditCue);

TEST_P(EditCue, IsShownWhileTheBoxIsEmpty) {
    EditStage stage(GetParam());
    EXPECT_EQ(Ink(stage), 0);
    stage.input.SetCue(u"WWWW", true);
    const int ink = Ink(stage);
    EXPECT_GT(ink, 20);
    EXPECT_GT(stage.Look().Count(TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)), 0);
    stage.input.SetCue(u"", true);
    EXPECT_EQ(Ink(stage), 0);
}

TEST_P(EditCue, OfABoxWithATextShowsOnlyWhenThatIsEmptied) {
    EditStage stage(GetParam());
    SetWindowTextW(stage.Window(), L"i");
    const Picture before = stage.Look();
    stage.input.SetCue(u"WWWWWWWW", true);
    EXPECT_TRUE(stage.Look() == before);
    SetWindowTextW(stage.Window(), L"");
    EXPECT_GT(Ink(stage), 20);
}

// What a box without a cue looks like with this text in it.
Picture WithoutCue(std::u16string_view theme, const wchar_t* text) {
    const EditStage stage(theme);
    SetWindowTextW(stage.Window(), text);
    return stage.Look();
}

TEST_P(EditCue, GoesAndComesWithTyping) {
    const Picture onlyText = WithoutCue(GetParam(), L"x");
    EditStage stage(GetParam());
    stage.input.SetCue(u"WWWW", true);
    const Picture cue = stage.Look();
    Focus(stage.dialog, stage.Window());
    TypeText(u"x");
    EXPECT_TRUE(PumpUntil([&] { return TextOf(stage.Window()) == u"x"; }));
    Focus(stage.dialog, stage.dialog.Item(kOther));
    EXPECT_TRUE(stage.Look() == onlyText);
    Focus(stage.dialog, stage.Window());
    Type(VK_BACK);
    EXPECT_TRUE(PumpUntil([&] { return TextOf(stage.Window()).empty(); }));
    Focus(stage.dialog, stage.dialog.Item(kOther));
    EXPECT_TRUE(stage.Look() == cue);
}

TEST_P(EditCue, StaysWithTheKeyboardOnlyIfItIsTo) {
    for (const bool onFocus : {true, false}) {
        EditStage stage(GetParam());
        stage.input.SetCue(u"WWWW", onFocus);
        EXPECT_GT(Ink(stage), 20);
        Focus(stage.dialog, stage.Window());
        const Picture focused = stage.Look();
        const int ink = focused.Count(TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT));
        EXPECT_EQ(ink > 0, onFocus);
        Focus(stage.dialog, stage.dialog.Item(kOther));
        EXPECT_GT(Ink(stage), 20);
    }
}

// What the system shows there is its own affair.
TEST_P(EditCue, IsNotPaintedInADisabledBoxNorInOneOfManyLines) {
    for (const u32 style : {0U, u32{WS_DISABLED}, u32{ES_MULTILINE}}) {
        InputStage<CountingEdit, ATOM_EDIT> stage(GetParam(), style,
                                                  [](tvEdit& edit) { edit.SetCue(u"WWWW", true); });
        EXPECT_EQ(stage.input.m_painted > 0, style == 0) << style;
    }
}

TEST_P(EditCue, StandsOnTheGroundOfAReadOnlyBox) {
    EditStage stage(GetParam(), ES_READONLY);
    stage.input.SetCue(u"WWWW", true);
    const Picture look = stage.Look();
    EXPECT_EQ(look.At(look.Width() - 3, 3), TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
}

TEST_P(EditCue, ForAWhileWinsAndTakesItsOwnColor) {
    EditStage stage(GetParam());
    stage.input.SetCue(u"WWWWWW", true);
    const Picture cue = stage.Look();
    stage.input.SetTempCue(u"WW", true, kRed);
    const Picture look = stage.Look();
    EXPECT_GT(look.Count(kRed), 0);
    EXPECT_EQ(look.Count(TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)), 0);
    stage.input.SetTempCue(u"", true, kUsual);
    EXPECT_TRUE(stage.Look() == cue);
}

TEST_P(EditCue, ForAWhileGoesForGoodAtTheFirstTypedCharacter) {
    EditStage stage(GetParam());
    stage.input.SetCue(u"WWWWWW", true);
    const Picture cue = stage.Look();
    stage.input.SetTempCue(u"WW", true, kRed);
    Focus(stage.dialog, stage.Window());
    TypeText(u"x");
    EXPECT_TRUE(PumpUntil([&] { return stage.input.m_tempCue.empty(); }));
    Type(VK_BACK);
    EXPECT_TRUE(PumpUntil([&] { return TextOf(stage.Window()).empty(); }));
    Focus(stage.dialog, stage.dialog.Item(kOther));
    EXPECT_TRUE(stage.Look() == cue);
}

TEST_P(EditCue, ForAWhileHidesWithTheKeyboardByItsOwnFlag) {
    EditStage stage(GetParam());
    stage.input.SetCue(u"WWWW", true);
    stage.input.SetTempCue(u"WW", false, kRed);
    EXPECT_GT(stage.Look().Count(kRed), 0);
    Focus(stage.dialog, stage.Window());
    EXPECT_EQ(stage.Look().Count(kRed), 0);
}

TEST(EditCueFields, StartAsTheyAreDescribed) {
    const tvEdit edit;
    EXPECT_EQ(edit.m_cueOnFocus, 1);
    EXPECT_EQ(edit.m_tempCueOnFocus, 1);
    EXPECT_EQ(edit.m_cueColor, kUsual);
    EXPECT_TRUE(edit.m_cue.empty());
    EXPECT_EQ(edit.m_autoHeight, 0);
}

TEST(EditCueFields, TakeACueAndLoseTheColorOfTheLast) {
    tvEdit edit;
    edit.m_cueColor = kRed;
    edit.SetCue(u"Cue", false);
    EXPECT_EQ(edit.m_cue, u"Cue");
    EXPECT_EQ(edit.m_cueOnFocus, 0);
    EXPECT_EQ(edit.m_cueColor, kUsual);
}

TEST(EditCueMessage, FromOutsideSetsTheCue) {
    EditStage stage;
    stage.input.m_cueColor = kRed;
    EXPECT_TRUE(SendMessageW(stage.Window(), EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(L"Outside")));
    EXPECT_EQ(stage.input.m_cue, u"Outside");
    EXPECT_EQ(stage.input.m_cueOnFocus, 0);
    EXPECT_EQ(stage.input.m_cueColor, kUsual);
    SendMessageW(stage.Window(), EM_SETCUEBANNER, TRUE, 0);
    EXPECT_TRUE(stage.input.m_cue.empty());
    EXPECT_EQ(stage.input.m_cueOnFocus, 1);
}

TEST(EditCueMessage, WithOneOfTheOwnTextsGoesToTheSystem) {
    EditStage stage;
    stage.input.SetCue(u"Cue", true);
    stage.input.SetTempCue(u"For a while", true, kRed);
    HandedOn handed(stage.input);
    for (const tvstring* own : {&stage.input.m_cue, &stage.input.m_tempCue}) {
        handed.Clear();
        SendMessageW(stage.Window(), EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(own->c_str()));
        EXPECT_EQ(handed.Of(EM_SETCUEBANNER).size(), 1U);
    }
    EXPECT_EQ(stage.input.m_cue, u"Cue");
    EXPECT_EQ(stage.input.m_cueOnFocus, 1);
}

TEST(EditCueMessage, IsNotSentForACueThatAnotherHides) {
    EditStage stage;
    stage.input.SetTempCue(u"For a while", true, kRed);
    HandedOn handed(stage.input);
    stage.input.SetCue(u"Cue", true);
    EXPECT_EQ(handed.Of(EM_SETCUEBANNER).size(), 0U);
    SetWindowTextW(stage.Window(), L"x");
    EXPECT_EQ(handed.Of(EM_SETCUEBANNER), std::vector<WPARAM>{TRUE});
}

TEST(EditCueMessage, LeavesTheNotificationsToTheParent) {
    EditStage stage;
    stage.input.SetTempCue(u"For a while", true, kRed);
    stage.dialog.m_commands.clear();
    SetWindowTextW(stage.Window(), L"x");
    using Command = TestDialog::Command;
    EXPECT_EQ(stage.dialog.m_commands, (std::vector<Command>{{kInput, EN_UPDATE}, {kInput, EN_CHANGE}}));
}

TEST(EditCueMessage, SetBeforeTheWindowIsThereReachesTheSystemLater) {
    EditStage stage(kLight, 0, [](tvEdit& edit) { edit.SetCue(u"Early", true); });
    wchar_t text[20] = {};
    SendMessageW(stage.Window(), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(text), 20);
    EXPECT_STREQ(text, L"Early");
}

}  // namespace
