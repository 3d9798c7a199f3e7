// What controls send to their parents, handed to the controls' own wrappers.
#include <gtest/gtest.h>

#include "tests/gui/plain_window.h"
#include "toolkit/wnd.h"

namespace {

constexpr int kId = 7;

// A parent and a control in it, both wrapped. The parent notes what reaches it.
class ParentWnd : public tvWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == m_Watched) {
            ++m_Seen;
            m_SeenByControlBefore = *m_ControlCalls;
            return m_Answer;
        }
        return tvWnd::WindowProc(message, wParam, lParam);
    }
    UINT m_Watched = WM_NULL;
    int m_Seen = 0;
    LRESULT m_Answer = 0;
    const int* m_ControlCalls = nullptr;
    int m_SeenByControlBefore = -1;
};

class ControlWnd : public tvWnd {
public:
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override {
        ++m_Calls;
        if (!m_Handles) tvWnd::OnReflectDrawItem(item);
    }
    void OnReflectMeasureItem(MEASUREITEMSTRUCT* item) override {
        ++m_Calls;
        if (!m_Handles) tvWnd::OnReflectMeasureItem(item);
    }
    int OnReflectCompareItem(COMPAREITEMSTRUCT* item) override {
        ++m_Calls;
        return m_Handles ? 1 : tvWnd::OnReflectCompareItem(item);
    }
    bool OnReflectNotify(NMHDR* header, LRESULT* result) override {
        ++m_Calls;
        if (!m_Handles) return tvWnd::OnReflectNotify(header, result);
        *result = 5;
        return true;
    }
    bool OnReflectCommand(u16 code) override {
        ++m_Calls;
        m_Code = code;
        return m_Handles;
    }
    void OnReflectCtlColor(HDC, LRESULT* result) override {
        ++m_Calls;
        m_ColorBefore = *result;
        if (m_Handles) *result = 9;
    }
    int m_Calls = 0;
    bool m_Handles = true;
    u16 m_Code = 0;
    LRESULT m_ColorBefore = 0;
};

class Reflection : public testing::TestWithParam<UINT> {
protected:
    Reflection() {
        m_Parent.Attach(m_ParentWindow.Handle());
        m_Control.Attach(m_ControlWindow.Handle());
        m_Parent.m_ControlCalls = &m_Control.m_Calls;
    }
    ~Reflection() override {
        m_Control.Detach(tvWnd::Window::Keep);
        m_Parent.Detach(tvWnd::Window::Keep);
    }
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) {
        m_Parent.m_Watched = message;
        return SendMessageW(m_ParentWindow.Handle(), message, wParam, lParam);
    }
    LRESULT SendDrawItem(UINT type = ODT_BUTTON) {
        DRAWITEMSTRUCT item{};
        item.CtlType = type;
        item.hwndItem = m_ControlWindow.Handle();
        return Send(WM_DRAWITEM, kId, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SendMeasureItem(UINT id, UINT type = ODT_LISTBOX) {
        MEASUREITEMSTRUCT item{};
        item.CtlType = type;
        item.CtlID = id;
        return Send(WM_MEASUREITEM, id, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SendCompareItem(ULONG_PTR first, ULONG_PTR second) {
        COMPAREITEMSTRUCT item{};
        item.CtlType = ODT_LISTBOX;
        item.hwndItem = m_ControlWindow.Handle();
        item.itemData1 = first;
        item.itemData2 = second;
        return Send(WM_COMPAREITEM, kId, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SendNotify(UINT_PTR id) {
        NMHDR header{m_ControlWindow.Handle(), id, NM_CLICK};
        return Send(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
    }
    LRESULT SendCommand(int id, int code) {
        return Send(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(m_ControlWindow.Handle()));
    }

    PlainWindow m_ParentWindow;
    PlainWindow m_ControlWindow{WS_CHILD, m_ParentWindow.Handle(), kId};
    ParentWnd m_Parent;
    ControlWnd m_Control;
};

TEST_F(Reflection, OfAnItemThatIsDrawnEndsTheMessageWithOne) {
    EXPECT_EQ(SendDrawItem(), 1);
    EXPECT_EQ(m_Control.m_Calls, 1);
    EXPECT_EQ(m_Parent.m_Seen, 0);
}

TEST_F(Reflection, OfAnItemThatTheControlDoesNotDrawReachesTheParentAfterIt) {
    m_Control.m_Handles = false;
    m_Parent.m_Answer = 3;
    EXPECT_EQ(SendDrawItem(), 3);
    EXPECT_EQ(m_Parent.m_Seen, 1);
    EXPECT_EQ(m_Parent.m_SeenByControlBefore, 1);
    EXPECT_EQ(m_Control.m_drawItemUnhandled, 1);
}

TEST_F(Reflection, ClearsTheFlagOfAnEarlierItem) {
    m_Control.m_Handles = false;
    SendDrawItem();
    m_Control.m_Handles = true;
    EXPECT_EQ(SendDrawItem(), 1);
    EXPECT_EQ(m_Parent.m_Seen, 1);
}

TEST_F(Reflection, LeavesMenuItemsToTheParent) {
    SendDrawItem(ODT_MENU);
    SendMeasureItem(kId, ODT_MENU);
    EXPECT_EQ(m_Control.m_Calls, 0);
    EXPECT_EQ(m_Parent.m_Seen, 2);
}

TEST_F(Reflection, OfAMeasureFindsTheControlByItsId) {
    EXPECT_EQ(SendMeasureItem(kId), 1);
    EXPECT_EQ(m_Control.m_Calls, 1);
    EXPECT_EQ(m_Parent.m_Seen, 0);
    SendMeasureItem(0);
    SendMeasureItem(kId + 1);
    EXPECT_EQ(m_Control.m_Calls, 1);
    EXPECT_EQ(m_Parent.m_Seen, 2);
    m_Control.m_Handles = false;
    SendMeasureItem(kId);
    EXPECT_EQ(m_Parent.m_Seen, 3);
}

TEST_F(Reflection, OfAComparisonGivesItsResult) {
    EXPECT_EQ(SendCompareItem(1, 2), 1);
    EXPECT_EQ(m_Parent.m_Seen, 0);
    m_Control.m_Handles = false;
    m_Parent.m_Answer = -7;
    EXPECT_EQ(SendCompareItem(1, 2), -7);
}

TEST_F(Reflection, ComparesItemsAsUnsignedNumbersByDefault) {
    COMPAREITEMSTRUCT item{};
    const auto compare = [&](ULONG_PTR first, ULONG_PTR second) {
        item.itemData1 = first;
        item.itemData2 = second;
        tvWnd wrapper;
        return wrapper.OnReflectCompareItem(&item);
    };
    EXPECT_EQ(compare(1, 2), -1);
    EXPECT_EQ(compare(2, 2), 0);
    EXPECT_EQ(compare(~ULONG_PTR{0}, 1), 1);
}

TEST_F(Reflection, OfANotificationEndsItOnTrueWithTheControlsResult) {
    EXPECT_EQ(SendNotify(kId), 5);
    EXPECT_EQ(m_Parent.m_Seen, 0);
    SendNotify(0);
    EXPECT_EQ(m_Control.m_Calls, 1);
    EXPECT_EQ(m_Parent.m_Seen, 1);
    m_Control.m_Handles = false;
    SendNotify(kId);
    EXPECT_EQ(m_Parent.m_Seen, 2);
}

TEST_F(Reflection, OfACommandHandsOverItsCode) {
    SendCommand(kId, 300);
    EXPECT_EQ(m_Control.m_Code, 300);
    EXPECT_EQ(m_Parent.m_Seen, 0);
    m_Control.m_Handles = false;
    SendCommand(kId, 1);
    EXPECT_EQ(m_Parent.m_Seen, 1);
    SendCommand(0, 1);
    EXPECT_EQ(m_Control.m_Calls, 2);
}

TEST_F(Reflection, OfColoursComesAfterTheParent) {
    m_Parent.m_Answer = 4;
    for (const UINT message :
         {WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC}) {
        EXPECT_EQ(Send(message, 0, reinterpret_cast<LPARAM>(m_ControlWindow.Handle())), 9);
        EXPECT_EQ(m_Control.m_ColorBefore, 4);
    }
    EXPECT_EQ(m_Control.m_Calls, 5);
    EXPECT_EQ(Send(WM_CTLCOLORDLG, 0, reinterpret_cast<LPARAM>(m_ControlWindow.Handle())), 4);
    EXPECT_EQ(m_Control.m_Calls, 5);
}

TEST_F(Reflection, KeepsTheParentsColoursUnlessTheControlReplacesThem) {
    m_Control.m_Handles = false;
    m_Parent.m_Answer = 4;
    EXPECT_EQ(Send(WM_CTLCOLOREDIT, 0, reinterpret_cast<LPARAM>(m_ControlWindow.Handle())), 4);
}

}  // namespace
