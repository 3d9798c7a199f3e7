#include "toolkit/mouse_place.h"

#include <gtest/gtest.h>

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
    EXPECT_TRUE(IsUnderMouse(window));
    EXPECT_FALSE(IsUnderMouse(GetParent(window)));
    ReleaseCapture();
    EXPECT_FALSE(IsUnderMouse(window));
}

}  // namespace
