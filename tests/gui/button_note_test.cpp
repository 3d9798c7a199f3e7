// Buttons with a title and a note.
#include "toolkit/button_note.h"

#include <algorithm>

#include "tests/gui/button_stage.h"
#include "toolkit/text_draw.h"

namespace {

class NoteButton : public tvButton_Note {
public:
    explicit NoteButton(int glyph = GLYPH_NONE) : tvButton_Note(glyph) { m_noAnimation = 1; }
};
class NoteButtonWithDisk : public NoteButton {
public:
    NoteButtonWithDisk() : NoteButton(GLYPH_DISK) {}
};

constexpr int kIconWidth = 24;
constexpr int kIconHeight = 60;

int HeightIn(HFONT font, const char16_t* text) {
    const tvClientDC dc(nullptr);
    const tvSelected selected(dc.Get(), font);
    RECT rect{};
    return MeasureText(text, DT_SINGLELINE, dc.Get(), rect);
}

int LinesOfNote() {
    return 2 * (TheTheme().TextHeight(TheTheme().Font(), nullptr) + 9);
}

template <typename Wrapper>
void Widen(Stage<Wrapper>& stage, int width = 220) {
    SetWindowPos(stage.Window(), nullptr, 5, 40, width, 30, SWP_NOZORDER);
    Settle(stage.Window());
}

UNDER_EACH_THEME(NoteButtonFit);

TEST_P(NoteButtonFit, IsAsHighAsTitleAndTwoLines) {
    Stage<NoteButton> stage(GetParam(), 0, u"Title");
    Widen(stage);
    EXPECT_EQ(SizeOf(stage.Window()).cx, 220);
    const int title = HeightIn(TheTheme().m_fontLarge.Get(), u"Title");
    EXPECT_EQ(SizeOf(stage.Window()).cy, title + 4 + LinesOfNote());
}

TEST_P(NoteButtonFit, CountsTheHigherOfPictureAndTitle) {
    Stage<NoteButtonWithDisk> stage(GetParam(), 0, u"Title");
    const int title = HeightIn(TheTheme().m_fontLarge.Get(), u"Title");
    EXPECT_EQ(SizeOf(stage.Window()).cy, std::max(title, 16) + 4 + LinesOfNote());
    SetWindowTextW(stage.Window(), L"");
    EXPECT_EQ(SizeOf(stage.Window()).cy, 16 + 4 + LinesOfNote());
}

TEST_P(NoteButtonFit, WithoutTitleAndPictureHasTwoLines) {
    Stage<NoteButton> stage(GetParam(), 0, u"");
    EXPECT_EQ(SizeOf(stage.Window()).cy, LinesOfNote());
}

TEST_P(NoteButtonFit, MeasuresTheTitleInItsOwnFont) {
    Stage<NoteButton> stage(GetParam(), 0, u"Title");
    stage.button.m_titleFont = TheTheme().Font();
    stage.button.OnAutoFit();
    EXPECT_EQ(SizeOf(stage.Window()).cy, HeightIn(TheTheme().Font(), u"Title") + 4 + LinesOfNote());
}

TEST_P(NoteButtonFit, CountsItsEdgesBesides) {
    Stage<NoteButton> stage(GetParam(), 0, u"Title");
    const LONG before = SizeOf(stage.Window()).cy;
    stage.button.ModifyStyleEx(0, WS_EX_CLIENTEDGE);
    stage.button.OnAutoFit();
    EXPECT_EQ(SizeOf(stage.Window()).cy, before);
}

TEST(NoteButtonIcon, IsCountedWhenItIsSet) {
    const Canvas colors(kIconWidth, kIconHeight, RGB(250, 1, 2));
    const std::vector<u8> none(static_cast<std::size_t>(4 * kIconHeight));
    const tvBitmapHandle mask(CreateBitmap(kIconWidth, kIconHeight, 1, 1, none.data()));
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmMask = mask.Get();
    info.hbmColor = static_cast<HBITMAP>(GetCurrentObject(colors.Dc(), OBJ_BITMAP));
    const tvIconHandle icon(CreateIconIndirect(&info));
    Stage<NoteButton> stage(kLight, 0, u"n");
    Widen(stage);
    SendMessageW(stage.Window(), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.Get()));
    EXPECT_EQ(SizeOf(stage.Window()).cy, kIconHeight + 4 + LinesOfNote());
    const Sheet sheet(stage.Window(), 0);
    const RECT shown = sheet.ExtentOf(RGB(250, 1, 2));
    // The ground's own 2 and 1, then 4.
    EXPECT_EQ(shown.left, 7);
    EXPECT_EQ(shown.top, 7);
    const RECT title = sheet.ExtentOf(TheTheme().m_text);
    EXPECT_GE(title.left, shown.right + 6);
    EXPECT_LE(title.left, shown.right + 8);
    EXPECT_NEAR((title.top + title.bottom) / 2, (shown.top + shown.bottom) / 2, 6);
}

UNDER_COLOR_THEMES(NoteButtonPicture);

TEST_P(NoteButtonPicture, HasTheNoteBelowTheTitle) {
    Stage<NoteButton> stage(GetParam(), 0, u"n");
    Widen(stage);
    const RECT title = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    const int titleHeight = HeightIn(TheTheme().m_fontLarge.Get(), u"n");
    stage.button.SetNote(u"n");
    EXPECT_EQ(stage.button.m_note, u"n");
    const RECT both = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    EXPECT_EQ(both.top, title.top);
    EXPECT_GT(both.bottom, 7 + titleHeight + 4);
    SetWindowTextW(stage.Window(), L"");
    const RECT note = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    EXPECT_GE(note.top, 7 + 4);
    EXPECT_LT(note.bottom - note.top, title.bottom - title.top);
}

TEST_P(NoteButtonPicture, WrapsTheNote) {
    Stage<NoteButton> stage(GetParam(), 0, u"");
    Widen(stage, 90);
    stage.button.SetNote(u"nn");
    const RECT one = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    stage.button.SetNote(u"nn nn nn nn nn nn");
    const RECT two = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    EXPECT_GT(two.bottom, one.bottom + 8);
}

TEST_P(NoteButtonPicture, ShowsMarksInTheNoteAsTheyAre) {
    Stage<NoteButton> stage(GetParam(), 0, u"");
    Widen(stage);
    stage.button.SetNote(u"n&n");
    const int withMark = Sheet(stage.Window(), 0).Count(TheTheme().m_text);
    const RECT extent = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    stage.button.SetNote(u"nn");
    EXPECT_GT(withMark, Sheet(stage.Window(), 0).Count(TheTheme().m_text));
    EXPECT_GT(extent.right, Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text).right);
}

TEST_P(NoteButtonPicture, EndsANoteThatIsTooLongInDots) {
    const tvstring note =
        u"nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn nn";
    Stage<NoteButton> stage(GetParam(), 0, u"");
    Widen(stage, 90);
    const auto looksAsDrawnWith = [&](UINT flags) {
        stage.button.SetNote(u"");
        const Sheet expected(stage.Window(), 0);
        RECT room{7, 7 + 4, expected.size.cx - 7, expected.size.cy - 7};
        const HDC dc = expected.canvas.Dc();
        const tvSelected font(dc, TheTheme().Font());
        SetTextColor(dc, TheTheme().m_text);
        SetBkMode(dc, TRANSPARENT);
        DrawTextW(dc, Wide(note.c_str()), static_cast<int>(note.size()), &room, flags);
        stage.button.SetNote(note);
        return Sheet(stage.Window(), 0) == expected;
    };
    constexpr UINT kWrapped = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;
    EXPECT_TRUE(looksAsDrawnWith(kWrapped | DT_END_ELLIPSIS));
    EXPECT_FALSE(looksAsDrawnWith(kWrapped));
}

TEST_P(NoteButtonPicture, HasAFrameOnlyWithTheFocus) {
    Stage<NoteButton> stage(GetParam(), 0, u"n");
    const Sheet idle(stage.Window(), 0);
    EXPECT_EQ(idle.At(0, 5), TheTheme().m_button);
    EXPECT_EQ(idle.AtEnd(0, 5), TheTheme().m_button);
    const Sheet focused(stage.Window(), ODS_FOCUS);
    EXPECT_EQ(focused.At(0, 5), TheTheme().m_borderActive);
    EXPECT_EQ(focused.AtEnd(5, 0), TheTheme().m_borderActive);
    EXPECT_EQ(Sheet(stage.Window(), 0).At(0, 5), TheTheme().m_button);
}

TEST_P(NoteButtonPicture, IsAtTheRightIfTheStyleSaysSo) {
    Stage<NoteButtonWithDisk> stage(GetParam(), BS_RIGHT, u"");
    Widen(stage);
    const LONG width = SizeOf(stage.Window()).cx;
    const RECT disk = Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_icon);
    EXPECT_EQ(disk.right, width - 7);
    EXPECT_EQ(disk.right - disk.left, 16);
    EXPECT_EQ(disk.top, 7);
    Stage<NoteButton> plain(GetParam(), BS_RIGHT, u"n");
    Widen(plain);
    const RECT title = Sheet(plain.Window(), 0).ExtentOf(TheTheme().m_text);
    EXPECT_GE(title.right, width - 9);
}

TEST(NoteButtonColors, AreOfTheTextAndOfTheGlyph) {
    Stage<NoteButtonWithDisk> stage(kLight, 0, u"n");
    Widen(stage);
    const Sheet sheet(stage.Window(), 0);
    const RECT disk = sheet.ExtentOf(TheTheme().m_icon);
    EXPECT_EQ(disk.left, 7);
    EXPECT_EQ(disk.right - disk.left, 16);
    const RECT title = sheet.ExtentOf(TheTheme().m_text);
    EXPECT_GE(title.left, disk.right + 6);
    EXPECT_LE(title.left, disk.right + 8);
    DRAWITEMSTRUCT item{};
    tvButtonColors colors;
    stage.button.GetColors(item, colors);
    EXPECT_EQ(colors.m_markFill, TheTheme().m_icon);
    EXPECT_EQ(colors.m_text, TheTheme().m_text);
    UseTheme(kSystem, stage.dialog.Handle());
    stage.button.GetColors(item, colors);
    EXPECT_EQ(colors.m_markFill, GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(colors.m_text, GetSysColor(COLOR_BTNTEXT));
}

TEST_P(NoteButtonPicture, SendsItsCommand) {
    Stage<NoteButtonWithDisk> stage(GetParam(), 0, u"Title");
    Click(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 1; }));
}

}  // namespace
