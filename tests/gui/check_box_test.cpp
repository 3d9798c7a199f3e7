// The state of check boxes: under the themes, and from one to the other.
#include "toolkit/check_box.h"

#include "tests/gui/button_stage.h"

namespace {

using BoxStage = Stage<tvCheckBox>;

LRESULT CheckOf(HWND window) {
    return SendMessageW(window, BM_GETCHECK, 0, 0);
}

void SetCheck(HWND window, WPARAM state) {
    SendMessageW(window, BM_SETCHECK, state, 0);
}

// Clicks in the window's left part, where the box is.
void ClickBox(const BoxStage& stage) {
    const int before = stage.dialog.CountCommands(kButton);
    Click(stage.Window(), 6, static_cast<int>(SizeOf(stage.Window()).cy / 2));
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) > before; }));
}

UNDER_EACH_THEME(CheckBox);

TEST_P(CheckBox, IsOwnerDrawnUnderAColorThemeAlone) {
    for (const DWORD type : {2UL, 3UL, 4UL, 5UL, 6UL, 9UL}) {
        const BoxStage stage(GetParam(), type);
        EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : type);
        EXPECT_EQ(stage.button.m_style & BS_TYPEMASK, type);
    }
}

TEST_P(CheckBox, OfAnotherTypeBecomesAnAutomaticOne) {
    for (const DWORD type : {BS_PUSHBUTTON, BS_DEFPUSHBUTTON, BS_GROUPBOX, BS_OWNERDRAW}) {
        const BoxStage stage(GetParam(), type | BS_BOTTOM);
        EXPECT_EQ(stage.button.m_style & BS_TYPEMASK, u32{BS_AUTOCHECKBOX}) << type;
        EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_AUTOCHECKBOX) << type;
        EXPECT_EQ(StyleOf(stage.Window()) & BS_VCENTER, DWORD{BS_BOTTOM}) << type;
    }
}

TEST_P(CheckBox, TogglesWithEachClick) {
    const BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
    ClickBox(stage);
    EXPECT_EQ(CheckOf(stage.Window()), BST_CHECKED);
    EXPECT_EQ(stage.button.m_check, 1U);
    ClickBox(stage);
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
    EXPECT_EQ(stage.button.m_check, 0U);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 2);
}

TEST_P(CheckBox, IsToggledBeforeTheDialogHearsOfTheClick) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    LRESULT seen = -1;
    stage.dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM, LRESULT&) {
        if (message == WM_COMMAND && LOWORD(wParam) == kButton && HIWORD(wParam) == BN_CLICKED)
            seen = CheckOf(stage.Window());
        return false;
    };
    ClickBox(stage);
    EXPECT_EQ(seen, BST_CHECKED);
}

TEST_P(CheckBox, GoesThroughItsThreeStates) {
    const BoxStage stage(GetParam(), BS_AUTO3STATE);
    for (const LRESULT state : {BST_CHECKED, BST_INDETERMINATE, BST_UNCHECKED, BST_CHECKED}) {
        ClickBox(stage);
        EXPECT_EQ(CheckOf(stage.Window()), state);
    }
}

TEST_P(CheckBox, ThatIsNotAutomaticKeepsItsState) {
    for (const DWORD type : {BS_CHECKBOX, BS_3STATE, BS_RADIOBUTTON}) {
        const BoxStage stage(GetParam(), type);
        ClickBox(stage);
        EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED) << type;
        SetCheck(stage.Window(), BST_CHECKED);
        ClickBox(stage);
        EXPECT_EQ(CheckOf(stage.Window()), BST_CHECKED) << type;
    }
}

TEST_P(CheckBox, ToggledTwiceByADoubleClickIsAsBefore) {
    const BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    DoubleClick(stage.Window(), 6, 8);
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 2; }));
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
}

TEST_P(CheckBox, IsToggledByTheSpaceBar) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    Focus(stage.dialog, stage.Window());
    TypeInDialog(stage.dialog, VK_SPACE);
    EXPECT_EQ(CheckOf(stage.Window()), BST_CHECKED);
}

TEST_P(CheckBox, SendsItsCommandForEnterAndIsNotToggled) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    Focus(stage.dialog, stage.Window());
    TypeInDialog(stage.dialog, VK_RETURN);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
}

TEST_P(CheckBox, TakesTheStateThatItIsSetTo) {
    const struct {
        DWORD type;
        LRESULT ofTwo;
    } kCases[] = {{BS_CHECKBOX, 1}, {BS_AUTOCHECKBOX, 1}, {BS_RADIOBUTTON, 1},
                  {BS_3STATE, 2},   {BS_AUTO3STATE, 2},   {BS_AUTORADIOBUTTON, 1}};
    for (const auto& one : kCases) {
        const BoxStage stage(GetParam(), one.type);
        SetCheck(stage.Window(), BST_CHECKED);
        EXPECT_EQ(CheckOf(stage.Window()), 1) << one.type;
        SetCheck(stage.Window(), BST_INDETERMINATE);
        EXPECT_EQ(CheckOf(stage.Window()), one.ofTwo) << one.type;
        EXPECT_EQ(stage.button.m_check, static_cast<u32>(one.ofTwo)) << one.type;
        EXPECT_EQ(SendMessageW(stage.Window(), BM_GETSTATE, 0, 0) & 3, one.ofTwo) << one.type;
        SetCheck(stage.Window(), BST_UNCHECKED);
        EXPECT_EQ(CheckOf(stage.Window()), 0) << one.type;
    }
}

TEST_P(CheckBox, AddsItsCheckToTheStateOfTheButton) {
    BoxStage stage(GetParam(), BS_AUTOCHECKBOX);
    SetCheck(stage.Window(), BST_CHECKED);
    Focus(stage.dialog, stage.Window());
    EXPECT_EQ(SendMessageW(stage.Window(), BM_GETSTATE, 0, 0) & (BST_FOCUS | 3), BST_FOCUS | BST_CHECKED);
    SendMessageW(stage.Window(), BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(SendMessageW(stage.Window(), BM_GETSTATE, 0, 0) & (BST_PUSHED | 3), BST_PUSHED | BST_CHECKED);
}

TEST_P(CheckBox, KeepsItsStateThroughAllThemes) {
    for (const LRESULT state : {BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE}) {
        BoxStage stage(GetParam(), BS_AUTO3STATE);
        SetCheck(stage.Window(), static_cast<WPARAM>(state));
        for (const std::u16string_view theme : {kSystem, kDark, kSystem, kLight}) {
            UseTheme(theme, stage.dialog.Handle());
            EXPECT_EQ(TypeOf(stage.Window()), theme == kSystem ? BS_AUTO3STATE : BS_OWNERDRAW);
            EXPECT_EQ(CheckOf(stage.Window()), state);
            EXPECT_EQ(stage.button.m_check, static_cast<u32>(state));
        }
    }
}

TEST_P(CheckBox, TakesOverTheStateThatItsWindowHasAlready) {
    UseTheme(GetParam());
    const KeepTheme keep;
    tvCheckBox box;
    TestDialog dialog;
    dialog.Open();
    const HWND made = CreateWindowExW(0, L"BUTTON", L"x", WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX, 0, 0, 80,
                                      24, dialog.Handle(), nullptr, nullptr, nullptr);
    SetCheck(made, BST_CHECKED);
    box.SubclassWindow(made);
    EXPECT_EQ(box.m_check, 1U);
    EXPECT_EQ(CheckOf(made), BST_CHECKED);
}

// The window's own state, behind the wrapper's back.
LRESULT OwnCheck(const tvCheckBox& box) {
    return CallWindowProcW(box.m_oldProc, box.Handle(), BM_GETCHECK, 0, 0);
}

TEST(CheckBoxTheme, HandsTheStateBackToTheWindow) {
    BoxStage stage(kLight, BS_AUTOCHECKBOX);
    ClickBox(stage);
    UseTheme(kSystem, stage.dialog.Handle());
    EXPECT_EQ(OwnCheck(stage.button), BST_CHECKED);
    ClickBox(stage);
    EXPECT_EQ(OwnCheck(stage.button), BST_UNCHECKED);
    UseTheme(kDark, stage.dialog.Handle());
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
    ClickBox(stage);
    UseTheme(kSystem, stage.dialog.Handle());
    EXPECT_EQ(OwnCheck(stage.button), BST_CHECKED);
}

TEST(CheckBoxTheme, ReadsTheStateBackThatTheWindowHasTaken) {
    const BoxStage stage(kSystem, BS_AUTO3STATE);
    SetCheck(stage.Window(), BST_INDETERMINATE);
    EXPECT_EQ(stage.button.m_check, 2U);
    ClickBox(stage);
    EXPECT_EQ(stage.button.m_check, 0U);
}

TEST(CheckBoxState, IsPaintedAnewOnlyWhenItChanges) {
    const BoxStage stage(kLight, BS_AUTOCHECKBOX);
    const auto waits = [&] { return GetUpdateRect(stage.Window(), nullptr, FALSE) != FALSE; };
    Settle(stage.Window());
    ASSERT_TRUE(stage.button.m_hasFrame);
    SetCheck(stage.Window(), BST_UNCHECKED);
    EXPECT_FALSE(waits());
    SetCheck(stage.Window(), BST_CHECKED);
    EXPECT_TRUE(waits());
    EXPECT_FALSE(stage.button.m_hasFrame);
}

TEST(CheckBoxState, IsLeftAloneByOtherNotifications) {
    BoxStage stage(kLight, BS_AUTOCHECKBOX | BS_NOTIFY);
    stage.dialog.Send(WM_COMMAND, MAKEWPARAM(kButton, BN_SETFOCUS), reinterpret_cast<LPARAM>(stage.Window()));
    EXPECT_EQ(CheckOf(stage.Window()), BST_UNCHECKED);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
}

TEST(CheckBoxState, OfAPushButtonIsThatOfItsBase) {
    BoxStage stage(kSystem, BS_AUTOCHECKBOX);
    SetWindowLongPtrW(stage.Window(), GWL_STYLE,
                      static_cast<LONG_PTR>(StyleOf(stage.Window()) & ~DWORD{BS_TYPEMASK}));
    EXPECT_EQ(stage.button.m_style & BS_TYPEMASK, u32{BS_PUSHBUTTON});
    EXPECT_TRUE(stage.button.UsesSystemLook());
    stage.button.m_sides = 1;
    EXPECT_EQ(stage.button.UsesSystemLook(), stage.button.tvButton::UsesSystemLook());
}

}  // namespace
