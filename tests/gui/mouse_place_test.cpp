#include "toolkit/mouse_place.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>

#include "tests/gui/button_stage.h"
#include "tests/gui/harness.h"

namespace {

TEST(MousePlace, IsWhereTheSystemSays) {
    SetCursorPos(123, 145);
    MousePlace place;
    POINT mouse{};
    ASSERT_TRUE(place.Get(mouse));
    EXPECT_EQ(mouse.x, 123);
    EXPECT_EQ(mouse.y, 145);
    MoveMouseAway();
}

TEST(MousePlace, IsAskedForAnewOnceItIsForgotten) {
    SetCursorPos(123, 145);
    MousePlace place;
    POINT mouse{};
    ASSERT_TRUE(place.Get(mouse));
    SetCursorPos(50, 60);
    place.Forget();
    ASSERT_TRUE(place.Get(mouse));
    EXPECT_EQ(mouse.x, 50);
    EXPECT_EQ(mouse.y, 60);
    MoveMouseAway();
}

TEST(MousePlace, IsAskedForAnewAfterAMoment) {
    SetCursorPos(123, 145);
    MousePlace place;
    POINT mouse{};
    ASSERT_TRUE(place.Get(mouse));
    SetCursorPos(50, 60);
    EXPECT_TRUE(PumpUntil([&] { return place.Get(mouse) && mouse.x == 50 && mouse.y == 60; }));
    MoveMouseAway();
}

// Whether an answer is kept can only be seen within the moment for which it is: what took longer, on a busy
// machine, is tried again.
bool WithinTheMoment(const std::function<void()>& steps) {
    LARGE_INTEGER perSecond{};
    LARGE_INTEGER start{};
    LARGE_INTEGER end{};
    QueryPerformanceFrequency(&perSecond);
    QueryPerformanceCounter(&start);
    steps();
    QueryPerformanceCounter(&end);
    return (end.QuadPart - start.QuadPart) * 1000 < perSecond.QuadPart * MousePlace::kKeptMilliseconds;
}

TEST(MousePlace, IsKeptForAMoment) {
    MousePlace place;
    POINT before{};
    POINT after{};
    const auto ask = [&] {
        place.Get(before);
        SetCursorPos(50, 60);
        place.Get(after);
    };
    const auto isTriedInTime = [&] {
        SetCursorPos(123, 145);
        place.Forget();
        return WithinTheMoment(ask);
    };
    ASSERT_TRUE(PumpUntil(isTriedInTime));
    EXPECT_EQ(before.x, 123);
    EXPECT_EQ(after.x, 123);
    EXPECT_EQ(after.y, 145);
    MoveMouseAway();
}

// Any window with a wrapper, whatever comes of the message.
TEST(MousePlace, IsForgottenWhenAWindowIsToldOfTheMouse) {
    const Stage<tvButton> stage;
    POINT unheard{};
    POINT told{};
    const auto ask = [&] {
        TheMousePlace().Get(unheard);
        SetCursorPos(50, 60);
        SendMessageW(stage.dialog.Handle(), WM_NULL, 0, 0);
        TheMousePlace().Get(unheard);
        SendMessageW(stage.dialog.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
        TheMousePlace().Get(told);
    };
    const auto isTriedInTime = [&] {
        SetCursorPos(123, 145);
        TheMousePlace().Forget();
        return WithinTheMoment(ask);
    };
    ASSERT_TRUE(PumpUntil(isTriedInTime));
    EXPECT_EQ(unheard.x, 123) << "other messages say nothing of the mouse";
    EXPECT_EQ(told.x, 50);
    EXPECT_EQ(told.y, 60);
    MoveMouseAway();
}

TEST(MousePlace, IsForgottenOnMessagesOfTheMouse) {
    for (const UINT message :
         std::initializer_list<UINT>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_RBUTTONUP, WM_MOUSEWHEEL, WM_MOUSELEAVE,
                                     WM_NCMOUSEMOVE, WM_NCLBUTTONDOWN, WM_NCMOUSELEAVE}) {
        MousePlace place;
        POINT mouse{};
        SetCursorPos(123, 145);
        ASSERT_TRUE(place.Get(mouse));
        SetCursorPos(50, 60);
        place.ForgetOn(message);
        ASSERT_TRUE(place.Get(mouse));
        EXPECT_EQ(mouse.x, 50) << message;
    }
    MoveMouseAway();
}

// What is known of a capture outlives messages of painting alone, and the moment not at all.
TEST(MousePlace, CaptureIsKeptForAMomentWhileWindowsArePainted) {
    const Stage<tvButton> stage;
    const HWND window = stage.Window();
    HWND kept = nullptr;
    const auto isTriedInTime = [&] {
        TheMousePlace().Forget();
        const bool inTime = WithinTheMoment([&] {
            TheMousePlace().Captured();
            SetCapture(window);
            for (const UINT message :
                 std::initializer_list<UINT>{WM_PAINT, WM_NCPAINT, WM_ERASEBKGND, WM_DRAWITEM, WM_CTLCOLORBTN,
                                             BM_GETSTATE, WM_QUERYUISTATE, WM_GETFONT})
                TheMousePlace().ForgetOn(message);
            kept = TheMousePlace().Captured();
        });
        ReleaseCapture();
        return inTime;
    };
    ASSERT_TRUE(PumpUntil(isTriedInTime));
    EXPECT_EQ(kept, nullptr);
    SetCapture(window);
    EXPECT_TRUE(PumpUntil([&] { return TheMousePlace().Captured() == window; }));
    ReleaseCapture();
}

TEST(MousePlace, CaptureIsAskedForAnewAfterMessagesThatMayChangeIt) {
    const Stage<tvButton> stage;
    const HWND window = stage.Window();
    for (const UINT message : std::initializer_list<UINT>{WM_CAPTURECHANGED, WM_SETFOCUS, WM_COMMAND,
                                                          WM_LBUTTONDOWN, WM_KEYDOWN}) {
        MousePlace place;
        ASSERT_EQ(place.Captured(), nullptr);
        SetCapture(window);
        place.ForgetOn(message);
        EXPECT_EQ(place.Captured(), window) << message;
        ReleaseCapture();
    }
}

TEST(MousePlace, AssumedCaptureCountsUntilItIsTakenBack) {
    const Stage<tvButton> stage;
    const HWND window = stage.Window();
    TheMousePlace().AssumeCaptured(window);
    TheMousePlace().Forget();
    EXPECT_TRUE(IsUnderMouse(window));
    EXPECT_FALSE(IsUnderMouse(GetParent(window)));
    EXPECT_EQ(GetCapture(), nullptr);
    TheMousePlace().AssumeCaptured(nullptr);
    EXPECT_FALSE(IsUnderMouse(window));
}

TEST(MousePlace, WindowIsUnderTheMouseOnlyWhereTheMouseIs) {
    const Stage<tvButton> stage;
    const HWND window = stage.Window();
    MoveMouseTo(window);
    TheMousePlace().Forget();
    EXPECT_TRUE(IsUnderMouse(window));
    EXPECT_FALSE(IsUnderMouse(GetParent(window)));
    MoveMouseAway();
    TheMousePlace().Forget();
    EXPECT_FALSE(IsUnderMouse(window));
}

TEST(MousePlace, WindowThatHasCapturedTheMouseIsUnderItWhereverThatIs) {
    const Stage<tvButton> stage;
    const HWND window = stage.Window();
    MoveMouseAway();
    SetCapture(window);
    TheMousePlace().Forget();
    EXPECT_TRUE(IsUnderMouse(window));
    EXPECT_FALSE(IsUnderMouse(GetParent(window)));
    ReleaseCapture();
    EXPECT_FALSE(IsUnderMouse(window));
}

}  // namespace
