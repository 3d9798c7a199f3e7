// The default button of a dialog, and Enter.
#include "tests/gui/button_stage.h"
#include "toolkit/check_box.h"

namespace {

constexpr u16 kOther = 21;
constexpr u16 kBox = 22;

// A dialog with an edit control, two push buttons and a check box. None of its buttons is the default one in
// the template.
class TwoButtons {
public:
    explicit TwoButtons(std::u16string_view theme) {
        UseTheme(theme);
        MoveMouseAway();
        dialog.Add(ATOM_EDIT, kEdit, 5, 5, 80, 12);
        dialog.Add(ATOM_BUTTON, kButton, 5, 30, 60, 16);
        dialog.Add(ATOM_BUTTON, kOther, 5, 50, 60, 16);
        dialog.Add(ATOM_BUTTON, kBox, 5, 70, 60, 16, BS_AUTOCHECKBOX);
        dialog.Wrap(first, kButton);
        dialog.Wrap(second, kOther);
        dialog.Wrap(box, kBox);
        dialog.Open();
    }

    void MakeDefault(const tvButton& button) const { button.Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE); }
    [[nodiscard]] static unsigned TrueType(const tvButton& button) { return button.m_style & BS_TYPEMASK; }

    KeepTheme keep;
    tvButton first;
    tvButton second;
    tvCheckBox box;
    TestDialog dialog;
};

UNDER_EACH_THEME(DefaultButton);

TEST_P(DefaultButton, IsClickedByEnterElsewhere) {
    TwoButtons stage(GetParam());
    stage.dialog.Send(DM_SETDEFID, kOther);
    ASSERT_EQ(GetFocus(), stage.dialog.Item(kEdit));
    TypeInDialog(stage.dialog, VK_RETURN);
    EXPECT_EQ(stage.dialog.CountCommands(kOther), 1);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 0);
}

TEST_P(DefaultButton, OfTheTemplateIsClickedByEnter) {
    Stage<> stage(GetParam(), BS_DEFPUSHBUTTON);
    ASSERT_EQ(GetFocus(), stage.dialog.Item(kEdit));
    TypeInDialog(stage.dialog, VK_RETURN);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
}

// The dialog asks the buttons what they are, and tells them what they become.
TEST_P(DefaultButton, IsTheOneThatTheDialogIsTold) {
    TwoButtons stage(GetParam());
    stage.dialog.Send(DM_SETDEFID, kOther);
    EXPECT_EQ(TwoButtons::TrueType(stage.second), unsigned{BS_DEFPUSHBUTTON});
    stage.dialog.Send(DM_SETDEFID, kButton);
    EXPECT_EQ(TwoButtons::TrueType(stage.first), unsigned{BS_DEFPUSHBUTTON});
    EXPECT_EQ(TwoButtons::TrueType(stage.second), unsigned{BS_PUSHBUTTON});
    EXPECT_EQ(TypeOf(stage.first.Handle()), IsColored() ? BS_OWNERDRAW : BS_DEFPUSHBUTTON);
}

TEST_P(DefaultButton, IsTheOneWithTheFocus) {
    TwoButtons stage(GetParam());
    Focus(stage.dialog, stage.first.Handle());
    EXPECT_EQ(TwoButtons::TrueType(stage.first), unsigned{BS_DEFPUSHBUTTON});
    Focus(stage.dialog, stage.second.Handle());
    EXPECT_EQ(TwoButtons::TrueType(stage.first), unsigned{BS_PUSHBUTTON});
    EXPECT_EQ(TwoButtons::TrueType(stage.second), unsigned{BS_DEFPUSHBUTTON});
    EXPECT_EQ(TypeOf(stage.first.Handle()), IsColored() ? BS_OWNERDRAW : BS_PUSHBUTTON);
    EXPECT_EQ(TypeOf(stage.second.Handle()), IsColored() ? BS_OWNERDRAW : BS_DEFPUSHBUTTON);
}

TEST_P(DefaultButton, StaysSoWhenTheThemeChanges) {
    TwoButtons stage(GetParam());
    stage.MakeDefault(stage.second);
    for (const std::u16string_view theme : {kSystem, kDark, kLight}) {
        UseTheme(theme, stage.dialog.Handle());
        EXPECT_EQ(TwoButtons::TrueType(stage.second), unsigned{BS_DEFPUSHBUTTON});
        EXPECT_NE(stage.second.Send(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON, 0);
        EXPECT_EQ(stage.first.Send(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON, 0);
    }
}

TEST_P(DefaultButton, GivesWayToAButtonWithTheFocus) {
    TwoButtons stage(GetParam());
    stage.MakeDefault(stage.second);
    Focus(stage.dialog, stage.first.Handle());
    TypeInDialog(stage.dialog, VK_RETURN);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
    EXPECT_EQ(stage.dialog.CountCommands(kOther), 0);
}

TEST_P(DefaultButton, GivesWayToACheckBoxWithTheFocus) {
    TwoButtons stage(GetParam());
    stage.MakeDefault(stage.second);
    Focus(stage.dialog, stage.box.Handle());
    TypeInDialog(stage.dialog, VK_RETURN);
    EXPECT_EQ(stage.dialog.CountCommands(kBox), 1);
    EXPECT_EQ(stage.dialog.CountCommands(kOther), 0);
}

TEST_P(DefaultButton, IsReachedByTheTabulator) {
    TwoButtons stage(GetParam());
    Focus(stage.dialog, stage.dialog.Item(kEdit));
    TypeInDialog(stage.dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), stage.first.Handle());
    EXPECT_EQ(TwoButtons::TrueType(stage.first), unsigned{BS_DEFPUSHBUTTON});
    TypeInDialog(stage.dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), stage.second.Handle());
}

TEST_P(DefaultButton, EndsItsDialogAsOk) {
    UseTheme(GetParam());
    const KeepTheme keep;
    tvButton ok;
    TestDialog dialog;
    dialog.Add(ATOM_EDIT, kEdit, 5, 5, 80, 12);
    dialog.Add(ATOM_BUTTON, IDOK, 5, 30, 60, 16, BS_DEFPUSHBUTTON);
    dialog.Wrap(ok, IDOK);
    const DuringModal during({[&] { return GetFocus() == dialog.Item(kEdit); },
                              [] {
                                  INPUT keys[2] = {};
                                  keys[0].type = keys[1].type = INPUT_KEYBOARD;
                                  keys[0].ki.wVk = keys[1].ki.wVk = VK_RETURN;
                                  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
                                  return SendInput(2, keys, sizeof keys[0]) == 2;
                              }});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

}  // namespace
