// Keys that are commands of the main window, and those that are left to who has the keyboard.
#include "tests/app/command_stage.h"

namespace {

// While it lives this thread takes Ctrl for held.
class HeldCtrl {
public:
    HeldCtrl() { Set(0x80); }
    ~HeldCtrl() { Set(0); }
    HeldCtrl(const HeldCtrl&) = delete;
    HeldCtrl& operator=(const HeldCtrl&) = delete;

private:
    static void Set(BYTE state) {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[VK_CONTROL] = state;
        SetKeyboardState(keys);
    }
};

class MainKeys : public CommandTest {
protected:
    // A control in the start page, which is there and visible.
    [[nodiscard]] HWND AddChild(const wchar_t* className) const {
        const HWND child = CreateWindowExW(0, className, L"text", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                           Main().m_startDlg.Handle(), nullptr, nullptr, nullptr);
        EXPECT_NE(child, nullptr);
        return child;
    }

    // The main window takes the key for its own as it comes out of the queue.
    [[nodiscard]] bool IsTaken(HWND window, WORD key) const {
        MSG message{};
        message.hwnd = window;
        message.message = WM_KEYDOWN;
        message.wParam = key;
        message.lParam = 1;
        return Main().PreTranslateMsg(&message);
    }

    [[nodiscard]] int Undos() const { return Noting().CountCommands(CMD_UNDO); }
    [[nodiscard]] int Saves() const { return Noting().CountCommands(CMD_SAVE); }
};

TEST_F(MainKeys, CtrlZInAnEditBoxIsTheBoxesOwn) {
    OpenNoting();
    const HWND edit = AddChild(L"Edit");
    const HeldCtrl ctrl;
    EXPECT_FALSE(IsTaken(edit, 'Z'));
    EXPECT_EQ(Undos(), 0);
}

TEST_F(MainKeys, CtrlZInAnotherControlIsUndo) {
    OpenNoting();
    const HWND list = AddChild(L"ListBox");
    const HeldCtrl ctrl;
    EXPECT_TRUE(IsTaken(list, 'Z'));
    EXPECT_EQ(Undos(), 1);
    EXPECT_TRUE(IsTaken(Window(), 'Z'));
    EXPECT_EQ(Undos(), 2);
}

TEST_F(MainKeys, ZWithoutCtrlIsNoCommand) {
    OpenNoting();
    EXPECT_FALSE(IsTaken(AddChild(L"ListBox"), 'Z'));
    EXPECT_EQ(Undos(), 0);
}

TEST_F(MainKeys, CtrlSInAnEditBoxIsSave) {
    OpenNoting();
    const HWND edit = AddChild(L"Edit");
    const HeldCtrl ctrl;
    EXPECT_TRUE(IsTaken(edit, 'S'));
    EXPECT_EQ(Saves(), 1);
}

TEST_F(MainKeys, OfAnotherDialogStayThere) {
    OpenNoting();
    TestDialog other;
    other.Add(ATOM_BUTTON, 100, 10, 10, 60, 14);
    other.Open();
    const HeldCtrl ctrl;
    EXPECT_FALSE(IsTaken(other.Item(100), 'Z'));
    EXPECT_FALSE(IsTaken(other.Handle(), 'S'));
    EXPECT_EQ(Undos(), 0);
    EXPECT_EQ(Saves(), 0);
}

TEST_F(MainKeys, CtrlSSaves) {
    OpenFile();
    TheDatabase().SetName(u"Other");
    const HeldCtrl ctrl;
    EXPECT_TRUE(IsTaken(Window(), 'S'));
    EXPECT_FALSE(TheDatabase().m_Changed);
}

// The letter behind it shows that the dialog has had the keys.
TEST_F(MainKeys, CtrlSUnderADialogDoesNothingInTheMainWindow) {
    OpenFile();
    TheDatabase().SetName(u"Other");
    HWND edit = nullptr;
    const auto isInFront = [&] {
        const auto* dialog = dynamic_cast<const CVMRInputDlg*>(tvWnd::FromHandle(FrontDialog()));
        if (dialog == nullptr || GetForegroundWindow() != dialog->Handle()) return false;
        edit = dialog->m_edit1.Handle();
        return GetFocus() == edit;
    };
    const auto type = [] {
        Type('S', HOLD_CTRL);
        TypeText(u"x");
        return true;
    };
    const DuringModal steps({isInFront, type, [&] { return TextOf(edit) == u"x"; }, PressButton(IDCANCEL)});
    Command(CMD_RENAME);
    EXPECT_EQ(Saves(), 0);
    EXPECT_TRUE(TheDatabase().m_Changed);
}

TEST_F(MainKeys, F10WithoutAFocusGivesThePaneOne) {
    OpenNoting();
    SetFocus(nullptr);
    ASSERT_EQ(GetFocus(), nullptr);
    MSG message{};
    message.hwnd = Window();
    message.message = WM_SYSKEYDOWN;
    message.wParam = VK_F10;
    Main().PreTranslateMsg(&message);
    MSG posted{};
    EXPECT_NE(PeekMessageW(&posted, Window(), WM_NEXTDLGCTL, WM_NEXTDLGCTL, PM_REMOVE), FALSE);
    message.lParam = 1 << 29;
    Main().PreTranslateMsg(&message);
    EXPECT_EQ(PeekMessageW(&posted, Window(), WM_NEXTDLGCTL, WM_NEXTDLGCTL, PM_REMOVE), FALSE);
}

}  // namespace
