// Where the main window stands, as it is kept between runs, and the arithmetic of putting it there. Pure
// numbers: the window itself comes with the operations that call these.
#pragma once

#include "shell/load_store.h"

// A rectangle on the screen in pixels, right and bottom exclusive. What the store holds may be any numbers,
// so sizes wrap around.
struct ScreenRect {
    i32 left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] i32 Width() const noexcept { return Distance(left, right); }
    [[nodiscard]] i32 Height() const noexcept { return Distance(top, bottom); }
    [[nodiscard]] bool IsEmpty() const noexcept { return right <= left || bottom <= top; }
    bool operator==(const ScreenRect&) const = default;

private:
    static i32 Distance(i32 from, i32 to) noexcept {
        return static_cast<i32>(static_cast<u32>(to) - static_cast<u32>(from));
    }
};

struct ScreenSize {
    i32 width = 0, height = 0;
    bool operator==(const ScreenSize&) const = default;
};

// What is stored of the main window.
struct StoredPlacement {
    ScreenRect position;     // restored position; empty if none is stored
    bool maximised = false;  // read only with a position
    float spPercent = 0;     // the splitter's fraction; as it was unless a good one is stored with a position
};

void LoadPlacement(StoredPlacement& placement);
// Nothing is written if the store cannot be opened.
void StorePlacement(const StoredPlacement& placement);

// True for a fraction that may be taken: above 0.1 and below 0.99, which are numbers of single precision too,
// so that neither of them may be taken itself.
bool IsSplitterFraction(float fraction) noexcept;

// The rectangle of the first run: two thirds of the work area's width at the window's own proportions, in the
// middle; but the present rectangle where the window is not smaller than that both ways.
ScreenRect FirstRunRect(const ScreenRect& workArea, const ScreenRect& present);

// Moves a rectangle, keeping its size, into the work area; one that is larger than that stands at its top and
// left.
ScreenRect IntoWorkArea(ScreenRect rect, const ScreenRect& workArea);

// Shifts right and down by the same number, so that one window does not cover another.
ScreenRect Shifted(ScreenRect rect, i32 distance);

// The size of a resizable dialog. Load gives the larger of the present and the stored one, each way; both
// give false, with `size` as it was, where nothing is to be done: no stored value, or a size below 1.
bool LoadStoreInputDlgSize(LoadStore direction, ScreenSize& size);
