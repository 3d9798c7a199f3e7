// What a combo box looks like under a colour theme.
#include "tests/gui/input_stage.h"
#include "toolkit/combo_box.h"
#include "toolkit/mouse_place.h"

namespace {

constexpr u32 kList = CBS_DROPDOWNLIST;
constexpr u32 kEditable = CBS_DROPDOWN;

// Takes room from the text, and notes how it was called.
class WithExtra : public tvComboBox {
public:
    void DrawItemExtra(HDC dc, RECT& rect, State state) override {
        m_states.push_back(state);
        if (m_room == 0) return;
        FillSolid(dc, {rect.left, rect.top, rect.left + m_room, rect.bottom}, RGB(255, 0, 255));
        rect.left += m_room;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_QUERYUISTATE) return 0;  // the dots are shown
        return tvComboBox::WindowProc(message, wParam, lParam);
    }
    int m_room = 0;
    std::vector<State> m_states;
};

class ComboBoxDraw : public EachTheme {
protected:
    ComboBoxDraw() {
        UseTheme(GetParam());
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        m_Dialog.Open();
    }
    void Make(u32 style) {
        m_Combo.Create(m_Dialog.Handle(), kInput, {10, 60, 150, 260}, WS_VISIBLE | style);
        PumpQueue();
        for (const wchar_t* text : {L"WWW", L"Second", L"Third"})
            m_Combo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        m_Combo.Send(CB_SETCURSEL, 0);
        Settle(m_Dialog.Handle());
    }
    Picture Look() {
        PumpQueue();
        Settle(m_Dialog.Handle());
        return Picture(m_Combo.Handle());
    }
    // Frame and ground; the ground is that at the right of the text.
    void ExpectLook(COLORREF fill, COLORREF frame) {
        const Picture look = Look();
        for (const POINT at :
             {POINT{0, 3}, POINT{50, 0}, POINT{look.Width() - 1, 3}, POINT{50, look.Height() - 1}})
            EXPECT_EQ(look.At(at.x, at.y), frame) << at.x << ' ' << at.y;
        EXPECT_EQ(look.At(1, 1), fill);
        EXPECT_EQ(look.At(90, 2), fill);
    }
    [[nodiscard]] RECT Arrow() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        GetComboBoxInfo(m_Combo.Handle(), &info);
        const SIZE size = SizeOf(m_Combo.Handle());
        return {info.rcButton.left, 0, size.cx, size.cy};
    }
    // Draws a row of the list as the system asks for it.
    void DrawRow(const Canvas& canvas, UINT id, UINT state) const {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_COMBOBOX;
        item.CtlID = kInput;
        item.itemID = id;
        item.itemState = state;
        item.hwndItem = m_Combo.Handle();
        item.hDC = canvas.Dc();
        item.rcItem = {0, 0, 100, 16};
        SendMessageW(m_Dialog.Handle(), WM_DRAWITEM, kInput, reinterpret_cast<LPARAM>(&item));
    }

    KeepTheme m_Keep;
    WithExtra m_Combo;
    TestDialog m_Dialog;
};
INSTANTIATE_TEST_SUITE_P(Themes, ComboBoxDraw, testing::Values(kLight, kDark), ThemeName);

TEST_P(ComboBoxDraw, WithAnEditBoxTakesTheColorsOfOne) {
    const tvTheme& theme = TheTheme();
    Make(kEditable);
    ExpectLook(theme.m_editBg, theme.m_border);
    EnableWindow(m_Combo.Handle(), FALSE);
    ExpectLook(theme.m_base, theme.m_border);
    EnableWindow(m_Combo.Handle(), TRUE);
    SetFocus(m_Combo.Handle());
    ExpectLook(theme.m_editBg, theme.m_borderActive);
    SetFocus(m_Dialog.Item(kOther));
    ExpectLook(theme.m_editBg, theme.m_border);
}

TEST_P(ComboBoxDraw, WithoutAnEditBoxTakesTheColorsOfAButton) {
    const tvTheme& theme = TheTheme();
    Make(kList);
    ExpectLook(theme.m_button, theme.m_border);
    EnableWindow(m_Combo.Handle(), FALSE);
    ExpectLook(theme.m_buttonDisable, theme.m_border);
    EnableWindow(m_Combo.Handle(), TRUE);
    m_Combo.Send(CB_SHOWDROPDOWN, TRUE);
    ExpectLook(theme.m_buttonOver, theme.m_borderActive);
    m_Combo.Send(CB_SHOWDROPDOWN, FALSE);
    ExpectLook(theme.m_button, theme.m_border);
}

TEST_P(ComboBoxDraw, FollowsTheMouse) {
    const tvTheme& theme = TheTheme();
    Make(kList);
    MoveMouse(m_Combo.Handle(), 40, 6);
    EXPECT_TRUE(PumpUntil([&] { return Look().At(90, 2) == theme.m_buttonOver; }));
    ExpectLook(theme.m_buttonOver, theme.m_borderActive);
    EXPECT_EQ(m_Combo.m_states.back(), tvComboBox::STATE_HOT);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(90, 2) == theme.m_button; }));
    ExpectLook(theme.m_button, theme.m_border);
}

// Only its own capture makes it active. Under another one it is told of no mouse, and looks as it did until
// it is painted; then it goes by where the mouse is.
TEST_P(ComboBoxDraw, IsNotActiveWhileAnotherWindowHasTheCapture) {
    const HWND other = m_Dialog.Item(kOther);
    const auto painted = [this] {
        TheMousePlace().Forget();
        InvalidateRect(m_Combo.Handle(), nullptr, FALSE);
        Look();
        return m_Combo.m_states.back();
    };
    Make(kList);
    SetCapture(other);
    EXPECT_EQ(painted(), tvComboBox::STATE_IDLE);
    const auto count = m_Combo.m_states.size();
    MoveMouse(m_Combo.Handle(), 40, 6);
    Look();
    EXPECT_EQ(m_Combo.m_states.size(), count) << "nobody tells it";
    EXPECT_EQ(painted(), tvComboBox::STATE_HOT);
    SetCapture(m_Combo.Handle());
    EXPECT_EQ(painted(), tvComboBox::STATE_ACTIVE);
    SetCapture(other);
    MoveMouseAway();
    EXPECT_EQ(painted(), tvComboBox::STATE_IDLE);
    ReleaseCapture();
    EXPECT_EQ(painted(), tvComboBox::STATE_IDLE);
}

TEST_P(ComboBoxDraw, FollowsTheMouseOverItsEditBox) {
    const tvTheme& theme = TheTheme();
    Make(kEditable);
    MoveMouseTo(m_Combo.m_edit.Handle());
    EXPECT_TRUE(PumpUntil([&] { return Look().At(0, 3) == theme.m_borderActive; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(0, 3) == theme.m_border; }));
}

TEST_P(ComboBoxDraw, LightsTheArrowUnderTheMouse) {
    const tvTheme& theme = TheTheme();
    Make(kEditable);
    const RECT arrow = Arrow();
    EXPECT_EQ(Look().At(arrow.left, 4), theme.m_editBg);
    MoveMouse(m_Combo.Handle(), arrow.left + 4, 6);
    EXPECT_TRUE(PumpUntil([&] { return Look().At(arrow.left + 2, 2) == theme.m_buttonOver; }));
    const Picture look = Look();
    EXPECT_EQ(look.Count({arrow.left, 0, arrow.left + 1, look.Height()}, theme.m_borderActive),
              look.Height());
    EXPECT_EQ(look.At(look.Width() - 2, 2), theme.m_buttonOver);
    EXPECT_EQ(look.At(look.Width() - 1, 2), theme.m_borderActive);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return Look().At(arrow.left, 4) == theme.m_editBg; }));
}

TEST_P(ComboBoxDraw, HasAChevronThatIsDimmedWithTheBox) {
    const tvTheme& theme = TheTheme();
    Make(kList);
    EXPECT_GT(Look().Count(Arrow(), theme.m_icon), 10);
    EnableWindow(m_Combo.Handle(), FALSE);
    const RECT inner = Inset(Arrow(), 2, 2);
    EXPECT_GT(Look().Count(inner, theme.m_border), 10);
}

TEST_P(ComboBoxDraw, ShowsTheChosenRow) {
    const tvTheme& theme = TheTheme();
    Make(kList);
    EXPECT_GT(Look().Count({2, 2, 60, 20}, theme.m_text), 3);
    const Picture first = Look();
    m_Combo.Send(CB_SETCURSEL, 1);
    EXPECT_FALSE(Look() == first);
    m_Combo.Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    EXPECT_EQ(Look().Count({2, 2, 60, 20}, theme.m_text), 0);
    m_Combo.Send(CB_SETCURSEL, 0);
    EnableWindow(m_Combo.Handle(), FALSE);
    EXPECT_GT(Look().Count({2, 2, 60, 20}, theme.m_textGray), 3);
}

TEST_P(ComboBoxDraw, LeavesToTheTextWhatItsExtraDoesNotTake) {
    Make(kList);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(m_Combo.Handle(), &info);
    const RECT before = Extent(Look(), TheTheme().m_text);
    m_Combo.m_room = 30;
    m_Combo.ResetBuffer(m_Combo.Handle(), tvabdraw::Redraw::Yes);
    const Picture look = Look();
    EXPECT_EQ(Extent(look, TheTheme().m_text).left, before.left + 30);
    EXPECT_EQ(look.Count(info.rcItem, RGB(255, 0, 255)), 30 * Height(info.rcItem));
}

TEST_P(ComboBoxDraw, ShowsDotsWithTheKeyboardWhileItIsClosed) {
    Make(kList);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(m_Combo.Handle(), &info);
    const RECT edge{info.rcItem.left, info.rcItem.top, info.rcItem.right, info.rcItem.top + 1};
    const auto dots = [&] { return Look().Count(edge, TheTheme().m_text); };
    EXPECT_EQ(dots(), 0);
    SetFocus(m_Combo.Handle());
    const int half = Width(edge) / 2;
    EXPECT_NEAR(dots(), half, 1);
    m_Combo.Send(CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(dots(), 0);
    m_Combo.Send(CB_SHOWDROPDOWN, FALSE);
    m_Combo.m_uiState = UISF_HIDEFOCUS;
    m_Combo.ResetBuffer(m_Combo.Handle(), tvabdraw::Redraw::Yes);
    EXPECT_EQ(dots(), 0);
    SetFocus(m_Dialog.Item(kOther));
}

TEST_P(ComboBoxDraw, PaintsTheRowsOfItsList) {
    const tvTheme& theme = TheTheme();
    Make(kList);
    const struct {
        UINT state;
        COLORREF ground;
        COLORREF text;
        tvComboBox::State extra;
    } kCases[] = {
        {0, theme.m_editBg, theme.m_text, tvComboBox::STATE_IDLE},
        {ODS_SELECTED, theme.m_buttonPush, theme.m_text, tvComboBox::STATE_ACTIVE},
        {ODS_DISABLED, theme.m_editBg, theme.m_textGray, tvComboBox::STATE_DISABLED},
        {ODS_COMBOBOXEDIT, theme.m_editBg, theme.m_text, tvComboBox::STATE_IDLE},
    };
    for (const auto& one : kCases) {
        const Canvas canvas(100, 16, RGB(9, 8, 7));
        DrawRow(canvas, 1, one.state);
        EXPECT_EQ(canvas.At(99, 15), one.ground) << one.state;
        EXPECT_GT(canvas.Count(one.text), 3) << one.state;
        EXPECT_EQ(m_Combo.m_states.back(), one.extra) << one.state;
    }
}

TEST_P(ComboBoxDraw, PaintsNoRowInPlaceOfTheBox) {
    Make(kList);
    const Canvas canvas(100, 16, RGB(9, 8, 7));
    DrawRow(canvas, 0, ODS_COMBOBOXEDIT);
    EXPECT_EQ(canvas.Count(RGB(9, 8, 7)), 1600);
    m_Combo.Send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    DrawRow(canvas, static_cast<UINT>(-1), ODS_COMBOBOXEDIT);
    EXPECT_EQ(canvas.Count(RGB(9, 8, 7)), 1600);
}

TEST_P(ComboBoxDraw, PaintsNoTextForARowThatIsNone) {
    Make(kList);
    const Canvas canvas(100, 16, RGB(9, 8, 7));
    DrawRow(canvas, static_cast<UINT>(-1), 0);
    EXPECT_EQ(canvas.Count(TheTheme().m_editBg), 1600);
}

TEST_P(ComboBoxDraw, FramesTheListThatIsDroppedDown) {
    Make(kList);
    m_Combo.Send(CB_SHOWDROPDOWN, TRUE);
    const HWND list = m_Combo.m_list.Handle();
    PumpQueue();
    Settle(list);
    const tvWindowDC dc(list);
    const RECT rect = WindowRectOf(list);
    EXPECT_EQ(GetPixel(dc.Get(), 0, 5), TheTheme().m_borderActive);
    EXPECT_EQ(GetPixel(dc.Get(), Width(rect) - 1, 5), TheTheme().m_borderActive);
    EXPECT_EQ(Picture(list).At(90, 20), TheTheme().m_editBg);
    m_Combo.Send(CB_SHOWDROPDOWN, FALSE);
}

TEST_P(ComboBoxDraw, FramesTheListThatIsAlwaysOpen) {
    const tvTheme& theme = TheTheme();
    Make(CBS_SIMPLE);
    PumpQueue();
    const HWND list = m_Combo.m_list.Handle();
    Settle(list);
    const tvWindowDC dc(list);
    EXPECT_EQ(GetPixel(dc.Get(), 0, 5), theme.m_border);
    const int top = static_cast<int>(PlaceInParent(list).top);
    const tvClientDC under(m_Combo.Handle());
    // In the picture that is behind the list.
    EXPECT_EQ(GetPixel(m_Combo.m_buffer.m_dc.Get(), 40, top), theme.m_borderActive);
    EXPECT_EQ(GetPixel(m_Combo.m_buffer.m_dc.Get(), 40, top + 3), theme.m_base);
}

TEST_P(ComboBoxDraw, AnswersForTheColorsOfItsParts) {
    const tvTheme& theme = TheTheme();
    Make(kEditable);
    for (const UINT message : {UINT{WM_CTLCOLOREDIT}, UINT{WM_CTLCOLORSTATIC}, UINT{WM_CTLCOLORLISTBOX}}) {
        const Canvas canvas(4, 4);
        EXPECT_EQ(m_Combo.Send(message, reinterpret_cast<WPARAM>(canvas.Dc()), 0),
                  reinterpret_cast<LRESULT>(theme.m_editBrush.Get()));
        EXPECT_EQ(GetTextColor(canvas.Dc()), theme.m_text);
        EXPECT_EQ(GetBkColor(canvas.Dc()), theme.m_editBg);
    }
}

TEST_P(ComboBoxDraw, AsksForNoGroundOfItsOwn) {
    Make(kList);
    LRESULT result = 1;
    m_Combo.OnReflectCtlColor(nullptr, &result);
    EXPECT_EQ(result, reinterpret_cast<LRESULT>(GetStockObject(NULL_BRUSH)));
    const Canvas canvas(4, 4);
    EXPECT_EQ(m_Combo.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Dc())), 1);
    EXPECT_EQ(canvas.Count(RGB(255, 255, 255)), 16);
}

TEST_P(ComboBoxDraw, TakesTheColorsOfAThemeThatComesLater) {
    Make(kEditable);
    const HWND before = m_Combo.Handle();
    UseTheme(u"Green", m_Dialog.Handle());
    EXPECT_EQ(m_Combo.Handle(), before);
    ExpectLook(TheTheme().m_editBg, TheTheme().m_border);
    EXPECT_EQ(Picture(m_Combo.m_edit.Handle()).At(70, 3), TheTheme().m_editBg);
}

// --- System Default, in a window that is owner-drawn all the same ---

class KeptOwnerDrawn : public tvComboBox {
public:
    bool KeepsWindow() override { return true; }
};

TEST(ComboBoxSystemDraw, IsThatOfTheSystemWithoutAVisualStyle) {
    const KeepTheme keep;
    UseTheme(kSystem);
    MoveMouseAway();
    KeptOwnerDrawn combo;
    TestDialog dialog;
    dialog.Open();
    combo.Create(dialog.Handle(), kInput, {10, 60, 150, 260},
                 WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS);
    Settle(dialog.Handle());
    const Picture look(combo.Handle());
    EXPECT_EQ(look.At(0, 0), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(look.At(60, 5), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(look.At(0, look.Height() - 1), GetSysColor(COLOR_BTNHIGHLIGHT));
    EnableWindow(combo.Handle(), FALSE);
    Settle(dialog.Handle());
    EXPECT_EQ(Picture(combo.Handle()).At(60, 5), GetSysColor(COLOR_BTNFACE));
}

TEST(ComboBoxSystemDraw, LeavesTheGroundToTheSystem) {
    InputStage<tvComboBox, ATOM_COMBOBOX> stage(kSystem);
    LRESULT result = 5;
    stage.input.OnReflectCtlColor(nullptr, &result);
    EXPECT_EQ(result, 5);
    EXPECT_FALSE(stage.input.m_hasFrame);
}

}  // namespace
