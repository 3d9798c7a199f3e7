// What a combo box is and does, apart from its looks and from getting a new window.
#include "toolkit/combo_box.h"

#include <algorithm>
#include <map>

#include "tests/gui/input_stage.h"

namespace {

using ComboStage = InputStage<tvComboBox, ATOM_COMBOBOX>;

constexpr u32 kList = CBS_DROPDOWNLIST;
constexpr u32 kEditable = CBS_DROPDOWN;

// Every combo box of a template is a CBS_DROPDOWNLIST, whose bits those of the others are part of.
class Dialog : public TestDialog {
public:
    explicit Dialog(std::u16string_view theme) {
        UseTheme(theme);
        MoveMouseAway();
        Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        Open();
    }
};

tvstring Item(const tvComboBox& combo, int index) {
    wchar_t text[100] = {};
    combo.Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return platform::Units(text);
}

void AddRows(const tvComboBox& combo) {
    for (const wchar_t* text : {L"First", L"Second", L"Third"})
        combo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

DWORD DrawBits(HWND window) {
    return StyleOf(window) & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS);
}

UNDER_EACH_THEME(ComboBox);

TEST_P(ComboBox, IsMadeAsAChildWithTheFontOfTheTheme) {
    const KeepTheme keep;
    tvComboBox combo;
    Dialog dialog(GetParam());
    const RECT place{10, 60, 130, 260};
    ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, place, WS_VISIBLE | kList));
    EXPECT_EQ(GetParent(combo.Handle()), dialog.Handle());
    EXPECT_EQ(GetDlgCtrlID(combo.Handle()), kInput);
    EXPECT_EQ(tvWnd::FromHandle(combo.Handle()), &combo);
    EXPECT_EQ(combo.m_font, TheTheme().Font());
    EXPECT_EQ(combo.Send(WM_GETFONT), reinterpret_cast<LRESULT>(TheTheme().Font()));
    const RECT now = PlaceIn(dialog.Handle(), combo.Handle());
    EXPECT_EQ(now.left, 10);
    EXPECT_EQ(now.top, 60);
    EXPECT_EQ(Width(now), 120);
    EXPECT_NE(StyleOf(combo.Handle()) & WS_CLIPCHILDREN, 0U);
    EXPECT_FALSE(combo.Create(dialog.Handle(), kInput, place, WS_VISIBLE | kList));
}

TEST_P(ComboBox, CannotBeMadeWithoutAParent) {
    const KeepTheme keep;
    UseTheme(GetParam());
    tvComboBox combo;
    EXPECT_FALSE(combo.Create(nullptr, kInput, {0, 0, 50, 50}, kList));
    EXPECT_FALSE(combo.IsAttached());
}

TEST_P(ComboBox, WithoutAHeightDropsDownAThirdOfTheScreen) {
    const KeepTheme keep;
    tvComboBox combo;
    Dialog dialog(GetParam());
    for (const LONG bottom : {60, 50}) {
        ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, bottom}, WS_VISIBLE | kList));
        MONITORINFO info{};
        info.cbSize = sizeof info;
        GetMonitorInfoW(MonitorFromWindow(dialog.Handle(), MONITOR_DEFAULTTONEAREST), &info);
        const int third = Height(info.rcMonitor) / 3;
        EXPECT_NEAR(combo.m_dropHeight, third, 40);
        combo.Detach(tvWnd::Window::Destroy);
        combo.m_dropHeight = 0;
    }
}

TEST_P(ComboBox, NeverDropsDownLessThan64Pixels) {
    const KeepTheme keep;
    tvComboBox combo;
    Dialog dialog(GetParam());
    ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 61}, kList));
    EXPECT_EQ(combo.m_dropHeight, 64);
}

TEST_P(ComboBox, KeepsTheDropHeightThatItWasGiven) {
    const KeepTheme keep;
    tvComboBox combo;
    combo.m_dropHeight = 33;
    Dialog dialog(GetParam());
    ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 260}, kList));
    EXPECT_EQ(combo.m_dropHeight, 33);
}

TEST_P(ComboBox, FromATemplateIsOwnerDrawnUnderAColorThemeAlone) {
    for (const u32 style : {0U, u32{CBS_SORT}}) {
        const ComboStage stage(GetParam(), style);
        EXPECT_EQ(DrawBits(stage.Window()), IsColored() ? CBS_OWNERDRAWFIXED | CBS_HASSTRINGS : 0UL);
        EXPECT_EQ(StyleOf(stage.Window()) & CBS_SORT, style);
    }
}

TEST_P(ComboBox, WantsAnotherWindowByItsStyle) {
    const struct {
        u32 style;
        bool colored;
        bool systems;
    } kCases[] = {
        {0, true, false},
        {CBS_HASSTRINGS, true, false},
        {CBS_OWNERDRAWFIXED, true, true},
        {CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, false, true},
        {CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS, true, true},
    };
    const KeepTheme keep;
    Dialog dialog(GetParam());
    for (const auto& one : kCases) {
        tvComboBox combo;
        EXPECT_FALSE(combo.NeedsRecreate());
        ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 260}, kList | one.style));
        EXPECT_EQ(combo.NeedsRecreate(), IsColored() ? one.colored : one.systems) << one.style;
    }
}

class Keeping : public tvComboBox {
public:
    bool KeepsWindow() override { return true; }
};

TEST_P(ComboBox, ThatKeepsItsWindowNeverWantsAnother) {
    const KeepTheme keep;
    Dialog dialog(GetParam());
    for (const u32 style : {0U, u32{CBS_OWNERDRAWFIXED}, u32{CBS_OWNERDRAWVARIABLE}}) {
        Keeping combo;
        ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 260}, kList | style));
        EXPECT_FALSE(combo.NeedsRecreate());
        const HWND before = combo.Handle();
        PumpQueue();
        EXPECT_EQ(combo.Handle(), before);
    }
}

TEST_P(ComboBox, HasWrappersForItsParts) {
    const KeepTheme keep;
    Dialog dialog(GetParam());
    for (const u32 style : {kList, kEditable, u32{CBS_SIMPLE}}) {
        tvComboBox combo;
        ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 260}, WS_VISIBLE | style));
        PumpQueue();
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        GetComboBoxInfo(combo.Handle(), &info);
        EXPECT_EQ(combo.m_list.Handle(), info.hwndList);
        EXPECT_EQ(combo.m_edit.IsAttached(), style != kList);
        if (style != kList) {
            EXPECT_EQ(combo.m_edit.Handle(), info.hwndItem);
        }
        combo.Detach(tvWnd::Window::Destroy);
        EXPECT_FALSE(combo.m_list.IsAttached());
        EXPECT_FALSE(combo.m_edit.IsAttached());
    }
}

// Notes the heights that it gives its rows and, as -1, the box. Not all systems tell them as they were set.
class Measured : public tvComboBox {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == CB_SETITEMHEIGHT) m_heights[static_cast<int>(wParam)] = static_cast<int>(lParam);
        return tvComboBox::WindowProc(message, wParam, lParam);
    }
    std::map<int, int> m_heights;
};

TEST_P(ComboBox, FitsItsRowsToTheFont) {
    InputStage<Measured, ATOM_COMBOBOX> stage(GetParam());
    const auto fitted = [&] {
        const int line = TheTheme().TextHeight(stage.input.m_font, nullptr);
        return std::map<int, int>{{0, line + 1}, {-1, line + 3}};
    };
    EXPECT_EQ(stage.input.m_heights, fitted());
    stage.input.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    EXPECT_EQ(stage.input.m_heights, fitted());
}

TEST_P(ComboBox, KeepsTheHeightOfItsRowsIfItIsNotToFit) {
    InputStage<Measured, ATOM_COMBOBOX> stage(GetParam(), 0,
                                              [](tvComboBox& combo) { combo.m_autoHeight = 0; });
    stage.input.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    EXPECT_TRUE(stage.input.m_heights.empty());
}

TEST_P(ComboBox, TellsTheDialogOfARowThatIsChosenWithTheKeyboard) {
    ComboStage stage(GetParam());
    AddRows(stage.input);
    stage.input.Send(CB_SETCURSEL, 0);
    Focus(stage.dialog, stage.Window());
    Type(VK_DOWN);
    EXPECT_TRUE(PumpUntil([&] { return stage.input.Send(CB_GETCURSEL) == 1; }));
    EXPECT_EQ(std::count(stage.dialog.m_commands.begin(), stage.dialog.m_commands.end(),
                         (TestDialog::Command{kInput, CBN_SELCHANGE})),
              1);
}

TEST_P(ComboBox, DropsDownAndTakesTheRowThatIsClicked) {
    ComboStage stage(GetParam());
    AddRows(stage.input);
    const SIZE size = SizeOf(stage.Window());
    Click(stage.Window(), static_cast<int>(size.cx) - 6, static_cast<int>(size.cy) / 2);
    ASSERT_TRUE(PumpUntil([&] { return stage.input.Send(CB_GETDROPPEDSTATE) != 0; }));
    const int row = static_cast<int>(stage.input.Send(CB_GETITEMHEIGHT, 0));
    Click(stage.input.m_list.Handle(), 20, row * 3 / 2);
    EXPECT_TRUE(PumpUntil([&] { return stage.input.Send(CB_GETDROPPEDSTATE) == 0; }));
    EXPECT_EQ(stage.input.Send(CB_GETCURSEL), 1);
    EXPECT_EQ(Item(stage.input, 1), u"Second");
}

TEST_P(ComboBox, ComparesTheDataOfItsRowsAsUnsignedNumbers) {
    ComboStage stage(GetParam());
    const auto compare = [&](ULONG_PTR one, ULONG_PTR other) {
        COMPAREITEMSTRUCT item{};
        item.itemData1 = one;
        item.itemData2 = other;
        stage.input.m_compareItemUnhandled = 0;
        const int result = stage.input.OnReflectCompareItem(&item);
        EXPECT_EQ(stage.input.m_compareItemUnhandled, 0);
        return result;
    };
    EXPECT_EQ(compare(5, 5), 0);
    EXPECT_EQ(compare(4, 5), -1);
    EXPECT_EQ(compare(static_cast<ULONG_PTR>(-1), 5), 1);
}

// Answers as a system does that keeps the state of cues.
class WithCues : public tvComboBox {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_QUERYUISTATE) return m_cues;
        return tvComboBox::WindowProc(message, wParam, lParam);
    }
    LRESULT m_cues = UISF_HIDEFOCUS;
};

TEST_P(ComboBox, FollowsTheCuesOfItsDialog) {
    InputStage<WithCues, ATOM_COMBOBOX> stage(GetParam());
    EXPECT_EQ(stage.input.m_uiState, u32{UISF_HIDEFOCUS});
    for (const UINT message : {UINT{WM_UPDATEUISTATE}, UINT{WM_CHANGEUISTATE}}) {
        stage.input.m_cues = UISF_HIDEACCEL;
        stage.input.Send(message, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL));
        EXPECT_EQ(stage.input.m_uiState, u32{UISF_HIDEACCEL});
        stage.input.m_cues = 0;
        stage.input.Send(message, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL));
        EXPECT_EQ(stage.input.m_uiState, 0U);
    }
}

TEST_P(ComboBox, EditsWithoutFittingTheBoxInside) {
    const KeepTheme keep;
    tvComboBox combo;
    Dialog dialog(GetParam());
    ASSERT_TRUE(combo.Create(dialog.Handle(), kInput, {10, 60, 130, 260}, WS_VISIBLE | kEditable));
    PumpQueue();
    EXPECT_LT(combo.m_edit.m_autoHeight, 0);
    SetFocus(combo.Handle());
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == combo.m_edit.Handle(); }));
    TypeText(u"typed");
    EXPECT_TRUE(PumpUntil([&] { return TextOf(combo.Handle()) == u"typed"; }));
}

TEST(ComboBoxMessage, IsRegistered) {
    EXPECT_EQ(WM_TVCOMBOBOX_RECREATED(), RegisterWindowMessageW(L"WM_TVCOMBOBOX_RECREATED"));
    EXPECT_GE(WM_TVCOMBOBOX_RECREATED(), 0xC000U);
}

}  // namespace
