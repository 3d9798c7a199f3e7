// The input dialog: what its button OK asks for, and what comes of its texts.
#include "tests/app/input_dlg_stage.h"
#include "tests/gui/secret_memory.h"
#include "toolkit/app.h"
#include "windows/command_ids.h"

namespace {

using InputDialog = InputDialogTest;

// --- What is enough for OK ---

TEST_F(InputDialog, OfOneLineNeedsText) {
    Show();
    EXPECT_FALSE(IsOkEnabled());
    Put(kEdit1, u"x");
    EXPECT_TRUE(IsOkEnabled());
    Put(kEdit1, u"");
    EXPECT_FALSE(IsOkEnabled());
}

TEST_F(InputDialog, OfManyLinesNeedsMoreThanLineEnds) {
    BeMultiLine();
    m_Dialog->m_Text = u"a";
    Show();
    EXPECT_TRUE(IsOkEnabled());
    Put(kEdit1, u"\r\n\r\n\r\n");
    EXPECT_FALSE(IsOkEnabled());
    Put(kEdit1, u"\r\nx");
    EXPECT_TRUE(IsOkEnabled());
}

TEST_F(InputDialog, OfTwoFieldsNeedsBothAndDoesNotCompareThem) {
    m_Dialog->m_PlainText = 0;
    m_Dialog->m_TwoFields = 1;
    Show();
    Put(kEdit1, u"one");
    EXPECT_FALSE(IsOkEnabled());
    Put(kEdit2, u"other");
    EXPECT_TRUE(IsOkEnabled());
    Put(kEdit1, u"");
    EXPECT_FALSE(IsOkEnabled());
}

TEST_F(InputDialog, ThatMayBeEmptyNeedsNothing) {
    m_Dialog->m_AllowEmpty = 1;
    m_Dialog->m_TwoFields = 1;
    Show();
    EXPECT_TRUE(IsOkEnabled());
}

// --- What comes of it ---

TEST_F(InputDialog, KeepsALeadingBlankLine) {
    BeMultiLine();
    EXPECT_EQ(Run({Putting(kEdit1, u"\r\nx"), PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"\r\nx");
}

// A longer one could not be read from the file again.
TEST_F(InputDialog, TakesAllThatAnElementCanHoldAndNoMore) {
    constexpr std::size_t kMost = 65'535;
    constexpr std::size_t kLine = 64;
    for (const bool isMultiLine : {false, true}) {
        tvstring text(kMost, u'x');
        for (std::size_t i = kLine; isMultiLine && i < kMost; i += kLine) {
            text[i - 2] = u'\r';
            text[i - 1] = u'\n';
        }
        for (const char16_t* more : {u"", u"y"}) {
            Renew();
            if (isMultiLine) BeMultiLine();
            const tvstring pasted = text + more;
            EXPECT_EQ(Run({Putting(kEdit1, pasted.c_str()), PressButton(IDOK)}), IDOK);
            EXPECT_TRUE(m_Dialog->m_Text == text) << m_Dialog->m_Text.size();
        }
    }
}

TEST_F(InputDialog, GivesTwoTextsThatDiffer) {
    m_Dialog->m_PlainText = 0;
    m_Dialog->m_TwoFields = 1;
    EXPECT_EQ(Run({Putting(kEdit1, u"one"), Putting(kEdit2, u"other"), PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"one");
    EXPECT_EQ(m_Dialog->m_Text2, u"other");
}

TEST_F(InputDialog, ThatMayBeEmptyClosesWithoutText) {
    m_Dialog->m_AllowEmpty = 1;
    m_Dialog->m_Text = u"before";
    EXPECT_EQ(Run({Putting(kEdit1, u""), PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"");
}

TEST_F(InputDialog, ThatMayBeEmptyTellsCancelByItsResult) {
    m_Dialog->m_AllowEmpty = 1;
    EXPECT_EQ(Run({PressButton(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(m_Dialog->m_Text, u"");
}

TEST_F(InputDialog, HoldsTheTextsItWasGivenAndNothingAfterCancel) {
    m_Dialog->m_TwoFields = 1;
    m_Dialog->m_Text = u"first";
    m_Dialog->m_Text2 = u"second";
    tvstring first;
    tvstring second;
    const Step read = [&] {
        first = TextOf(Item(kEdit1));
        second = TextOf(Item(kEdit2));
        return true;
    };
    EXPECT_EQ(Run({read, PressButton(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(first, u"first");
    EXPECT_EQ(second, u"second");
    EXPECT_EQ(m_Dialog->m_Text, u"");
    EXPECT_EQ(m_Dialog->m_Text2, u"");
}

// A step comes after what was posted in the one before.
TEST_F(InputDialog, RefusesSilentlyAndStaysOpen) {
    const Step look = [this] {
        EXPECT_EQ(FrontDialog(), m_Dialog->Handle());
        EXPECT_EQ(m_Dialog->m_result, 0);
        return true;
    };
    EXPECT_EQ(Run({Sending(IDOK), look, Putting(kEdit1, u"x"), PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"x");
}

TEST_F(InputDialog, HasNoTextsIfItIsCancelledAfterItHasRefused) {
    m_Dialog->m_PlainText = 0;
    m_Dialog->m_TwoFields = 1;
    for (const int filled : {kEdit1, kEdit2}) {
        EXPECT_EQ(Run({Putting(filled, u"x"), Sending(IDOK), PressButton(IDCANCEL)}), IDCANCEL);
        EXPECT_EQ(m_Dialog->m_Text, u"");
        EXPECT_EQ(m_Dialog->m_Text2, u"");
        Renew();
        m_Dialog->m_PlainText = 0;
        m_Dialog->m_TwoFields = 1;
    }
}

// --- Secrets ---

// Entries can be anything, and may be long.
TEST_F(InputDialog, OfManyLinesLeavesNothingOfItsTextBehind) {
    for (const int lines : {1, 20}) {
        ASSERT_EQ(CountSecrets(), 0);
        Renew();
        BeMultiLine();
        Show();
        for (int i = 0; i < lines; ++i) {
            m_Dialog->m_edit1.Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Secret(70).c_str()));
            m_Dialog->m_edit1.Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"\r\n"));
        }
        EXPECT_GE(CountSecrets(), lines);
        m_Dialog.reset();
        EXPECT_EQ(CountSecrets(), 0) << lines;
        ForgetSecrets();
    }
}

TEST_F(InputDialog, OfManyLinesThatGaveItsTextLeavesNothingOfItBehind) {
    ASSERT_EQ(CountSecrets(), 0);
    BeMultiLine();
    const Step put = [this] {
        Put(kEdit1, Secret().c_str());
        return true;
    };
    EXPECT_EQ(Run({put, PressButton(IDOK)}), IDOK);
    EXPECT_TRUE(m_Dialog->m_Text == Secret());
    EXPECT_GE(CountSecrets(), 1);
    m_Dialog.reset();
    EXPECT_EQ(CountSecrets(), 0);
    ForgetSecrets();
}

// The control tries out where to break it, on copies.
TEST_F(InputDialog, OfManyLinesLeavesNothingOfOneLongWordBehind) {
    for (const std::size_t length : {500, 3000}) {
        ASSERT_EQ(CountSecrets(), 0);
        Renew();
        BeMultiLine();
        Show();
        Put(kEdit1, Secret(length).c_str());
        EXPECT_GE(CountSecrets(), static_cast<int>(length / 26) - 3);
        m_Dialog.reset();
        EXPECT_EQ(CountSecrets(), 0) << length;
        ForgetSecrets();
    }
}

// --- The caret ---

tvstring FortyLines() {
    tvstring text = u"Line";
    for (int i = 1; i < 40; ++i)
        text.append(u"\r\nLine");
    return text;
}

// Nothing is selected, and the last line can be seen.
void ExpectCaretAtEnd(HWND edit) {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    const auto length = static_cast<DWORD>(GetWindowTextLengthW(edit));
    EXPECT_EQ(from, length);
    EXPECT_EQ(to, length);
    EXPECT_GT(SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    const LRESULT last = SendMessageW(edit, EM_POSFROMCHAR, length - 1, 0);
    const auto y = static_cast<short>(HIWORD(last));
    EXPECT_GE(y, 0);
    EXPECT_LT(y, ClientOf(edit).bottom);
}

// For the dialog's own loop. Whether the system still takes the key for pressed afterwards is not looked at:
// a window that comes to the front has it forget that.
void QueueKey(WORD key) {
    INPUT inputs[2] = {};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    EXPECT_EQ(SendInput(2, inputs, sizeof inputs[0]), 2U);
}

TEST_F(InputDialog, OfManyLinesHasItsCaretAtTheEndInView) {
    BeMultiLine();
    m_Dialog->m_Text = FortyLines();
    Show();
    ExpectCaretAtEnd(Item(kEdit1));
}

TEST_F(InputDialog, OfManyLinesDoesNotSelectAllWhenItIsReachedByTab) {
    BeMultiLine();
    m_Dialog->m_Text = FortyLines();
    HWND left = nullptr;  // by the last key
    const Step away = [&left] {
        left = GetFocus();
        QueueKey(VK_TAB);
        return true;
    };
    const Step round = [this, &left] {  // by way of the buttons
        if (GetFocus() == left) return false;
        if (GetFocus() == Item(kEdit1)) return true;
        left = GetFocus();
        QueueKey(VK_TAB);
        return false;
    };
    const Step look = [this] {
        ExpectCaretAtEnd(Item(kEdit1));
        return true;
    };
    Run({away, round, look, PressButton(IDCANCEL)});
}

// --- Keys ---

class KeysOfManyLines : public InputDialog, public testing::WithParamInterface<const char16_t*> {
protected:
    KeysOfManyLines() {
        UseTheme(GetParam(), Window());
        BeMultiLine();
        m_Dialog->m_Text = u"one";
    }
    [[nodiscard]] Step Queueing(WORD key) const {
        return [key] {
            QueueKey(key);
            return true;
        };
    }
};
// With and without a scroll box around the text.
INSTANTIATE_TEST_SUITE_P(Themes, KeysOfManyLines, testing::Values(u"Dark", u"System Default"),
                         [](const auto& theme) {
                             return std::u16string_view(theme.param) == u"Dark" ? "Dark" : "SystemDefault";
                         });

TEST_P(KeysOfManyLines, EscapeClosesTheDialogWithoutText) {
    EXPECT_EQ(Run({Queueing(VK_ESCAPE)}), IDCANCEL);
    EXPECT_EQ(m_Dialog->m_Text, u"");
}

TEST_P(KeysOfManyLines, EnterBeginsANewLine) {
    const Step end = [this] { return GetWindowTextLengthW(Item(kEdit1)) > 3; };
    EXPECT_EQ(Run({Queueing(VK_RETURN), end, PressButton(IDOK)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"one\r\n");
}

TEST_P(KeysOfManyLines, TabGoesOnToTheButtons) {
    const Step onButton = [this] { return GetFocus() == Item(IDOK); };
    EXPECT_EQ(Run({Queueing(VK_TAB), onButton, Queueing(VK_RETURN)}), IDOK);
    EXPECT_EQ(m_Dialog->m_Text, u"one");
}

// --- The third button ---

TEST_F(InputDialog, ShowsAThirdButtonOnlyWithCaptionAndCommand) {
    struct {
        const char16_t* caption;
        u32 command;
        bool shown;
    } const cases[] = {{u"", 0, false},
                       {u"Caption", 0, false},
                       {u"", CMD_AUTO_OPEN, false},
                       {u"Caption", CMD_AUTO_OPEN, true}};
    for (const auto& [caption, command, shown] : cases) {
        Renew();
        m_Dialog->m_ExtraCaption = caption;
        m_Dialog->m_ExtraCommand = command;
        Show();
        EXPECT_EQ(IsWindowVisible(Item(kExtra)) != FALSE, shown) << command;
        EXPECT_EQ(TextOf(Item(kExtra)), caption);
    }
}

// Notes the commands that the main window is sent.
class MainCommands {
public:
    MainCommands() : m_Hook(SetWindowsHookExW(WH_CALLWNDPROC, Note, nullptr, GetCurrentThreadId())) {
        s_Commands.clear();
    }
    ~MainCommands() { UnhookWindowsHookEx(m_Hook); }
    MainCommands(const MainCommands&) = delete;
    MainCommands& operator=(const MainCommands&) = delete;

    [[nodiscard]] static const std::vector<WPARAM>& Sent() { return s_Commands; }

private:
    static LRESULT CALLBACK Note(int code, WPARAM wParam, LPARAM lParam) {
        const auto* message =
            reinterpret_cast<const CWPSTRUCT*>(lParam);  // NOLINT(performance-no-int-to-ptr)
        if (message->message == WM_COMMAND && message->hwnd == tvApp::MainWindow())
            s_Commands.push_back(message->wParam);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    inline static std::vector<WPARAM> s_Commands;
    HHOOK m_Hook;
};

TEST_F(InputDialog, SendsTheThirdButtonsCommandToTheMainWindowAndStays) {
    m_Dialog->m_ExtraCaption = u"Caption";
    m_Dialog->m_ExtraCommand = CMD_AUTO_OPEN;
    Show();
    const MainCommands commands;
    SendMessageW(Item(kExtra), BM_CLICK, 0, 0);
    PumpQueue();
    EXPECT_EQ(MainCommands::Sent(), std::vector<WPARAM>{CMD_AUTO_OPEN});
    EXPECT_EQ(TheAppData().bAutoOpen, 1);
    EXPECT_EQ(m_Dialog->m_result, 0);
}

TEST_F(InputDialog, DoesNothingForAThirdButtonWithoutCommand) {
    m_Dialog->m_Text = u"Text";
    Show();
    const MainCommands commands;
    m_Dialog->Send(WM_COMMAND, kExtra, 0);
    PumpQueue();
    EXPECT_TRUE(MainCommands::Sent().empty());
    EXPECT_EQ(TextOf(Item(kEdit1)), u"Text");
    EXPECT_EQ(m_Dialog->m_result, 0);
}

}  // namespace
