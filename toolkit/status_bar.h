// tvStatusBar, a status bar in place of a static control: a standing text, and passing ones that go again.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/theme_control.h"
#include "toolkit/timer.h"
#include "toolkit/wnd.h"

// One message. The icon is not owned.
struct tvStatusRecord {
    tvstring m_text;
    i32 m_timeout = 0;  // milliseconds; 0: the status bar's own; -1: for ever
    HICON m_icon = nullptr;
    u8 m_flash = 0;  // not 0: the text blinks for its time
    int m_iconWidth = 0;
    int m_iconHeight = 0;
};

class tvStatusBar : public tvWnd, public tvtheme_control {
public:
    // --- Virtual operations after those of tvWnd ---

    virtual void DrawGrip(HDC dc, const RECT& rect, COLORREF color);
    virtual void DrawBack(HDC dc, const RECT& rect);
    virtual void DrawLabel(HDC dc, const RECT& rect, const tvstring& text);
    virtual void DrawIcon(HDC dc, const RECT& rect, HICON icon);
    // Whatever else is to stand in the area of the text.
    virtual void DrawPanes(HDC dc, const RECT& rect);

    // Shows a text, which may be that of a menu, until the time of the standing one is over or another takes
    // its place. An empty text brings back the standing one.
    void SetMessage(const tvstring& text, HICON icon);

    // The standing text, and how long messages are shown in front of it: 0 for ever.
    void SetIdle(const tvstring& text, HICON icon, i32 timeout);

    void OnSubclassed() override;
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

protected:
    void Show(const tvStatusRecord& record);

    // What is shown now.
    [[nodiscard]] tvStatusRecord Active() const;

    // --- Fields, in their order ---

    tvWndTimer m_messageTimer;
    tvWndTimer m_flashTimer;
    tvStatusRecord m_flashRecord;  // shown while it blinks
    u32 m_flashTicks = 0;          // of the timer, for the whole blinking
    u32 m_flashStep = 0;           // ticks so far
    tvStatusRecord m_idle;
    tvStatusRecord m_message;
    i32 m_flashInterval = 150;  // milliseconds
    bool m_showGrip = true;

private:
    [[nodiscard]] i32 TimeoutOf(const tvStatusRecord& record) const;
    void StartFlash(const tvStatusRecord& record, i32 timeout);
    void OnTick(UINT_PTR id);
    void OnFlashTick();
    void FitToFont();
    void Redraw();
    [[nodiscard]] bool BlinksAway() const noexcept;
};
