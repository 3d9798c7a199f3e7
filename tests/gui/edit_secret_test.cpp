// What was in a box for passwords is nowhere in the process once its window is gone.
#include "tests/gui/input_stage.h"
#include "tests/gui/secret_memory.h"
#include "toolkit/edit.h"

namespace {

using EditStage = InputStage<tvEdit, ATOM_EDIT>;

void SetSecret(HWND window, std::size_t length = kSecretLength) {
    const tvstring secret = Secret(length);
    SetWindowTextW(window, Wide(secret.c_str()));
}

TEST(EditSecret, OfAnOrdinaryBoxIsFound) {
    EditStage stage;
    ASSERT_EQ(CountSecrets(), 0);
    SetSecret(stage.Window());
    EXPECT_GE(CountSecrets(), 1);
    stage.dialog.Close();
    EXPECT_GE(CountSecrets(), 1) << "the other tests could not fail";
    ForgetSecrets();
}

class EditSecretEnds : public testing::TestWithParam<std::u16string_view> {};
INSTANTIATE_TEST_SUITE_P(Themes, EditSecretEnds, testing::Values(kDark, kSystem), ThemeName);

TEST_P(EditSecretEnds, WithTheWindowOfAPasswordBox) {
    ASSERT_EQ(CountSecrets(), 0);
    EditStage stage(GetParam(), ES_PASSWORD);
    SetSecret(stage.Window());
    EXPECT_GE(CountSecrets(), 1);
    stage.dialog.Close();
    EXPECT_EQ(CountSecrets(), 0);
}

TEST_P(EditSecretEnds, WithTheWindowThatGoesWithItsWrapper) {
    EditStage stage(GetParam());
    {
        tvEdit edit;
        edit.SubclassWindow(CreateWindowExW(0, L"EDIT", L"",
                                            WS_CHILD | WS_VISIBLE | ES_PASSWORD | ES_AUTOHSCROLL, 0, 60, 80,
                                            20, stage.dialog.Handle(), nullptr, nullptr, nullptr));
        SetSecret(edit.Handle());
    }
    EXPECT_EQ(CountSecrets(), 0);
}

TEST_P(EditSecretEnds, AlsoIfThePasswordIsShownByThen) {
    EditStage stage(GetParam(), ES_PASSWORD);
    SetSecret(stage.Window());
    stage.input.Send(EM_SETPASSWORDCHAR, 0);
    EXPECT_EQ(StyleOf(stage.Window()) & ES_PASSWORD, 0U);
    Settle(stage.dialog.Handle());
    stage.dialog.Close();
    EXPECT_EQ(CountSecrets(), 0);
}

TEST_P(EditSecretEnds, AlsoIfTheBoxBecameOneForPasswordsLater) {
    EditStage stage(GetParam());
    stage.input.Send(EM_SETPASSWORDCHAR, u'*');
    SetSecret(stage.Window());
    stage.input.Send(EM_SETPASSWORDCHAR, 0);
    stage.dialog.Close();
    EXPECT_EQ(CountSecrets(), 0);
}

TEST_P(EditSecretEnds, InABoxThatIsToldSo) {
    for (const u32 style : {0U, u32{ES_MULTILINE}}) {
        EditStage stage(GetParam(), style, [](tvEdit& edit) { edit.KeepSecret(); });
        SetSecret(stage.Window());
        stage.dialog.Close();
        EXPECT_EQ(CountSecrets(), 0) << style;
    }
}

// Longer than the texts that are covered step by small step.
TEST_P(EditSecretEnds, HoweverLongItIs) {
    for (const u32 style : {u32{ES_PASSWORD}, u32{ES_MULTILINE}}) {
        for (const std::size_t length : {1025, 1500}) {
            ASSERT_EQ(CountSecrets(), 0);
            EditStage stage(GetParam(), style, [](tvEdit& edit) { edit.KeepSecret(); });
            SetSecret(stage.Window(), length);
            EXPECT_GE(CountSecrets(), static_cast<int>(length / 26) - 3) << "it is found all along the text";
            stage.dialog.Close();
            EXPECT_EQ(CountSecrets(), 0) << style << ", " << length;
            ForgetSecrets();
        }
    }
}

TEST_P(EditSecretEnds, AlsoIfTheBoxCannotBeTypedInto) {
    EditStage stage(GetParam(), ES_PASSWORD | ES_READONLY);
    stage.input.Send(EM_SETLIMITTEXT, 5);
    SetSecret(stage.Window());
    EnableWindow(stage.Window(), FALSE);
    stage.dialog.Close();
    EXPECT_EQ(CountSecrets(), 0);
}

// Of the texts before, only as much as the last one covers can be asked for: the control moves its block when
// it grows.
TEST_P(EditSecretEnds, AlsoIfItWasFollowedByAShorterText) {
    EditStage stage(GetParam(), ES_PASSWORD);
    SetSecret(stage.Window());
    SetWindowTextW(stage.Window(), L"abc");
    stage.dialog.Close();
    // The control itself leaves one copy of what is replaced as a whole.
    EXPECT_LE(CountSecrets(), 1);
    ForgetSecrets();
}

TEST(EditWipe, EmptiesTheBoxForGood) {
    EditStage stage(kLight, ES_PASSWORD);
    SetSecret(stage.Window());
    stage.dialog.m_commands.clear();
    stage.input.Wipe();
    PumpQueue();
    EXPECT_EQ(stage.dialog.CountCommands(kInput), 0);
    EXPECT_EQ(GetWindowTextLengthW(stage.Window()), 0);
    EXPECT_FALSE(stage.input.Send(EM_CANUNDO));
    stage.input.Send(EM_UNDO);
    EXPECT_EQ(GetWindowTextLengthW(stage.Window()), 0);
    EXPECT_EQ(CountSecrets(), 0);
}

// What the control has copied and given back before, to paint the text, say.
TEST(EditWipe, OverwritesWhatWasFreedOfAFewLetters) {
    constexpr std::size_t kLetters = 18;
    constexpr std::size_t kKept = 10;  // the heap puts something of its own in front
    EditStage stage(kLight, ES_PASSWORD);
    SetSecret(stage.Window(), kLetters);
    const tvstring secret = Secret(kLetters);
    std::vector<const volatile char16_t*> copies;
    for (int i = 0; i < 2000; ++i) {
        auto* copy = static_cast<char16_t*>(HeapAlloc(GetProcessHeap(), 0, kLetters * sizeof(char16_t)));
        ASSERT_NE(copy, nullptr);
        std::copy_n(secret.c_str(), kLetters, copy);
        copies.push_back(copy);
    }
    for (const volatile char16_t* copy : copies)
        HeapFree(GetProcessHeap(), 0, const_cast<char16_t*>(copy));
    ASSERT_GE(CountUnitsAt(copies, kKept, kLetters), 100) << "freed, but there";
    stage.input.Wipe();
    // A block or two may have been taken meanwhile, and hold what their new owners have not written over.
    EXPECT_LE(CountUnitsAt(copies, kKept, kLetters), 2 * static_cast<int>(kLetters - kKept));
}

TEST(EditWipe, LeavesABoxThatCanBeUsed) {
    EditStage stage(kLight, ES_PASSWORD);
    stage.input.Send(EM_SETLIMITTEXT, 7);
    SetSecret(stage.Window());
    stage.input.Wipe();
    EXPECT_EQ(stage.input.Send(EM_GETLIMITTEXT), 7);
    Focus(stage.dialog, stage.Window());
    TypeText(u"new");
    EXPECT_TRUE(PumpUntil([&] { return TextOf(stage.Window()) == u"new"; }));
    EXPECT_GT(stage.dialog.CountCommands(kInput), 0);
}

TEST(EditWipe, DoesNotShowAHiddenBox) {
    EditStage stage(kLight, ES_PASSWORD);
    SetSecret(stage.Window());
    ShowWindow(stage.Window(), SW_HIDE);
    stage.input.Wipe();
    EXPECT_EQ(StyleOf(stage.Window()) & WS_VISIBLE, 0U);
    EXPECT_EQ(CountSecrets(), 0);
}

TEST(EditWipe, OverwritesWhatCouldBeUndone) {
    EditStage stage(kLight, ES_PASSWORD);
    SetSecret(stage.Window(), 64);
    stage.input.Send(EM_SETSEL, 0, -1);
    stage.input.Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    ASSERT_TRUE(stage.input.Send(EM_CANUNDO));
    const int before = CountSecrets();
    EXPECT_GE(before, 1);
    stage.input.Wipe();
    EXPECT_LT(CountSecrets(), before);
    ForgetSecrets();
}

TEST(EditWipe, EmptiesTheBoxOfALongSecret) {
    for (const u32 style : {u32{ES_PASSWORD}, u32{ES_MULTILINE}}) {
        EditStage stage(kLight, style);
        SetSecret(stage.Window(), 1500);
        ASSERT_EQ(GetWindowTextLengthW(stage.Window()), 1500);
        stage.input.Wipe();
        EXPECT_EQ(GetWindowTextLengthW(stage.Window()), 0);
        EXPECT_FALSE(stage.input.Send(EM_CANUNDO));
        EXPECT_EQ(CountSecrets(), 0) << style;
        ForgetSecrets();
    }
}

TEST(EditWipe, IsSilentWhenTheDialogGoes) {
    EditStage stage(kLight, ES_PASSWORD);
    SetSecret(stage.Window());
    PumpQueue();
    stage.dialog.m_commands.clear();
    stage.dialog.Close();
    EXPECT_EQ(stage.dialog.CountCommands(kInput), 0);
}

}  // namespace
