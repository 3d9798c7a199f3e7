// What the tests of edit boxes, combo boxes and spin controls share: a dialog with an edit control that has
// the keyboard at first, and the control under test.
#pragma once

#include "tests/gui/button_stage.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"

inline constexpr u16 kOther = 10;  // has the keyboard at first
inline constexpr u16 kInput = 30;

// A dialog with one control of a class, wrapped. `prepare` may change the wrapper before it gets its window.
template <typename Wrapper, u16 Atom>
class InputStage {
public:
    explicit InputStage(std::u16string_view theme = kLight, u32 styles = 0)
        : InputStage(theme, styles, [](Wrapper&) {}) {}

    template <typename Prepare>
    InputStage(std::u16string_view theme, u32 styles, Prepare prepare) {
        UseTheme(theme);
        MoveMouseAway();
        prepare(input);
        dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        dialog.Add(Atom, kInput, 20, 40, 100, 14, styles);
        dialog.Wrap(input, kInput);
        dialog.Open();
        PumpQueue();
        Settle(dialog.Handle());
    }

    [[nodiscard]] HWND Window() const { return input.Handle(); }
    [[nodiscard]] Picture Look() const {
        Settle(dialog.Handle());
        return Picture(input.Handle());
    }
    [[nodiscard]] HWND Outer() const { return OuterOf(dialog.Handle(), input.Handle()); }
    // The control with its frame.
    [[nodiscard]] COLORREF PixelOfWindow(int x, int y) const {
        Settle(dialog.Handle());
        const RECT place = PlaceIn(dialog.Handle(), Outer());
        return PixelAt(dialog.Handle(), place.left + x, place.top + y);
    }

    KeepTheme keep;
    Wrapper input;
    TestDialog dialog;
};

inline RECT WindowRectOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

// Pixels of a picture that have another colour than this one.
inline int CountOthers(const Picture& picture, COLORREF color) {
    return picture.Width() * picture.Height() - picture.Count(color);
}
