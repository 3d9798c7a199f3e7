// tvEdit, an edit box in the colours of the theme. The text stays with the system's control; this class
// colours it, frames it, shows a cue while it is empty and fits its height to the font.
//
// What was in a box for passwords does not outlive its window: the text and what the control keeps for
// undoing are overwritten before the window goes.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/color_theme.h"
#include "toolkit/scroll_box.h"
#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

class tvEdit : public tvWnd, public tvtheme_control {
public:
    tvEdit() = default;
    ~tvEdit() override;

    // What is shown in gray while the box of one line is empty: with `onFocus` also while it has the
    // keyboard. An empty text for none. EM_SETCUEBANNER does the same.
    void SetCue(const tvstring& text, bool onFocus);

    // A cue that is shown in place of the other one until something is in the box; then it is gone for good.
    // kNoColor for the usual gray. An empty text takes it back.
    void SetTempCue(const tvstring& text, bool onFocus, COLORREF color);

    // Has the text overwritten before the window goes. A box that is or was one for passwords (ES_PASSWORD,
    // EM_SETPASSWORDCHAR) needs not be told.
    void KeepSecret() noexcept { m_secret = true; }

    // Overwrites the text and empties the box; nothing of it can be undone. The parent, if it is one of the
    // toolkit's windows, does not hear of it.
    void Wipe();

    // --- Virtual operation after those of tvWnd ---

    // The colour of the text. True if a derived class has fixed it, so that it counts under System Default
    // too.
    virtual bool GetTextColor(COLORREF& color);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    bool OnReflectCommand(u16 code) override;
    void OnReflectCtlColor(HDC dc, LRESULT* result) override;
    // Paints the cue.
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    tvScrollBox m_scrollBox;  // around the control, with its frame; not under System Default
    u8 m_tracking = 0;        // the window will be told when the mouse leaves
    u8 m_frameReady = 0;      // the frame has been measured once
    int m_baseHeight = 0;     // of the client area when the wrapper got its window, in pixels
    tvstring m_cue;
    u8 m_cueOnFocus = 1;
    COLORREF m_cueColor = kUsualCueColor;
    tvstring m_tempCue;
    u8 m_tempCueOnFocus = 1;
    COLORREF m_tempCueColor = kUsualCueColor;
    int m_autoHeight = 0;   // below 0: never fitted to the font; 1: exactly; else not below m_baseHeight
    u8 m_useScrollBox = 1;  // the control gets a scroll box with its window

private:
    static constexpr COLORREF kUsualCueColor = 0xFF000000;  // text_gray

    void AttachScrollBox();
    bool BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterDefault(UINT message);
    [[nodiscard]] bool IsGray() const;

    // The cue.
    struct Cue {
        const tvstring& text;
        bool onFocus;
        COLORREF color;
    };
    [[nodiscard]] Cue ActiveCue() const;
    [[nodiscard]] bool ShouldShowCue() const;
    void PaintCue();
    void SendCue();
    bool TakeCue(WPARAM wParam, LPARAM lParam);
    void InvalidateCue() const;

    // The frame.
    void PaintFrame() const;
    void RefreshFrame();
    bool OnFramePaint(WPARAM wParam, LPARAM lParam);
    void OnMouseInside();
    void OnMouseGone();
    [[nodiscard]] bool IsFrameActive() const;
    void FitHeight();
    [[nodiscard]] int WantedHeight() const;

    // The secret.
    void NoteLength();
    void OverwriteText(int length) const;
    void OverwriteUndo(int length) const;

    int m_longest = 0;  // the longest text that was seen in the window, in units
    bool m_secret = false;
    bool m_wiping = false;
};
