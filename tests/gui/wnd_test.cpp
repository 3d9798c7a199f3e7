#include "toolkit/wnd.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/gui/plain_window.h"
#include "tests/gui/test_app.h"

namespace {

// A wrapper that notes what it is called with.
class NotingWnd : public tvWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == m_Watched) ++m_Seen;
        if (message == m_Watched && m_Answers) return m_Answer;
        return tvWnd::WindowProc(message, wParam, lParam);
    }
    void OnSubclassed() override {
        ++m_Subclassed;
        m_WasAttached = IsAttached();
    }

    UINT m_Watched = WM_NULL;
    int m_Seen = 0;
    bool m_Answers = false;
    LRESULT m_Answer = 0;
    int m_Subclassed = 0;
    bool m_WasAttached = false;
};

WNDPROC ProcOf(HWND handle) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(handle, GWLP_WNDPROC));
}

TEST(WndAttach, WrapsAWindowAndIsFoundByIt) {
    const PlainWindow window;
    const WNDPROC before = ProcOf(window.Handle());
    tvWnd wrapper;
    EXPECT_EQ(tvWnd::FromHandle(window.Handle()), nullptr);
    ASSERT_TRUE(wrapper.Attach(window.Handle()));
    EXPECT_EQ(tvWnd::FromHandle(window.Handle()), &wrapper);
    EXPECT_EQ(wrapper.m_oldProc, before);
    EXPECT_EQ(ProcOf(window.Handle()), &tvWnd::SharedProc);
    wrapper.Detach(tvWnd::Window::Keep);
    EXPECT_EQ(ProcOf(window.Handle()), before);
    EXPECT_EQ(tvWnd::FromHandle(window.Handle()), nullptr);
    EXPECT_EQ(wrapper.m_oldProc, nullptr);
    EXPECT_TRUE(IsWindow(window.Handle()));
}

TEST(WndAttach, FailsForNullAndForASecondWindow) {
    const PlainWindow window;
    const PlainWindow other;
    tvWnd wrapper;
    EXPECT_FALSE(wrapper.Attach(nullptr));
    ASSERT_TRUE(wrapper.Attach(window.Handle()));
    EXPECT_TRUE(wrapper.Attach(window.Handle()));
    EXPECT_FALSE(wrapper.Attach(other.Handle()));
    EXPECT_EQ(wrapper.Handle(), window.Handle());
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndAttach, TakesTheFontThatTheWindowTells) {
    PlainWindow window;
    window.m_AnswerTo = WM_GETFONT;
    window.m_Answer = 0x1234;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    EXPECT_EQ(reinterpret_cast<LRESULT>(wrapper.m_font), 0x1234);
    wrapper.Detach(tvWnd::Window::Keep);
    EXPECT_EQ(wrapper.m_font, nullptr);
}

TEST(WndAttach, SubclassWindowTellsTheWrapperWhateverCameOfIt) {
    NotingWnd wrapper;
    wrapper.SubclassWindow(nullptr);
    EXPECT_EQ(wrapper.m_Subclassed, 1);
}

TEST(WndAttach, SubclassDlgItemWantsAFreeWrapperAndBothArguments) {
    const PlainWindow parent;
    const PlainWindow child(WS_CHILD, parent.Handle(), 7);
    NotingWnd wrapper;
    wrapper.SubclassDlgItem(nullptr, 7);
    wrapper.SubclassDlgItem(parent.Handle(), 0);
    EXPECT_EQ(wrapper.m_Subclassed, 0);
    wrapper.SubclassDlgItem(parent.Handle(), 8);
    EXPECT_EQ(wrapper.m_Subclassed, 0);
    wrapper.SubclassDlgItem(parent.Handle(), 7);
    EXPECT_EQ(wrapper.Handle(), child.Handle());
    EXPECT_TRUE(wrapper.m_WasAttached);
    wrapper.SubclassDlgItem(parent.Handle(), 7);
    EXPECT_EQ(wrapper.m_Subclassed, 1);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndDetach, ForgetsTheLeastSize) {
    const PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    wrapper.m_minWidth = wrapper.m_minHeight = 5;
    wrapper.Detach(tvWnd::Window::Keep);
    EXPECT_EQ(wrapper.m_minWidth + wrapper.m_minHeight, 0);
}

TEST(WndDetach, LeavesAProcedureThatSomebodyElseHasPutInPlace) {
    const PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    SetWindowLongPtrW(window.Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
    const WNDPROC others = ProcOf(window.Handle());
    wrapper.Detach(tvWnd::Window::Keep);
    EXPECT_EQ(ProcOf(window.Handle()), others);
}

TEST(WndDestructor, TakesALiveWindowWithIt) {
    const PlainWindow window;
    {
        tvWnd wrapper;
        wrapper.Attach(window.Handle());
    }
    EXPECT_FALSE(IsWindow(window.Handle()));
}

TEST(WndDestroy, OfTheWindowLeavesTheWrapperReusable) {
    tvWnd wrapper;
    {
        const PlainWindow window;
        wrapper.Attach(window.Handle());
    }
    EXPECT_FALSE(wrapper.IsAttached());
    const PlainWindow next;
    EXPECT_TRUE(wrapper.Attach(next.Handle()));
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndDetach, ComesWithTheEndOfTheMapAndLeavesTheWindow) {
    PlainWindow window;
    const WNDPROC before = ProcOf(window.Handle());
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    {
        tvWndMap map;
        map.Add(window.Handle(), &wrapper);
        EXPECT_EQ(map.Find(window.Handle()), &wrapper);
    }
    EXPECT_FALSE(wrapper.IsAttached());
    EXPECT_TRUE(IsWindow(window.Handle()));
    EXPECT_EQ(ProcOf(window.Handle()), before);
}

TEST(WndStyle, ChangesTheFrameAndNothingElseOfThePlace) {
    class WatchingWnd : public tvWnd {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_WINDOWPOSCHANGING)
                m_Flags.push_back(reinterpret_cast<const WINDOWPOS*>(lParam)->flags);
            return tvWnd::WindowProc(message, wParam, lParam);
        }
        std::vector<UINT> m_Flags;
    };
    const PlainWindow window;
    WatchingWnd wrapper;
    wrapper.Attach(window.Handle());
    wrapper.ModifyStyle(0, 0);
    EXPECT_TRUE(wrapper.m_Flags.empty());
    wrapper.ModifyStyle(0, WS_BORDER);
    wrapper.ModifyStyleEx(0, WS_EX_TOOLWINDOW);
    ASSERT_EQ(wrapper.m_Flags.size(), 2U);
    EXPECT_EQ(wrapper.m_Flags[0] & 0xFF, 55U);
    EXPECT_EQ(wrapper.m_Flags[1] & 0xFF, 55U);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndStyle, ChangesOnlyWhatIsDifferent) {
    const PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    EXPECT_EQ(wrapper.ModifyStyle(0, WS_BORDER), 1);
    EXPECT_EQ(wrapper.ModifyStyle(0, WS_BORDER), 0);
    EXPECT_NE(GetWindowLongPtrW(window.Handle(), GWL_STYLE) & WS_BORDER, 0);
    EXPECT_EQ(wrapper.ModifyStyle(WS_BORDER, 0), 1);
    EXPECT_EQ(wrapper.ModifyStyleEx(0, WS_EX_TOOLWINDOW), 1);
    EXPECT_EQ(wrapper.ModifyStyleEx(0, WS_EX_TOOLWINDOW), 0);
    EXPECT_EQ(wrapper.ModifyStyle(WS_CAPTION, WS_CAPTION), 1);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndFindDescendant, PrefersTheDeepestMatch) {
    const PlainWindow top;
    const PlainWindow child(WS_CHILD, top.Handle(), 7);
    EXPECT_EQ(tvWnd::FindDescendant(top.Handle(), 7), child.Handle());
    const PlainWindow deep(WS_CHILD, child.Handle(), 7);
    EXPECT_EQ(tvWnd::FindDescendant(top.Handle(), 7), deep.Handle());
    const PlainWindow pane(WS_CHILD, top.Handle(), 8);
    const PlainWindow inPane(WS_CHILD, pane.Handle(), 9);
    EXPECT_EQ(tvWnd::FindDescendant(top.Handle(), 9), inPane.Handle());
    EXPECT_EQ(tvWnd::FindDescendant(top.Handle(), 10), nullptr);
}

TEST(WndSend, IsZeroWithoutAWindow) {
    tvWnd wrapper;
    EXPECT_EQ(wrapper.Send(WM_GETTEXTLENGTH), 0);
}

TEST(SharedProc, IsZeroForNull) {
    EXPECT_EQ(tvWnd::SharedProc(nullptr, WM_CLOSE, 0, 0), 0);
}

TEST(SharedProc, HandsMessagesToTheWrapperAndOnToTheOldProcedure) {
    PlainWindow window;
    NotingWnd wrapper;
    wrapper.Attach(window.Handle());
    wrapper.m_Watched = WM_APP + 1;
    SendMessageW(window.Handle(), WM_APP + 1, 0, 0);
    EXPECT_EQ(wrapper.m_Seen, 1);
    EXPECT_EQ(window.Count(WM_APP + 1), 1);
    wrapper.m_Answers = true;
    wrapper.m_Answer = 42;
    EXPECT_EQ(SendMessageW(window.Handle(), WM_APP + 1, 0, 0), 42);
    EXPECT_EQ(window.Count(WM_APP + 1), 1);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(WndProc, HandsThePaintOfAFrameOnOnlyWhereThereIsOne) {
    constexpr WPARAM kAll = 1;
    PlainWindow bare(WS_POPUP);
    PlainWindow framed(WS_POPUP | WS_BORDER);
    SetWindowPos(bare.Handle(), nullptr, 10, 10, 60, 50, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(framed.Handle(), nullptr, 10, 10, 60, 50, SWP_NOZORDER | SWP_NOACTIVATE);
    tvWnd ofBare;
    tvWnd ofFramed;
    ofBare.Attach(bare.Handle());
    ofFramed.Attach(framed.Handle());
    SendMessageW(bare.Handle(), WM_NCPAINT, kAll, 0);
    SendMessageW(framed.Handle(), WM_NCPAINT, kAll, 0);
    EXPECT_EQ(bare.Count(WM_NCPAINT), 0);
    EXPECT_EQ(framed.Count(WM_NCPAINT), 1);
    ofBare.Detach(tvWnd::Window::Keep);
    ofFramed.Detach(tvWnd::Window::Keep);
}

TEST(SharedProc, HandsAFontToDirectChildrenAndKeepsIt) {
    PlainWindow window;
    PlainWindow child(WS_CHILD, window.Handle(), 1);
    PlainWindow grandchild(WS_CHILD, child.Handle(), 1);
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    SendMessageW(window.Handle(), WM_SETFONT, 0x77, 1);
    EXPECT_EQ(reinterpret_cast<LRESULT>(wrapper.m_font), 0x77);
    EXPECT_TRUE(child.WaitFor(WM_SETFONT, 0x77));
    EXPECT_EQ(grandchild.Count(WM_SETFONT), 0);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(SharedProc, AsksTheApplicationForHelp) {
    PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    int asked = 0;
    TestApp::Get().m_onHelp = [&asked] { ++asked; };
    EXPECT_EQ(SendMessageW(window.Handle(), WM_HELP, 0, 0), 0);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(window.Count(WM_HELP), 0);
    wrapper.Detach(tvWnd::Window::Keep);
}

// The program's main window for the length of a test.
class MainFor {
public:
    explicit MainFor(tvWnd& wnd) { TestApp::Get().m_mainWnd = &wnd; }
    ~MainFor() { TestApp::Get().m_mainWnd = nullptr; }
    MainFor(const MainFor&) = delete;
    MainFor& operator=(const MainFor&) = delete;
};

TEST(SharedProc, EndsTheProgramWithItsMainWindowAlone) {
    tvWnd main;
    tvWnd other;
    const MainFor mainFor(main);
    MSG msg{};
    {
        const PlainWindow mainWindow;
        main.Attach(mainWindow.Handle());
        {
            const PlainWindow otherWindow;
            other.Attach(otherWindow.Handle());
        }
        EXPECT_FALSE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    }
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 0U);
}

class CreatedWindow : public testing::Test {
protected:
    CreatedWindow() {
        [[maybe_unused]] static const ATOM registered = [] {
            WNDCLASSW windowClass{};
            windowClass.lpfnWndProc = &tvWnd::SharedProc;
            windowClass.hInstance = GetModuleHandleW(nullptr);
            windowClass.lpszClassName = L"SharedProcTestWindow";
            return RegisterClassW(&windowClass);
        }();
    }
    static HWND Make() {
        return CreateWindowExW(0, L"SharedProcTestWindow", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    }
};

TEST_F(CreatedWindow, GoesToTheWrapperThatWaitsForOne) {
    tvWnd wrapper;
    tvWnd::SetCreating(&wrapper);
    const HWND made = Make();
    EXPECT_EQ(wrapper.Handle(), made);
    EXPECT_EQ(wrapper.m_oldProc, nullptr);
    const HWND next = Make();
    EXPECT_EQ(tvWnd::FromHandle(next), nullptr);
    DestroyWindow(next);
    DestroyWindow(made);
    EXPECT_FALSE(wrapper.IsAttached());
}

TEST_F(CreatedWindow, GoesToNoWrapperThatHasAWindow) {
    const PlainWindow before;
    tvWnd wrapper;
    wrapper.Attach(before.Handle());
    tvWnd::SetCreating(&wrapper);
    const HWND made = Make();
    EXPECT_EQ(tvWnd::FromHandle(made), nullptr);
    EXPECT_EQ(wrapper.Handle(), before.Handle());
    DestroyWindow(made);
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST_F(CreatedWindow, GoesToNoWrapperThatIsGone) {
    {
        tvWnd wrapper;
        tvWnd::SetCreating(&wrapper);
    }
    const HWND made = Make();
    EXPECT_EQ(tvWnd::FromHandle(made), nullptr);
    DestroyWindow(made);
}

}  // namespace
