// Two windows of the program at once.
#include "foundation/tvhandle.h"
#include "tests/scenarios/program.h"

namespace {

RECT PlaceOf(const Program& program) {
    RECT rect{};
    GetWindowRect(program.Main(), &rect);
    return rect;
}

void PutTextOnTheClipboard() {
    ASSERT_TRUE(PumpUntil([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    constexpr wchar_t kText[] = L"secret";
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof kText);
    memcpy(GlobalLock(block), kText, sizeof kText);
    GlobalUnlock(block);
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
}

bool IsTextOnTheClipboard() {
    return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
}

// "Clear clipboard when last instance quit", the first row below "More Settings".
void ToggleClearing(const Program& program) {
    program.Activate();
    program.ChooseByKeys({VK_UP, VK_UP, VK_UP, VK_RIGHT, VK_RETURN});
}

class Instances : public Scenario {
protected:
    Program m_First;
    Program m_Second;
};

TEST_F(Instances, TheSecondWindowStandsALittleBeside) {
    ASSERT_TRUE(m_First.Start());
    ASSERT_TRUE(m_Second.Start());
    const RECT first = PlaceOf(m_First);
    const RECT second = PlaceOf(m_Second);
    EXPECT_GT(second.left, first.left);
    EXPECT_EQ(second.left - first.left, second.top - first.top);
    EXPECT_EQ(second.right - second.left, first.right - first.left);
    EXPECT_EQ(second.bottom - second.top, first.bottom - first.top);
}

TEST_F(Instances, TheLastOneClearsTheClipboard) {
    ASSERT_TRUE(m_First.Start());
    ASSERT_TRUE(m_Second.Start());
    PutTextOnTheClipboard();
    ASSERT_TRUE(m_First.Quit());
    EXPECT_TRUE(IsTextOnTheClipboard()) << "one window is still there";
    ASSERT_TRUE(m_Second.Quit());
    EXPECT_FALSE(IsTextOnTheClipboard());
}

TEST_F(Instances, TheLastOneLeavesTheClipboardIfAnotherWasToldNotToClearIt) {
    ASSERT_TRUE(m_First.Start());
    ASSERT_TRUE(m_Second.Start());
    ToggleClearing(m_First);
    PutTextOnTheClipboard();
    ASSERT_TRUE(m_First.Quit());
    ASSERT_TRUE(m_Second.Quit());
    EXPECT_TRUE(IsTextOnTheClipboard());
}

TEST_F(Instances, TheLastOneClearsTheClipboardIfAnotherWasToldTo) {
    ASSERT_TRUE(m_First.Start());
    ToggleClearing(m_First);
    ASSERT_TRUE(m_Second.Start());
    ToggleClearing(m_Second);
    PutTextOnTheClipboard();
    ASSERT_TRUE(m_Second.Quit());
    EXPECT_TRUE(IsTextOnTheClipboard());
    ASSERT_TRUE(m_First.Quit());
    EXPECT_FALSE(IsTextOnTheClipboard());
}

// Something else has the mutex's name: then nobody can tell whether the program is the last.
TEST_F(Instances, WithoutAMutexTheClipboardIsLeftAlone) {
    const tvhandle event(CreateEventW(nullptr, TRUE, FALSE, L"Vaultmere_Mutex"));
    ASSERT_TRUE(event);
    ASSERT_TRUE(m_First.Start());
    PutTextOnTheClipboard();
    ASSERT_TRUE(m_First.Quit());
    EXPECT_TRUE(IsTextOnTheClipboard());
}

// Another window has it open. (Two that open it without a window do not keep each other out everywhere.)
TEST_F(Instances, TheLastOneEndsAlsoIfItDoesNotGetTheClipboard) {
    HWND holder =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(m_First.Start());
    PutTextOnTheClipboard();
    ASSERT_TRUE(PumpUntil([&] { return OpenClipboard(holder) != FALSE; }));
    EXPECT_TRUE(m_First.Quit());
    EXPECT_TRUE(IsTextOnTheClipboard());
    EXPECT_NE(CloseClipboard(), FALSE) << "it has not been closed under us";
    DestroyWindow(holder);
}

TEST_F(Instances, ARunForASwitchClearsNothing) {
    PutTextOnTheClipboard();
    EXPECT_EQ(Program::Run(u"vaultmere.exe", u"/shellremove"), 0U);
    EXPECT_TRUE(IsTextOnTheClipboard());
    ASSERT_TRUE(m_First.Start());
    ASSERT_TRUE(m_First.Quit());
    EXPECT_FALSE(IsTextOnTheClipboard()) << "the program itself would have";
}

}  // namespace
