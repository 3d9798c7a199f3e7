// The commands of the detail pane on the field under the mouse: modify, copy, launch.
#include "database/clipboard.h"
#include "tests/app/detail_stage.h"
#include "tests/app/other_language.h"
#include "tests/app/shell_calls.h"
#include "windows/pass_gen_dlg.h"

namespace {

// Steps for DuringModal: once the dialog that sets passwords is in front, looks at it and ends it.
Step InPassword(std::function<void(const CVMRPassGenDlg&)> look, int button) {
    return [look = std::move(look), button] {
        const auto* dialog = dynamic_cast<const CVMRPassGenDlg*>(tvWnd::FromHandle(FrontDialog()));
        if (dialog == nullptr) return false;
        look(*dialog);
        PostMessageW(dialog->Handle(), WM_COMMAND, static_cast<WPARAM>(button), 0);
        return true;
    };
}

Step Entering(const wchar_t* text, int button = IDOK) {
    return InInput([text](const CVMRInputDlg& dialog) { SetWindowTextW(dialog.m_edit1.Handle(), text); },
                   button);
}

class DetailCommands : public DetailTest {
protected:
    static const tvstring& Text(u16 type) { return Entry(type)->m_Text; }

    // What is told when the command has been carried out on the field, with these steps meanwhile.
    Notes NotesOf(u16 id, u16 field, std::vector<Step> steps = {}) const {
        const DuringModal during(std::move(steps));
        Told().Take();
        Do(id, field);
        EXPECT_TRUE(during.Done());
        EXPECT_EQ(FrontDialog(), Window());
        return Told().Take();
    }
};

// --- Modify ---

TEST_F(DetailCommands, RenamesTheItem) {
    OpenPane();
    Item().m_Date = 1;
    const Notes notes = NotesOf(CMD_DETAIL_MODIFY, kName,
                                {InInput(
                                    [](const CVMRInputDlg& dialog) {
                                        EXPECT_EQ(dialog.m_Title, u"Rename Password Item");
                                        EXPECT_EQ(dialog.m_Info, u"Set a new name to this password item:");
                                        EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"Bank");
                                        EXPECT_EQ(dialog.m_AllowEmpty, 0);
                                        EXPECT_EQ(dialog.m_PlainText, 1);
                                        EXPECT_EQ(dialog.m_MultiLine, 0);
                                        EXPECT_EQ(dialog.m_ExtraCommand, 0U);
                                        SetWindowTextW(dialog.m_edit1.Handle(), L"Shop");
                                    },
                                    IDOK)});
    EXPECT_EQ(notes, (Notes{"ITEMCHANGED 1", "TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(Item().m_Name, u"Shop");
    EXPECT_GT(Item().m_Date, 1U);
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 1U);
    ExpectDrawn(Field(kName).m_textRect, u"Shop", LargeFont(), TextColor());
}

TEST_F(DetailCommands, HaveAPlainTitleForANewName) {
    const OtherLanguage language(u"[itemdetail]\r\nrename_title = &Baptise...\tF2\r\n");
    OpenPane();
    OtherLanguage::Choose();
    NotesOf(CMD_DETAIL_MODIFY, kName,
            {InInput([](const CVMRInputDlg& dialog) { EXPECT_EQ(TextOf(dialog.Handle()), u"Baptise"); },
                     IDCANCEL)});
}

TEST_F(DetailCommands, TakesNoEmptyName) {
    OpenPane();
    NotesOf(CMD_DETAIL_MODIFY, kName,
            {InInput(
                [](const CVMRInputDlg& dialog) {
                    SetWindowTextW(dialog.m_edit1.Handle(), L"");
                    EXPECT_FALSE(IsWindowEnabled(dialog.m_okBtn.Handle()));
                },
                IDCANCEL)});
    EXPECT_EQ(Item().m_Name, u"Bank");
}

TEST_F(DetailCommands, ModifiesTheProgramWithTheChoiceOfAFile) {
    OpenPane();
    const Notes notes =
        NotesOf(CMD_DETAIL_MODIFY, kProgram,
                {InInput(
                    [](const CVMRInputDlg& dialog) {
                        EXPECT_EQ(dialog.m_Title, u"Set Program");
                        EXPECT_EQ(dialog.m_Info, u"Enter or choose the path to program, document, or a URL:");
                        EXPECT_EQ(dialog.m_ExtraCaption, u"&Browse...");
                        EXPECT_EQ(dialog.m_ExtraCommand, static_cast<u32>(CMD_BROWSE));
                        EXPECT_EQ(dialog.m_AllowEmpty, 1);
                        EXPECT_EQ(dialog.m_MultiLine, 0);
                        EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"https://bank.example/");
                        SetWindowTextW(dialog.m_edit1.Handle(), L"notepad");
                    },
                    IDOK)});
    EXPECT_EQ(notes, (Notes{"ITEMCHANGED 1", "TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(Text(kProgram), u"notepad");
}

TEST_F(DetailCommands, ModifiesTheUserNameWhichMayBecomeEmpty) {
    OpenPane();
    NotesOf(CMD_DETAIL_MODIFY, kUser,
            {InInput(
                [](const CVMRInputDlg& dialog) {
                    EXPECT_EQ(dialog.m_Title, u"Set Username");
                    EXPECT_EQ(dialog.m_Info, u"Enter a username:");
                    EXPECT_EQ(dialog.m_ExtraCommand, 0U);
                    EXPECT_EQ(dialog.m_AllowEmpty, 1);
                    EXPECT_EQ(dialog.m_MultiLine, 0);
                    EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"somebody");
                    SetWindowTextW(dialog.m_edit1.Handle(), L"");
                },
                IDOK)});
    EXPECT_EQ(Text(kUser), u"");
    ExpectDrawn(Field(kUser).m_textRect, u"[Empty]", ValueFont(), TextColor());
}

TEST_F(DetailCommands, TellsTheBarsButNoListOfATextThatIsTheSame) {
    OpenPane();
    EXPECT_EQ(NotesOf(CMD_DETAIL_MODIFY, kUser, {Entering(L"somebody")}),
              (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(NotesOf(CMD_DETAIL_MODIFY, kName, {Entering(L"Bank")}), (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

TEST_F(DetailCommands, ChangesNothingAfterCancel) {
    OpenPane();
    for (const u16 type : {kName, kProgram, kUser})
        EXPECT_EQ(NotesOf(CMD_DETAIL_MODIFY, type, {Entering(L"Other", IDCANCEL)}), Notes{});
    const auto nothing = [](const CVMRPassGenDlg& dialog) {
        SetWindowTextW(dialog.m_passwordEdit.Handle(), L"Other");
    };
    EXPECT_EQ(NotesOf(CMD_DETAIL_MODIFY, kPassword, {InPassword(nothing, IDCANCEL)}), Notes{});
    EXPECT_EQ(Item().m_Name, u"Bank");
    EXPECT_EQ(Text(kUser), u"somebody");
    EXPECT_EQ(Text(kPassword), u"tiger");
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

TEST_F(DetailCommands, SetsThePasswordInItsOwnDialog) {
    OpenPane();
    const Notes notes = NotesOf(CMD_DETAIL_MODIFY, kPassword,
                                {InPassword(
                                    [](const CVMRPassGenDlg& dialog) {
                                        EXPECT_EQ(TextOf(dialog.m_passwordEdit.Handle()), u"tiger");
                                        SetWindowTextW(dialog.m_passwordEdit.Handle(), L"zebra");
                                    },
                                    IDOK)});
    EXPECT_EQ(notes, (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(Text(kPassword), u"zebra");
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 1U);
}

TEST_F(DetailCommands, ModifyByTheButton) {
    OpenPane();
    PointAt(kUser);
    const DuringModal steps({Entering(L"nobody")});
    Click(Pane().m_modifyHover.Handle());
    EXPECT_TRUE(PumpUntil([] { return Text(kUser) == u"nobody"; }));
}

// Until the mouse moves again.
TEST_F(DetailCommands, HideTheButtonsWhenTheyAreDone) {
    OpenPane();
    const ShellCalls shell;
    for (const u16 id : {CMD_DETAIL_MODIFY, CMD_DETAIL_GO}) {
        PointAt(kName);
        PointAt(kProgram);
        EXPECT_EQ(Shown(), "modify copy go");
        const DuringModal steps(id == CMD_DETAIL_MODIFY ? std::vector<Step>{Entering(L"x")}
                                                        : std::vector<Step>{});
        SendMessageW(PaneWindow(), WM_COMMAND, id, 0);
        EXPECT_EQ(Shown(), "") << id;
    }
    PointAt(kName);
    PointAt(kProgram);
    SendMessageW(PaneWindow(), WM_COMMAND, CMD_DETAIL_COPY, 0);
    EXPECT_EQ(Shown(), "modify copy go");
}

TEST_F(DetailCommands, ModifyTheFieldThatIsDoubleClicked) {
    OpenPane();
    const DuringModal steps({Entering(L"nobody"), Entering(L"Shop")});
    const RECT user = Field(kUser).m_hitRect;
    DoubleClick(PaneWindow(), user.left + 3, user.top + 3);
    EXPECT_TRUE(PumpUntil([] { return Text(kUser) == u"nobody"; }));
    PumpQueue();
    const RECT name = Field(kName).m_hitRect;
    DoubleClick(PaneWindow(), name.left + 3, name.top + 3);
    EXPECT_TRUE(PumpUntil([] { return Item().m_Name == u"Shop"; }));
}

TEST_F(DetailCommands, DoNothingForADoubleClickBesideTheFields) {
    OpenPane();
    const DuringModal none({});  // fails once a dialog stays
    const RECT heading = Field(kAddition).m_hitRect;
    DoubleClick(PaneWindow(), heading.left + 3, heading.top + 3);
    PumpQueue();
    const RECT name = Field(kName).m_hitRect;
    Show(nullptr);
    DoubleClick(PaneWindow(), name.left + 3, name.top + 3);
    PumpQueue();
    EXPECT_EQ(FrontDialog(), Window());
}

TEST_F(DetailCommands, RenameTheItemForTheItemList) {
    OpenPane();
    const DuringModal steps({Entering(L"Shop")});
    Main().OnAppNotify(APPN_RENAMEITEM, 0, 0, 0);
    EXPECT_EQ(Item().m_Name, u"Bank");  // it is posted
    EXPECT_TRUE(PumpUntil([] { return Item().m_Name == u"Shop"; }));
}

TEST_F(DetailCommands, DoNothingWithoutAnItemOrAField) {
    OpenPane();
    const ShellCalls shell;
    SetClipboard(u"before");
    const DuringModal none({});  // fails once a dialog stays
    for (const u16 id : {CMD_DETAIL_MODIFY, CMD_DETAIL_COPY, CMD_DETAIL_GO})
        for (const u16 field : {kNone, static_cast<u16>(99)})
            Do(id, field);
    Show(nullptr);
    for (const u16 id : {CMD_DETAIL_MODIFY, CMD_DETAIL_COPY, CMD_DETAIL_GO, CMD_DETAIL_SHOW_PASSWORD})
        Do(id, kProgram);
    Main().OnAppNotify(APPN_RENAMEITEM, 0, 0, 0);
    PumpQueue();
    EXPECT_EQ(FrontDialog(), Window());
    EXPECT_TRUE(shell.Get().empty());
    EXPECT_EQ(ClipboardText(), u"before");
}

TEST_F(DetailCommands, DoNothingForAnEntryThatTheItemLacks) {
    ElementArray gone{Entry(kProgram)};
    TheDatabase().RemoveEntries(gone, &Item());
    OpenPane();
    const ShellCalls shell;
    const DuringModal none({});  // fails once a dialog stays
    SetClipboard(u"before");
    for (const u16 id : {CMD_DETAIL_MODIFY, CMD_DETAIL_COPY, CMD_DETAIL_GO})
        Do(id, kProgram);
    EXPECT_EQ(FrontDialog(), Window());
    EXPECT_TRUE(shell.Get().empty());
    EXPECT_EQ(ClipboardText(), u"before");
}

// --- Copy ---

TEST_F(DetailCommands, CopyThePasswordAsItIsWithAWarning) {
    OpenPane();
    PointAt(kPassword);
    Told().Take();
    Click(Pane().m_copyHover.Handle());
    EXPECT_TRUE(PumpUntil([] { return ClipboardText() == u"tiger"; }));
    EXPECT_EQ(Told().Take(), Notes{"STATUS warning Password copied to clipboard"});
    EXPECT_EQ(TheAppData().bShowPassword, 0);
    EXPECT_FALSE(IsClipboardFormatAvailable(EntriesClipboardFormat()));
}

TEST_F(DetailCommands, CopyOtherFieldsWithoutAWord) {
    OpenPane();
    EXPECT_EQ(NotesOf(CMD_DETAIL_COPY, kUser), Notes{});
    EXPECT_EQ(ClipboardText(), u"somebody");
    EXPECT_EQ(NotesOf(CMD_DETAIL_COPY, kProgram), Notes{});
    EXPECT_EQ(ClipboardText(), u"https://bank.example/");
}

// No button and no menu offers it, but the command is there.
TEST_F(DetailCommands, CopyTheNameWithoutAWord) {
    OpenPane();
    EXPECT_EQ(NotesOf(CMD_DETAIL_COPY, kName), Notes{});
    EXPECT_EQ(ClipboardText(), u"Bank");
}

TEST_F(DetailCommands, LeaveTheClipboardForAnEmptyField) {
    Set(kPassword, u"");
    OpenPane();
    SetClipboard(u"before");
    EXPECT_EQ(NotesOf(CMD_DETAIL_COPY, kPassword), Notes{});
    EXPECT_EQ(ClipboardText(), u"before");
}

TEST_F(DetailCommands, SayNothingOfAClipboardThatIsNotToBeHad) {
    OpenPane();
    SetClipboard(u"before");
    ASSERT_TRUE(OpenClipboard(PaneWindow()));
    EXPECT_EQ(NotesOf(CMD_DETAIL_COPY, kPassword), Notes{});
    CloseClipboard();
    EXPECT_EQ(ClipboardText(), u"before");
}

// --- Launch ---

TEST_F(DetailCommands, LaunchWhateverTheTextIsInOneWay) {
    OpenPane();
    for (const wchar_t* text :
         {L"notepad", L"https://bank.example/?a=b c", L"C:\\Some folder\\a file.txt", L"prog.exe -x \"y\""}) {
        Set(kProgram, platform::Units(text));
        Show(&Item());
        const ShellCalls shell;
        EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kProgram), Notes{});
        ASSERT_EQ(shell.Get().size(), 1U);
        const ShellCalls::Call& call = shell.Get().front();
        EXPECT_EQ(call.file, text);
        EXPECT_EQ(call.verb, L"(null)");
        EXPECT_EQ(call.parameters, L"(null)");
        EXPECT_EQ(call.folder, L"(null)");
        EXPECT_EQ(call.show, SW_SHOWNORMAL);
    }
}

TEST_F(DetailCommands, LaunchByTheButtonWithoutTouchingTheClipboard) {
    OpenPane();
    const ShellCalls shell;
    SetClipboard(u"before");
    PointAt(kProgram);
    Click(Pane().m_goHover.Handle());
    EXPECT_TRUE(PumpUntil([&shell] { return shell.Get().size() == 1; }));
    EXPECT_EQ(ClipboardText(), u"before");
}

TEST_F(DetailCommands, TellOfALaunchThatFailsWithTheCode) {
    OpenPane();
    ShellCalls shell;
    shell.FailWith(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kProgram),
              Notes{"STATUS error Failed to open https://bank.example/ [0x00000002]"});
    shell.FailWith(0x8007'04C7);
    Set(kProgram, u" there . \t.");
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kProgram), Notes{"STATUS error Failed to open  there [0x800704c7]"});
}

TEST_F(DetailCommands, TellOfALaunchThatFailsForNoToldCause) {
    OpenPane();
    ShellCalls shell;
    shell.FailWith(0);
    Set(kProgram, u"there.");
    SetLastError(ERROR_ACCESS_DENIED);  // of something before
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kProgram), Notes{"STATUS error Failed to open there."});
}

TEST_F(DetailCommands, LaunchNothingForAnEmptyProgramOrTheName) {
    Set(kProgram, u"");
    OpenPane();
    const ShellCalls shell;
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kProgram), Notes{});
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kName), Notes{});
    EXPECT_TRUE(shell.Get().empty());
}

// The button keeps the keyboard while the mouse goes on.
TEST_F(DetailCommands, LaunchNoOtherFieldThanTheProgram) {
    OpenPane();
    const ShellCalls shell;
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kUser), Notes{});
    EXPECT_EQ(NotesOf(CMD_DETAIL_GO, kPassword), Notes{});
    EXPECT_TRUE(shell.Get().empty());
}

// --- An item list that tells late of its selection ---

class DetailCommandsOnTheItemBefore : public DetailCommands {
protected:
    // Another item comes into the pane while the dialog is open.
    Step BringingTheOther() {
        return [this] {
            if (FrontDialog() == Window()) return false;
            Show(m_Other);
            return true;
        };
    }

    ItemElement* m_Other = TheDatabase().AddNewItem(&TheDatabase());
};

TEST_F(DetailCommandsOnTheItemBefore, RenameIt) {
    OpenPane();
    const tvstring name = m_Other->m_Name;
    NotesOf(CMD_DETAIL_MODIFY, kName, {BringingTheOther(), Entering(L"Shop")});
    EXPECT_EQ(Item().m_Name, u"Shop");
    EXPECT_EQ(m_Other->m_Name, name);
}

TEST_F(DetailCommandsOnTheItemBefore, ModifyItsFields) {
    OpenPane();
    m_Other->m_Date = 1;
    NotesOf(CMD_DETAIL_MODIFY, kUser, {BringingTheOther(), Entering(L"nobody")});
    EXPECT_EQ(Text(kUser), u"nobody");
    Show(&Item());
    NotesOf(CMD_DETAIL_MODIFY, kPassword,
            {BringingTheOther(),
             InPassword([](const CVMRPassGenDlg& dialog) { SetDlgItemTextW(dialog.Handle(), 2014, L"lion"); },
                        IDOK)});
    EXPECT_EQ(Text(kPassword), u"lion");
    EXPECT_EQ(m_Other->m_Date, 1U);
}

TEST_F(DetailCommandsOnTheItemBefore, AddToIt) {
    OpenPane();
    const auto entries = m_Other->m_Count;
    NotesOf(CMD_ADD, kNone,
            {BringingTheOther(), InInput(
                                     [](const CVMRInputDlg& dialog) {
                                         // Told of, unlike a whole text that is set.
                                         dialog.m_edit1.Send(EM_REPLACESEL, FALSE,
                                                             reinterpret_cast<LPARAM>(L"new"));
                                     },
                                     IDOK)});
    EXPECT_EQ(Text(kAddition), u"new");
    EXPECT_EQ(m_Other->m_Count, entries);
}

}  // namespace
