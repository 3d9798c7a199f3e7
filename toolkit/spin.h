// tvSpinCtrl, the two small buttons beside an edit box for numbers, in the colours of the theme. Under System
// Default the system paints them.
#pragma once

#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

class tvSpinCtrl : public tvWnd, public tvtheme_control {
public:
    tvSpinCtrl() = default;
    ~tvSpinCtrl() override;

    // Makes the window as a child, without a size or place of its own, and wraps it. False if that fails or
    // there is a window already.
    bool Create(HWND parent, int id, DWORD style);

    // --- Virtual operations after those of tvWnd, in slot order ---

    // One of the two buttons: the second one is below or, `horizontal`, at the right.
    virtual void DrawPart(HDC dc, const RECT& rect, bool second, bool pushed, bool horizontal);

    // The ground of one that stands by itself.
    virtual void DrawBack(HDC dc, const RECT& rect);

    // The ground of one that is joined to its edit box, at the left of it or at the right.
    virtual void DrawBuddyEdge(HDC dc, const RECT& rect, bool left);

    // Takes the size that goes with the font. With a buddy and UDS_ALIGNLEFT or UDS_ALIGNRIGHT it is laid
    // against that, and the buddy's frame is cut off where they touch; at the left the buddy is moved to make
    // room. Runs when the font is set; call it whenever the buddy was set, moved or sized.
    virtual void OnAutoFit();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    u8 m_tracking = 0;  // the window will be told when the mouse leaves
    u8 m_hotPart = 0;   // under the mouse: 1 the first half, 2 the second, 0 none

private:
    enum class Side { None, Left, Right };

    bool BeforeDefault(UINT message, LPARAM lParam, LRESULT& result);
    void AfterDefault(UINT message);
    void OnThemeChosen();
    void OnMouseInside();
    void PaintWindow();
    void HitPart();
    [[nodiscard]] bool IsHorizontal() const;
    [[nodiscard]] bool IsPushed(int part) const;
    // Where the spin is of its buddy; none without a buddy.
    [[nodiscard]] Side BuddySide() const;
    // The window that holds the buddy and is a child of the spin's parent; null for none.
    [[nodiscard]] HWND BuddyFrame() const;
};
