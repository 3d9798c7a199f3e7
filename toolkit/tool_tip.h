// tvToolTipCtrl, the tool tip of the program, in the colours of the theme. There is one, TheToolTip(), whose
// window is made when the first tip is added.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

class tvToolTipCtrl : public tvWnd, public tvtheme_control {
public:
    // The longest text that is shown, with its terminating zero.
    static constexpr std::size_t kTextCapacity = 1024;

    // Makes the window, with these styles besides; nothing happens if it is there.
    void Create(HWND parent, DWORD style);

    // Lets the tip see a message of the program's windows: those of the mouse that it shows and hides for.
    void Relay(MSG* msg);

    // Gives a window a tip. The text may be that of a menu.
    void AddTool(HWND window, const tvstring& text);
    // One whose text the window is asked for, by TTN_GETDISPINFO, whenever it is shown.
    void AddCallbackTool(HWND window);
    void RemoveTool(HWND window);

    // A tip that is shown and hidden by Track alone; the window is asked for its text.
    void AddTrackingTool(HWND window);

    // Shows it with its text at this place of the screen, or hides it.
    void Track(HWND window, bool show, int x, int y);

    // Gives the tip that is up room for a text of this size.
    void SetSize(HWND window, int width, int height);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

private:
    void OnPaint();
    void DrawFrame(HDC dc, const RECT& rect);
    void DrawTip(HDC dc, const RECT& rect);
    [[nodiscard]] RECT TextPlace(const RECT& client, DWORD style) const;
    [[nodiscard]] tvstring CurrentText() const;
};

tvToolTipCtrl& TheToolTip();

// The same for the one tool tip, which is made if it is not there yet.
void AddToolTip(HWND window, const tvstring& text);
void RemoveToolTip(HWND window);
