#include "toolkit/tool_tip.h"

#include "tests/gui/tool_tip_harness.h"
#include "toolkit/app.h"
#include "toolkit/button.h"

namespace {

DWORD StyleOf(const tvWnd& window, int which) {
    return static_cast<DWORD>(GetWindowLongPtrW(window.Handle(), which));
}

// How many windows of tool tips the thread has.
int TipWindows() {
    int count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM lParam) -> BOOL {
            wchar_t name[32] = {};
            GetClassNameW(window, name, 32);
            *reinterpret_cast<int*>(lParam) += lstrcmpW(name, TOOLTIPS_CLASSW) == 0 ? 1 : 0;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace

// --- The window ---

TEST_F(ToolTipTest, HasNoWindowUntilItIsCreated) {
    const tvToolTipCtrl tip;
    EXPECT_FALSE(tip.IsAttached());
}

TEST_F(ToolTipTest, IsATopmostTransparentPopupInTheThemesFont) {
    tvToolTipCtrl tip;
    tip.Create(m_Dialog.Handle(), TTS_ALWAYSTIP);
    wchar_t name[32] = {};
    GetClassNameW(tip.Handle(), name, 32);
    EXPECT_STREQ(name, L"tooltips_class32");
    EXPECT_EQ(StyleOf(tip, GWL_STYLE) & (WS_POPUP | WS_CHILD | TTS_ALWAYSTIP), WS_POPUP | TTS_ALWAYSTIP);
    EXPECT_EQ(StyleOf(tip, GWL_EXSTYLE) & (WS_EX_TRANSPARENT | WS_EX_TOPMOST),
              DWORD{WS_EX_TRANSPARENT | WS_EX_TOPMOST});
    EXPECT_EQ(GetWindow(tip.Handle(), GW_OWNER), m_Dialog.Handle());
    // The control may keep a copy.
    LOGFONTW font{};
    LOGFONTW themes{};
    GetObjectW(tip.m_font, sizeof font, &font);
    GetObjectW(TheTheme().Font(), sizeof themes, &themes);
    EXPECT_EQ(font.lfHeight, themes.lfHeight);
    EXPECT_STREQ(font.lfFaceName, themes.lfFaceName);
    EXPECT_EQ(tvWnd::FromHandle(tip.Handle()), &tip);
}

TEST_F(ToolTipTest, KeepsItsWindowWhenItIsCreatedAgain) {
    const int before = TipWindows();
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    const HWND window = tip.Handle();
    tip.Create(m_Dialog.Handle(), TTS_BALLOON);
    EXPECT_EQ(tip.Handle(), window);
    EXPECT_EQ(TipWindows(), before + 1);
    EXPECT_EQ(StyleOf(tip, GWL_STYLE) & TTS_BALLOON, 0U);
}

TEST_F(ToolTipTest, TheOneTipIsMadeWithTheFirstTool) {
    AddToolTip(m_First, u"First");
    ASSERT_TRUE(TheToolTip().IsAttached());
    EXPECT_EQ(GetWindow(TheToolTip().Handle(), GW_OWNER), nullptr);
    EXPECT_EQ(TipText(TheToolTip(), m_First), u"First");
    const HWND window = TheToolTip().Handle();
    AddToolTip(m_Second, u"Second");
    EXPECT_EQ(TheToolTip().Handle(), window);
    EXPECT_EQ(TipText(TheToolTip(), m_Second), u"Second");
}

TEST_F(ToolTipTest, LetsTheMouseThrough) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    for (const char16_t* theme : {u"Dark", u"System Default"}) {
        UseTheme(theme);
        EXPECT_EQ(tip.Send(WM_NCHITTEST), HTTRANSPARENT);
    }
}

TEST_F(ToolTipTest, ErasesUnderSystemDefaultOnlyWithoutAContext) {
    TipUnderTest tip;
    tip.Create(nullptr, 0);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ bitmap = CreateCompatibleBitmap(dc, 4, 4);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    UseTheme(u"System Default");
    SetPixel(dc, 1, 1, RGB(0, 0, 0));
    EXPECT_EQ(tip.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc)), 1);
    EXPECT_EQ(GetPixel(dc, 1, 1), RGB(0, 0, 0)) << "nothing is erased";
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

// --- Tools ---

TEST_F(ToolTipTest, TakesMenuTextsAndKeepsTheirDots) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    tip.AddTool(m_First, u"Move &Up\tCtrl+Up");
    tip.AddTool(m_Second, u"Save &As...");
    EXPECT_EQ(TipText(tip, m_First), u"Move Up");
    EXPECT_EQ(TipText(tip, m_Second), u"Save As...");
}

TEST_F(ToolTipTest, CutsATextThatIsTooLong) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    tip.AddTool(m_First, tvstring(1023, u'x'));
    tip.AddTool(m_Second, tvstring(3000, u'x'));
    EXPECT_EQ(TipText(tip, m_First).size(), 1023U);
    EXPECT_EQ(TipText(tip, m_Second).size(), 1023U);
}

TEST_F(ToolTipTest, ForgetsAToolThatIsRemoved) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    tip.AddTool(m_First, u"First");
    tip.AddTool(m_Second, u"Second");
    EXPECT_EQ(TipCount(tip), 2);
    tip.RemoveTool(m_First);
    EXPECT_EQ(TipCount(tip), 1);
    EXPECT_EQ(TipText(tip, m_First), u"(none)");
    EXPECT_EQ(TipText(tip, m_Second), u"Second");
    tip.RemoveTool(m_First);
    EXPECT_EQ(TipCount(tip), 1);
}

TEST_F(ToolTipTest, WithoutAWindowTakesAndForgetsNothing) {
    tvToolTipCtrl tip;
    tip.AddTool(m_First, u"First");
    tip.AddCallbackTool(m_First);
    tip.AddTrackingTool(m_First);
    tip.RemoveTool(m_First);
    tip.Track(m_First, true, 0, 0);
    MSG msg{m_First, WM_MOUSEMOVE, 0, 0, 0, {}};
    tip.Relay(&msg);
    EXPECT_FALSE(tip.IsAttached());
}

TEST_F(ToolTipTest, ButtonHasOneTipHoweverOftenItIsSet) {
    TestDialog dialog;
    dialog.Add(ATOM_BUTTON, 60, 10, 10, 60, 14);
    tvButton button;
    dialog.Wrap(button, 60);
    dialog.Open();
    AddToolTip(m_First, u"Another's");
    const int others = TipCount(TheToolTip());
    button.SetTip(u"One");
    EXPECT_EQ(TipCount(TheToolTip()), others + 1);
    button.SetTip(u"Two");
    EXPECT_EQ(TipCount(TheToolTip()), others + 1);
    EXPECT_EQ(TipText(TheToolTip(), button.Handle()), u"Two");
    button.SetTip(nullptr);
    EXPECT_EQ(TipCount(TheToolTip()), others);
}

// --- Messages that are handed on ---

TEST_F(ToolTipTest, SeesMessagesOfTheMouseAndNoOthers) {
    TipUnderTest tip;
    tip.Create(nullptr, 0);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MOUSEMOVE,
                               WM_NCMOUSEMOVE, WM_RBUTTONDOWN, WM_RBUTTONUP}) {
        tip.m_messages.clear();
        MSG msg{m_First, message, 0, 0, 0, {}};
        tip.Relay(&msg);
        EXPECT_EQ(tip.Count(TTM_RELAYEVENT), 1) << message;
    }
    for (const UINT message :
         {WM_KEYDOWN, WM_MOUSEWHEEL, WM_PAINT, WM_TIMER, WM_LBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_MOUSELEAVE}) {
        tip.m_messages.clear();
        MSG msg{m_First, message, 0, 0, 0, {}};
        tip.Relay(&msg);
        EXPECT_EQ(tip.Count(TTM_RELAYEVENT), 0) << message;
    }
}

TEST_F(ToolTipTest, DoesNotSeeItsOwnMessages) {
    TipUnderTest tip;
    tip.Create(nullptr, 0);
    MSG msg{tip.Handle(), WM_MOUSEMOVE, 0, 0, 0, {}};
    tip.Relay(&msg);
    EXPECT_EQ(tip.Count(TTM_RELAYEVENT), 0);
}

TEST_F(ToolTipTest, ShowsWhenTheMouseRestsAndGoesWithAClick) {
    AddToolTip(m_First, u"First");
    ASSERT_TRUE(HoverShowsTip(m_First));
    Click(m_First);
    EXPECT_TRUE(PumpUntil([] { return !IsUp(TheToolTip()); }));
}

TEST_F(ToolTipTest, GoesWhenTheMouseGoes) {
    AddToolTip(m_First, u"First");
    ASSERT_TRUE(HoverShowsTip(m_First));
    MoveMouse(m_Dialog.Handle(), 5, 5);
    EXPECT_TRUE(PumpUntil([] { return !IsUp(TheToolTip()); }));
}

TEST_F(ToolTipTest, DoesNotShowForAWindowThatIsRemoved) {
    AddToolTip(m_First, u"First");
    RemoveToolTip(m_First);
    TheToolTip().Send(TTM_SETDELAYTIME, TTDT_INITIAL, kShortDelay);
    MoveMouseAway();
    MoveMouseTo(m_First);
    EXPECT_FALSE(PumpUntil([] { return IsUp(TheToolTip()); }, 400));
}

// --- Tips under the program's control ---

namespace {

// Answers the question for a text.
void AnswerWith(TestDialog& dialog, const wchar_t* text, int& asked) {
    dialog.m_onMessage = [text, &asked](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message != WM_NOTIFY) return false;
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
        if (info->hdr.code != TTN_GETDISPINFOW) return false;
        ++asked;
        info->lpszText = const_cast<wchar_t*>(text);
        return true;
    };
}

}  // namespace

TEST_F(ToolTipTest, AsksTheWindowForTheTextOfACallbackTool) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    tip.AddCallbackTool(m_First);
    EXPECT_EQ(TipText(tip, m_First), u"(asked for)");
}

TEST_F(ToolTipTest, TrackedTipIsShownAndHiddenOnDemand) {
    int asked = 0;
    AnswerWith(m_Dialog, L"Tracked", asked);
    tvToolTipCtrl tip;
    tip.Create(m_Dialog.Handle(), 0);
    tip.AddTrackingTool(m_Dialog.Handle());
    EXPECT_FALSE(IsUp(tip));
    tip.Track(m_Dialog.Handle(), true, 300, 200);
    EXPECT_TRUE(IsUp(tip));
    EXPECT_GT(asked, 0);
    RECT rect;
    GetWindowRect(tip.Handle(), &rect);
    EXPECT_NEAR(rect.left, 300, 8);
    EXPECT_NEAR(rect.top, 200, 8);
    tip.Track(m_Dialog.Handle(), true, 340, 250);
    GetWindowRect(tip.Handle(), &rect);
    EXPECT_NEAR(rect.left, 340, 8);
    EXPECT_NEAR(rect.top, 250, 8);
    tip.Track(m_Dialog.Handle(), false, 0, 0);
    EXPECT_FALSE(IsUp(tip));
}

TEST_F(ToolTipTest, TrackedTipTakesNoNoteOfTheMouse) {
    int asked = 0;
    AnswerWith(m_Dialog, L"Tracked", asked);
    tvToolTipCtrl tip;
    tip.Create(m_Dialog.Handle(), 0);
    tip.Send(TTM_SETDELAYTIME, TTDT_INITIAL, kShortDelay);
    tip.AddTrackingTool(m_Dialog.Handle());
    MSG msg{m_Dialog.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(20, 20), GetTickCount(), {}};
    tip.Relay(&msg);
    EXPECT_FALSE(PumpUntil([&] { return IsUp(tip); }, 400));
}

TEST_F(ToolTipTest, HasRoomForATextOfTheSizeItIsGiven) {
    tvToolTipCtrl tip;
    tip.Create(nullptr, 0);
    tip.SetSize(m_First, 123, 45);
    RECT expected = {0, 0, 123, 45};
    tip.Send(TTM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&expected));
    RECT rect;
    GetWindowRect(tip.Handle(), &rect);
    EXPECT_EQ(rect.right - rect.left, expected.right - expected.left);
    EXPECT_EQ(rect.bottom - rect.top, expected.bottom - expected.top);
    EXPECT_GE(rect.right - rect.left, 123);
}
