// How the rows of a list box are painted.
#include "tests/gui/button_stage.h"
#include "tests/gui/list_box_harness.h"
#include "toolkit/control_state.h"
#include "toolkit/text_draw.h"

namespace {

// Notes where things are drawn.
class DrawnList : public tvMListBox {
public:
    void DrawItemIcon(HDC, const RECT& rect, u32 icon, const tvMListState&) override {
        m_iconRect = rect;
        m_drawnIcon = icon;
    }
    void DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state) override {
        m_textRect = rect;
        m_textColor = GetTextColor(dc);
        tvMListBox::DrawItemText(dc, rect, item, state);
    }
    int DrawItemNote(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState& state) override {
        m_noteRect = rect;
        m_noteColor = GetTextColor(dc);
        m_noteWidth = tvMListBox::DrawItemNote(dc, rect, item, state);
        return m_noteWidth;
    }

    RECT m_iconRect{};
    RECT m_textRect{};
    RECT m_noteRect{};
    u32 m_drawnIcon = 0;
    COLORREF m_textColor = 0;
    COLORREF m_noteColor = 0;
    int m_noteWidth = 0;
};

class ListDraw : public ListTest {
protected:
    // A theme whose notes have another colour than its texts.
    ListDraw() {
        UseTheme(u"Blue", m_Dialog.Handle());
        m_DrawnDialog.Add(ATOM_LISTBOX, kListId, 5, 5, 160, 90, kMultiple);
        m_DrawnDialog.Wrap(m_Drawn, kListId);
        m_DrawnDialog.Open();
    }

    // Paints the row onto a canvas of its size.
    std::unique_ptr<Canvas> Draw(int row, tvMListState state = {}) {
        state.m_index = row;
        m_Drawn.GetItemColors(state);
        RECT rect{};
        m_Drawn.GetItemRect(row, rect);
        m_Size = {Width(rect), Height(rect)};
        auto canvas = std::make_unique<Canvas>(Width(rect), Height(rect), RGB(255, 0, 255));
        const tvSelected font(canvas->Dc(), TheTheme().Font());
        m_Drawn.OnDraw(canvas->Dc(), {0, 0, Width(rect), Height(rect)}, &state);
        return canvas;
    }
    // So many pixels into the list with its frame, from the top left.
    [[nodiscard]] COLORREF CornerPixel(int inset) const {
        Settle(m_Dialog.Handle());
        RECT window{};
        GetWindowRect(OuterOf(m_Dialog.Handle(), Window()), &window);
        const tvClientDC screen(nullptr);
        return GetPixel(screen.Get(), static_cast<int>(window.left) + inset,
                        static_cast<int>(window.top) + inset);
    }
    // Extent of a colour, of the row drawn last, from a column on.
    [[nodiscard]] RECT InkOf(const Canvas& canvas, COLORREF color, int left = 0) const {
        RECT found{};
        for (int y = 0; y < m_Size.cy; ++y) {
            for (int x = left; x < m_Size.cx; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                if (canvas.At(x, y) == color) UnionRect(&found, &found, &pixel);
            }
        }
        return found;
    }
    [[nodiscard]] static int Line() { return TheTheme().TextHeight(TheTheme().Font(), nullptr); }

    DrawnList m_Drawn;
    TestDialog m_DrawnDialog;
    SIZE m_Size{};
};

tvMListState State(bool selected, bool hot, bool focused) {
    tvMListState state;
    state.m_selected = selected ? 1 : 0;
    state.m_hot = hot ? 1 : 0;
    state.m_focused = focused ? 1 : 0;
    return state;
}

TEST_F(ListDraw, ATextThatFindsNoRoomIsClipped) {
    constexpr int kHighest = 254;
    constexpr int kBelow = 100;
    constexpr COLORREF kGround = RGB(255, 0, 255);
    tvMListState state{};
    state.m_index = m_Drawn.AddItem(tvstring(5000, u'w'));
    m_Drawn.GetItemColors(state);
    RECT rect{};
    m_Drawn.GetItemRect(state.m_index, rect);
    ASSERT_EQ(Height(rect), kHighest);
    const Canvas canvas(Width(rect), kHighest + kBelow, kGround);
    const tvSelected font(canvas.Dc(), TheTheme().Font());
    m_Drawn.OnDraw(canvas.Dc(), {0, 0, Width(rect), kHighest}, &state);
    int painted = 0;
    for (int y = kHighest; y < kHighest + kBelow; ++y)
        for (int x = 0; x < Width(rect); ++x)
            if (GetPixel(canvas.Dc(), x, y) != kGround) ++painted;
    EXPECT_EQ(painted, 0);
    EXPECT_NE(GetPixel(canvas.Dc(), 0, kHighest - 1), kGround);
}

TEST_F(ListDraw, HasTheColoursOfItsStateUnderAColourTheme) {
    const tvTheme& theme = TheTheme();
    const struct {
        tvMListState state;
        COLORREF background;
    } rows[] = {
        {State(true, false, false), theme.m_button},     {State(true, true, false), theme.m_buttonPush},
        {State(true, false, true), theme.m_buttonPush},  {State(true, true, true), theme.m_buttonPush},
        {State(false, true, false), theme.m_buttonOver}, {State(false, true, true), theme.m_buttonOver},
        {State(false, false, false), theme.m_editBg},    {State(false, false, true), theme.m_editBg},
    };
    for (auto [state, background] : rows) {
        m_List.GetItemColors(state);
        EXPECT_EQ(state.m_background, background);
        EXPECT_EQ(state.m_text, theme.m_text);
        EXPECT_EQ(state.m_note, theme.m_icon);
    }
    EXPECT_EQ(m_List.GetBackColor(), theme.m_editBg);
}

TEST_F(ListDraw, HasTheSystemsColoursUnderSystemDefault) {
    UseTheme(u"System Default", m_Dialog.Handle());
    const struct {
        tvMListState state;
        int background, text, note;
    } rows[] = {
        {State(true, false, false), COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_3DDKSHADOW},
        {State(true, true, false), COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHTTEXT},
        {State(true, false, true), COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHTTEXT},
        {State(false, true, true), COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_3DDKSHADOW},
        {State(false, false, false), COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_3DDKSHADOW},
    };
    for (auto [state, background, text, note] : rows) {
        m_List.GetItemColors(state);
        EXPECT_EQ(state.m_background, GetSysColor(background));
        EXPECT_EQ(state.m_text, GetSysColor(text));
        EXPECT_EQ(state.m_note, GetSysColor(note));
    }
}

TEST_F(ListDraw, ASelectedRowUnderTheMouseHasAFrame) {
    m_Drawn.AddItem(u"x");
    const auto corner = [this](bool selected, bool hot) {
        return Draw(0, State(selected, hot, false))->At(0, 0);
    };
    EXPECT_EQ(corner(true, true), TheTheme().m_icon);
    EXPECT_EQ(corner(true, false), TheTheme().m_button);
    EXPECT_EQ(corner(false, true), TheTheme().m_buttonOver);
    const auto row = Draw(0, State(true, true, false));
    EXPECT_EQ(row->At(m_Size.cx - 1, m_Size.cy - 1), TheTheme().m_icon);
    EXPECT_EQ(row->At(1, 1), TheTheme().m_buttonPush);
}

TEST_F(ListDraw, ARowThatIsNotThereIsFilledOnly) {
    const Canvas canvas(20, 10, RGB(255, 0, 255));
    tvMListState state;
    m_Drawn.GetItemColors(state);
    m_Drawn.OnDraw(canvas.Dc(), {0, 0, 20, 10}, &state);
    EXPECT_EQ(canvas.Count(TheTheme().m_editBg), 200);
}

TEST_F(ListDraw, TheTextStandsAtTheLeftInsideTheBorder) {
    m_Drawn.AddItem(u"HHH");
    const auto row = Draw(0);
    EXPECT_EQ(m_Drawn.m_textRect, Inset(BoxAt(0, 0, m_Size.cx, m_Size.cy), 2, 2));
    EXPECT_EQ(m_Drawn.m_textColor, TheTheme().m_text);
    EXPECT_NEAR(InkOf(*row, TheTheme().m_text).left, 2, 3);
    EXPECT_EQ(GetBkMode(row->Dc()), TRANSPARENT);
}

TEST_F(ListDraw, ANoteStandsAtTheRightAndNarrowsTheText) {
    m_Drawn.AddItem(u"Text\tNote");
    const auto row = Draw(0);
    const int width = m_Size.cx - 4;
    const int gap = TheTheme().m_halfMarginX;
    EXPECT_EQ(m_Drawn.m_noteRect.right, m_Size.cx - 2);
    EXPECT_EQ(Width(m_Drawn.m_noteRect), width / 2 - gap / 2);
    EXPECT_EQ(m_Drawn.m_noteColor, TheTheme().m_icon);
    EXPECT_GT(m_Drawn.m_noteWidth, 0);
    EXPECT_EQ(m_Drawn.m_textRect.right, m_Size.cx - 2 - m_Drawn.m_noteWidth - gap);
    const RECT ink = InkOf(*row, TheTheme().m_icon);
    EXPECT_NEAR(ink.right, m_Size.cx - 2, 3);
    EXPECT_GE(ink.left, m_Size.cx / 2);
    m_Drawn.AddItem(u"Text");
    Draw(1);
    EXPECT_EQ(m_Drawn.m_noteWidth, 0);
    EXPECT_EQ(m_Drawn.m_textRect.right, m_Size.cx - 2);
}

TEST_F(ListDraw, ALongNoteShowsItsEndBehindDots) {
    m_Drawn.AddItem(u"\tC:\\A folder with a long name\\and another one in it\\HHH");
    const auto row = Draw(0);
    const RECT& note = m_Drawn.m_noteRect;
    EXPECT_EQ(m_Drawn.m_noteWidth, Width(note));
    EXPECT_EQ(note.right, m_Size.cx - 2);
    Canvas wanted(m_Size.cx, m_Size.cy, m_Drawn.GetBackColor());
    const tvSelected font(wanted.Dc(), TheTheme().Font());
    SetBkMode(wanted.Dc(), TRANSPARENT);
    SetTextColor(wanted.Dc(), TheTheme().m_icon);
    DrawTextPathEllipsis(m_Drawn.ItemOfRow(0)->m_note, wanted.Dc(), note, DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_NE(InkOf(*row, TheTheme().m_icon), RECT{});
    for (int y = 0; y < m_Size.cy; ++y) {
        for (int x = 0; x < m_Size.cx; ++x)
            ASSERT_EQ(row->At(x, y), wanted.At(x, y)) << x << ", " << y;
    }
}

TEST_F(ListDraw, TheIconStandsBetweenBorderAndText) {
    m_Drawn.m_iconWidth = 10;
    m_Drawn.AddItem(u"Text that is long enough to be broken into some lines here", 42);
    Draw(0);
    EXPECT_EQ(m_Drawn.m_drawnIcon, 42U);
    EXPECT_EQ(m_Drawn.m_iconRect, BoxAt(2, 2, 10, 10));
    EXPECT_EQ(m_Drawn.m_textRect.left, 2 + 10 + 2);
    m_Drawn.m_bottomUp = 1;
    Draw(0);
    EXPECT_EQ(m_Drawn.m_iconRect, BoxAt(2, m_Size.cy - 2 - 10, 10, 10));
}

TEST_F(ListDraw, TabsInFrontAreAnIndent) {
    m_Drawn.AddItem(u"HHH");
    m_Drawn.AddItem(u"\t\tHHH\t");
    const RECT flat = InkOf(*Draw(0), TheTheme().m_text);
    const RECT indented = InkOf(*Draw(1), TheTheme().m_text);
    EXPECT_EQ(indented.left - flat.left, 2 * (Line() + 4));
    EXPECT_EQ(Width(indented), Width(flat));
}

TEST_F(ListDraw, MarksOfMenusAreNoMarksHere) {
    m_Drawn.AddItem(u"A&B\tC&D");
    m_Drawn.AddItem(u"AB\tCD");
    EXPECT_GT(Width(InkOf(*Draw(0), TheTheme().m_text)), Width(InkOf(*Draw(1), TheTheme().m_text)));
    EXPECT_GT(Width(InkOf(*Draw(0), TheTheme().m_icon)), Width(InkOf(*Draw(1), TheTheme().m_icon)));
}

TEST_F(ListDraw, ANoteOfABottomUpListStandsAtTheBottom) {
    m_Drawn.AddItem(u"Text that is long enough to be broken into some lines here\tNote");
    const RECT top = InkOf(*Draw(0), TheTheme().m_icon);
    m_Drawn.m_bottomUp = 1;
    const RECT bottom = InkOf(*Draw(0), TheTheme().m_icon);
    EXPECT_GT(bottom.top, top.top);
    EXPECT_GT(bottom.bottom, m_Size.cy - 2 - Line());
}

// --- The window ---

TEST_F(ListDraw, PaintsItsRowsAndWhatIsBelowThem) {
    m_DrawnDialog.Close();
    AddRows(2);
    const Picture picture = Look();
    EXPECT_EQ(picture.At(picture.Width() - 3, 3), TheTheme().m_editBg);
    EXPECT_EQ(picture.At(3, picture.Height() - 3), TheTheme().m_editBg);
    EXPECT_GT(picture.Count(TheTheme().m_text), 0);
    EXPECT_EQ(picture.Count(BoxAt(0, RowRect(1).bottom, picture.Width(), 1000), TheTheme().m_editBg),
              picture.Width() * (picture.Height() - static_cast<int>(RowRect(1).bottom)));
}

TEST_F(ListDraw, ErasesOnlyBelowTheLastRow) {
    AddRows(2);
    const Canvas canvas(200, 200, RGB(255, 0, 255));
    EXPECT_EQ(m_List.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Dc())), 1);
    const int bottom = RowRect(1).bottom;
    EXPECT_EQ(canvas.At(3, bottom - 1), RGB(255, 0, 255));
    EXPECT_EQ(canvas.At(3, bottom), TheTheme().m_editBg);
    m_List.DeleteAll();
    m_List.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Dc()));
    EXPECT_EQ(canvas.At(3, 0), TheTheme().m_editBg);
}

TEST_F(ListDraw, FollowsAThemeThatIsChosen) {
    m_DrawnDialog.Close();
    AddRows(2);
    m_List.SetCurSel(0);
    Settle(Window());
    UseTheme(u"Green", m_Dialog.Handle());
    const Picture picture = Look();
    EXPECT_EQ(picture.At(picture.Width() - 3, picture.Height() - 3), TheTheme().m_editBg);
    EXPECT_EQ(picture.At(picture.Width() - 3, 3), TheTheme().m_button);
}

TEST_F(ListDraw, HasAFrameInTheThemesColours) {
    m_DrawnDialog.Close();
    EXPECT_EQ(CornerPixel(0), TheTheme().m_border);
    EXPECT_EQ(CornerPixel(1), TheTheme().m_editBg);
}

TEST_F(ListDraw, HasItsOwnFrameWithoutAScrollBox) {
    UseTheme(kSystem, m_Dialog.Handle());
    m_DrawnDialog.Close();
    m_Dialog.Close();
    m_Dialog.Open();
    UseTheme(kDark, m_Dialog.Handle());
    ASSERT_FALSE(m_List.m_scrollBox.IsAttached());
    EXPECT_EQ(CornerPixel(0), TheTheme().m_border);
    EXPECT_EQ(CornerPixel(1), TheTheme().m_base);
}

TEST_F(ListDraw, LeavesTheSystemsBarAsItIsWithoutAScrollBox) {
    UseTheme(kSystem, m_Dialog.Handle());
    m_DrawnDialog.Close();
    m_Dialog.Close();
    m_Dialog.Open();
    AddRows(60);
    UseTheme(kDark, m_Dialog.Handle());
    ASSERT_FALSE(m_List.m_scrollBox.IsAttached());
    ASSERT_TRUE(HasStyle(Window(), WS_VSCROLL));
    RedrawWindow(Window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_UPDATENOW);
    RECT whole{};
    GetWindowRect(Window(), &whole);
    const RECT client = ClientOf(Window());
    const tvWindowDC dc(Window());
    int painted = 0;
    for (int y = 4; y < Height(whole) - 4; ++y)
        painted += GetPixel(dc.Get(), static_cast<int>(client.right) + 6, y) == TheTheme().m_base ? 0 : 1;
    EXPECT_EQ(painted, Height(whole) - 8);
}

TEST_F(ListDraw, LightsTheRowUnderTheMouse) {
    m_DrawnDialog.Close();
    AddRows(3);
    const POINT at = MiddleOf(1);
    MoveMouse(Window(), at.x, at.y);
    EXPECT_TRUE(PumpUntil([this] { return m_List.m_hotIndex == 1; }));
    EXPECT_EQ(m_List.m_tracking, 1);
    EXPECT_EQ(Look().At(1, at.y), TheTheme().m_buttonOver);
    const POINT next = MiddleOf(2);
    MoveMouse(Window(), next.x, next.y);
    EXPECT_TRUE(PumpUntil([this] { return m_List.m_hotIndex == 2; }));
    EXPECT_EQ(Look().At(1, at.y), TheTheme().m_editBg);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([this] { return m_List.m_hotIndex == -1; }));
    EXPECT_EQ(m_List.m_tracking, 0);
    EXPECT_EQ(Look().At(1, next.y), TheTheme().m_editBg);
}

TEST_F(ListDraw, ShowsAllSelectedRowsWithAndWithoutTheKeyboard) {
    for (int i = 0; i < 3; ++i)
        m_Drawn.AddItem(u"x");
    m_Drawn.SelectAll();
    const HWND list = m_Drawn.Handle();
    SetFocus(list);
    Settle(list);
    const auto count = [list](COLORREF color) { return Picture(list).Count(BoxAt(0, 0, 1000, 40), color); };
    EXPECT_GT(count(TheTheme().m_buttonPush), 0);
    EXPECT_EQ(count(TheTheme().m_button), 0);
    SetFocus(nullptr);
    Settle(list);
    EXPECT_EQ(count(TheTheme().m_buttonPush), 0);
    EXPECT_GT(count(TheTheme().m_button), 0);
}

TEST_F(ListDraw, LeavesTheGroundToItsRows) {
    const LRESULT brush =
        SendMessageW(m_Dialog.Handle(), WM_CTLCOLORLISTBOX, 0, reinterpret_cast<LPARAM>(Window()));
    LOGBRUSH logbrush{};
    GetObjectW(reinterpret_cast<HBRUSH>(brush), sizeof logbrush,
               &logbrush);  // NOLINT(performance-no-int-to-ptr)
    EXPECT_EQ(logbrush.lbStyle, UINT{BS_NULL});
}

}  // namespace
