// tvScrollBox, a window around a control that scrolls: it paints the control's frame and a vertical scroll
// bar in the colours of the theme, and passes on to the control what the mouse does on that bar. The control
// keeps its own scrolling; only its frame and the room for its bar are taken from it.
//
// From outside the box stands for the control: it has its id, its place and its place in the order of
// windows; texts that are set or asked for are the control's, and the parent gets what the control tells.
// What is done to the control (moved, shown, enabled) is done to the box.
//
// Whoever has such a control in a dialog of its own keeps to the control's wrapper:
// - The wrapper's handle is the one to move, show, hide, enable, focus and send EM_ and LB_ messages to.
//   Places that it is moved to are those of the dialog, frame and bar included.
// - The rectangle of the control's window is what is left within frame and bar; OuterOf gives the window
//   with the rectangle of the whole, which is also the one next to the other controls.
// - GetDlgItem gives the box. Texts pass through it (SetDlgItemText, GetDlgItemInt); other messages do not
//   reach the control, and what is shown, hidden or enabled by way of it leaves the control as it was.
//   tvWnd::FindDescendant gives the control. GetParent of the control is the box.
// - A control of the system's tells the window that it was made in, which is the dialog. What is sent to the
//   control's parent comes to the box:
//   WM_COMMAND, WM_CONTEXTMENU and WM_CLOSE are posted on, so that they come after the call that has caused
//   them; WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM and WM_CTLCOLOR... end there, answered by the wrapper's
//   reflect operations.
// Under System Default there is no box, unless the theme was another one when the control came.
//
// The control's wrapper owns the box, and has it take part in its messages: BeforeControl in front of the
// default of each message, AfterControl behind it.
#pragma once

#include "toolkit/base_dialog.h"
#include "toolkit/handle.h"
#include "toolkit/scroll_parts.h"

class tvScrollBox : public tvBaseDlg {
public:
    tvScrollBox() = default;
    ~tvScrollBox() override;

    // Makes the box around a control, which has to have a parent; otherwise nothing happens. The box goes
    // with that parent, or with this object. The second argument is of no account.
    void Attach(HWND child, void* reserved = nullptr);

    // There is a box, and the control in it.
    [[nodiscard]] bool IsActive() const noexcept { return m_hWnd != nullptr && m_child != nullptr; }

    // The window that stands for a control among its parent's: its box, or without one the control itself.
    [[nodiscard]] static HWND OuterOf(HWND control);

    // The control may have got a scroll bar, or lost it: it is given the room that there is then.
    void OnChildStyleChanged();

    // Measures the bar again, and has it painted anew if anything has changed.
    void Update();

    // What frame and bar take at each side, in pixels.
    void GetFrame(RECT& out) const;

    // Paints the box anew: at once with `withUpdate`.
    void Redraw(bool withUpdate);

    // What the control's wrapper does with a message while the box is active. True if the message is done
    // with, and `result` its answer.
    bool BeforeControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterControl(UINT message);

    bool OnInitDialog() override;
    void OnLayout() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // --- Fields, in their order ---

    u8 m_tracking = 0;         // the window will be told when the mouse leaves
    u8 m_hasBorder = 0;        // the control had a frame
    u8 m_hasVScroll = 0;       // the control has a bar
    u8 m_frameFollowsHot = 0;  // the frame is lit up with mouse or keyboard
    u8 m_fillBase = 0;         // the ground is that of dialogs, not that of edit boxes
    tvThemeHandle m_theme;     // of the system's bars; null where there is no visual style
    i32 m_hotPart = SCROLL_NONE;
    ScrollRects m_parts{};
    ScrollStates m_states{};
    ScrollDrag m_drag;
    HWND m_child = nullptr;

private:
    // Attaching.
    void TakePlaceOf(HWND child, HWND before);
    void TakeFrameFrom(HWND child);
    void OpenTheme();
    bool MeasureFrame(WPARAM wParam, LPARAM lParam);
    void FollowMove(WINDOWPOS& place);
    void OnChildGone();

    // Measuring.
    bool Measure();
    void MeasureBar();
    [[nodiscard]] bool IsOfBox(HWND window) const;
    [[nodiscard]] bool IsUsable() const;
    [[nodiscard]] int HotPartAt(POINT point) const;
    [[nodiscard]] int HotPart() const;
    bool RenewHotPart();

    // Mouse.
    bool OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void OnPressed(POINT point);
    void OnMoved(POINT point);
    void OnMouseGone();
    void BeginDrag(POINT point);
    void DragTo(int y);
    void EndDrag();
    [[nodiscard]] bool IsDragging() const noexcept { return m_drag.capturedBy != nullptr; }

    // Messages.
    bool OnBoxMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool PassOn(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void PaintBox();

    // Painting.
    [[nodiscard]] RECT ThumbPlace() const;
    [[nodiscard]] bool IsHeld(int part) const;
    void DrawColored(HDC dc) const;
    void DrawThemed(HDC dc) const;
    void DrawClassic(HDC dc) const;
    [[nodiscard]] bool IsBarHot() const;
    // Of a part in the system's look. The state after `hot` is that of a part that is held.
    struct ThemeStates {
        int usual;
        int lit;  // another part is under the mouse
        int hot;
        int disabled;
    };
    [[nodiscard]] int ThemeState(int part, const ThemeStates& states) const;

    bool m_measuring = false;      // the control's frame is being measured: it cannot be moved now
    bool m_childHasWheel = false;  // what the control does not take of the wheel is not for it again
};
