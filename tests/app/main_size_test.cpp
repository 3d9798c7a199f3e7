// Place, size and division of the main window.
#include "shell/placement.h"
#include "tests/app/command_stage.h"

namespace {

RECT ClientOf(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return rect;
}

RECT PlaceIn(HWND parent, HWND child) {
    RECT rect{};
    GetWindowRect(child, &rect);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

class MainWindowSize : public CommandTest {
protected:
    // Drags the splitter with the mouse to an edge at this distance from the left.
    void DragTo(LONG left) {
        const HWND splitter = Main().m_splitter.Handle();
        const RECT place = PlaceIn(Window(), splitter);
        const int y = static_cast<int>(place.top + place.bottom) / 2;
        const int grip = static_cast<int>(place.right - place.left) / 2;
        SetForegroundWindow(Window());
        MoveMouse(Window(), static_cast<int>(place.left) + grip, y);
        const auto move = [=, this](LONG x) {
            return [=, this] {
                MoveMouse(Window(), static_cast<int>(x) + grip, y);
                return true;
            };
        };
        const DuringModal during({[=] { return GetCapture() == splitter; }, move((place.left + left) / 2),
                                  move(left),
                                  [] {
                                      Release();
                                      return true;
                                  }});
        Press();
        PumpUntil([&] { return during.Done(); });
        MoveMouseAway();
        Settle(Window());
    }

    [[nodiscard]] LONG SplitterLeft() const { return PlaceIn(Window(), Main().m_splitter.Handle()).left; }

    // The fraction that is kept in the settings.
    static float Kept() {
        float fraction = 0;
        EXPECT_TRUE(LoadStoreBytes(LoadStore::Load, u"SpPercent", &fraction, sizeof fraction));
        return fraction;
    }

    // Keeps a place and a fraction, as if an earlier run had done so.
    static void Keep(const ScreenRect& position, float fraction) {
        StorePlacement({position, false, fraction});
    }

    // The fraction of a first run.
    float FractionOfTemplate() {
        Open();
        const float fraction = Main().m_spPercent;
        Close();
        platform::DeleteUserTree(u"Software\\Tolvane");
        return fraction;
    }
};

constexpr ScreenRect kPlace{50, 60, 950, 760};

// --- The splitter ---

TEST_F(MainWindowSize, FollowsTheSplitterAndKeepsItsFraction) {
    OpenFile();
    const LONG width = ClientOf(Window()).right;
    const LONG left = SplitterLeft() + 20;
    DragTo(left);
    EXPECT_EQ(SplitterLeft(), left);
    EXPECT_FLOAT_EQ(Main().m_spPercent, static_cast<float>(left) / static_cast<float>(width));
    EXPECT_EQ(PlaceIn(Window(), Main().m_leftDlg.Handle()).right, left);
    EXPECT_EQ(PlaceIn(Window(), Main().m_rightDlg.Handle()).left,
              PlaceIn(Window(), Main().m_splitter.Handle()).right);
    const float fraction = Main().m_spPercent;
    Close();
    EXPECT_EQ(Kept(), fraction);
}

TEST_F(MainWindowSize, StopsTheSplitterAtTheLeastWidthOfEitherSide) {
    OpenFile();
    const LONG margin = Main().m_splitter.m_marginLeft;
    const LONG width = ClientOf(Window()).right;
    ASSERT_GT(margin, 0);
    DragTo(5);
    EXPECT_EQ(SplitterLeft(), margin);
    EXPECT_FLOAT_EQ(Main().m_spPercent, static_cast<float>(margin) / static_cast<float>(width));
    DragTo(width - 20);
    EXPECT_EQ(PlaceIn(Window(), Main().m_splitter.Handle()).right, width - margin);
    EXPECT_FLOAT_EQ(Main().m_spPercent, static_cast<float>(SplitterLeft()) / static_cast<float>(width));
}

TEST_F(MainWindowSize, TakesAFractionThatIsKept) {
    Keep(kPlace, 0.55F);
    Open();
    EXPECT_FLOAT_EQ(Main().m_spPercent, 0.55F);
    EXPECT_EQ(SplitterLeft(), static_cast<LONG>(static_cast<float>(ClientOf(Window()).right) * 0.55F));
}

TEST_F(MainWindowSize, DoesNotTakeAFractionThatCannotBe) {
    const float usual = FractionOfTemplate();
    ASSERT_GT(usual, 0.1F);
    for (const float wrong : {0.1F, 0.05F, 0.0F, -0.4F, 0.99F, 1.5F}) {
        Keep(kPlace, wrong);
        Open();
        EXPECT_FLOAT_EQ(Main().m_spPercent, usual) << wrong;
        Close();
    }
}

// What the splitter tells is posted, and may come when there is nothing to divide any more.
TEST_F(MainWindowSize, KeepsTheFractionWhileItIsMinimised) {
    Open();
    const float before = Main().m_spPercent;
    ShowWindow(Window(), SW_MINIMIZE);
    PumpQueue();
    SendMessageW(Window(), WM_TVBUTTON_SPLIT, WPARAM{2002},
                 reinterpret_cast<LPARAM>(Main().m_splitter.Handle()));
    EXPECT_EQ(Main().m_spPercent, before);
    ShowWindow(Window(), SW_RESTORE);
    Settle(Window());
    EXPECT_EQ(SplitterLeft(), static_cast<LONG>(static_cast<float>(ClientOf(Window()).right) * before));
}

// --- The frame ---

TEST_F(MainWindowSize, ComesBackToTheKeptPlace) {
    Keep(kPlace, 0.5F);
    Open();
    const RECT place = PlaceIn(nullptr, Window());
    EXPECT_EQ(place.left, kPlace.left);
    EXPECT_EQ(place.top, kPlace.top);
    EXPECT_EQ(place.right, kPlace.right);
    EXPECT_EQ(place.bottom, kPlace.bottom);
}

TEST_F(MainWindowSize, IsNeverSmallerThanItsTemplateWhateverIsKept) {
    Keep({100, 100, 200, 180}, 0.5F);
    Open();
    const RECT place = PlaceIn(nullptr, Window());
    EXPECT_GT(Main().m_minWidth, 100);
    EXPECT_GT(Main().m_minHeight, 80);
    EXPECT_EQ(place.right - place.left, Main().m_minWidth);
    EXPECT_EQ(place.bottom - place.top, Main().m_minHeight);
}

TEST_F(MainWindowSize, CannotBeMadeSmaller) {
    Open();
    SetWindowPos(Window(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    const RECT place = PlaceIn(nullptr, Window());
    EXPECT_EQ(place.right - place.left, Main().m_minWidth);
    EXPECT_EQ(place.bottom - place.top, Main().m_minHeight);
}

TEST_F(MainWindowSize, HasASizingGripOfTenPixelsInItsCorner) {
    Open();
    const RECT client = ClientOf(Window());
    const auto hit = [&](LONG fromRight, LONG fromBottom) {
        POINT point{client.right - fromRight, client.bottom - fromBottom};
        ClientToScreen(Window(), &point);
        return SendMessageW(Window(), WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
    };
    EXPECT_EQ(hit(1, 1), HTBOTTOMRIGHT);
    EXPECT_EQ(hit(10, 10), HTBOTTOMRIGHT);
    EXPECT_EQ(hit(1, 10), HTBOTTOMRIGHT);
    EXPECT_EQ(hit(11, 5), HTCLIENT);
    EXPECT_EQ(hit(5, 11), HTCLIENT);
    EXPECT_NE(hit(0, 0), HTCLIENT);
}

}  // namespace
