// tvBaseDlg, a dialog in the colours of the theme, painted through a double buffer, that lays itself out.
// Every window of the application derives from it and fills its hooks.
#pragma once

#include "toolkit/dialog.h"
#include "toolkit/theme_control.h"

class tvBaseDlg : public tvDialog, public tvtheme_control {
public:
    // --- Virtual operations after those of tvDialog, in slot order: the hooks, see OnInitDialog ---

    virtual void OnAutoSize();
    virtual void OnLayout();  // again whenever the size or the font changes
    virtual void OnUpdateState();
    virtual void OnUpdateText();
    // Paints what is no control, under a colour theme: the background is there, the colour of text set.
    virtual void OnPaintDlg(HDC dc, const RECT& rect);

    // Runs the hooks: OnAutoSize, OnUpdateText, OnUpdateState, OnLayout. A limit to the size is set after
    // this.
    bool OnInitDialog() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    int m_maxWidth = 0;  // greatest tracking size in pixels; 0: none
    int m_maxHeight = 0;
    bool m_initDone = false;  // the hooks have run

protected:
    // True if least and greatest size are equal: the frame looks as if it could be sized, and cannot.
    [[nodiscard]] bool HasFixedSize() const noexcept;

    // Answers WM_PAINT through the buffer, with a fade from the last picture if asked for. False if there is
    // nothing to paint.
    bool PaintWindow(Fade fade = Fade::No);

    // Paints and erases whatever the theme is, where a dialog does so under System Default as well. False if
    // the message is another one, or there is nothing to paint.
    bool AnswerPaint(UINT message, WPARAM wParam, LRESULT& result);

private:
    bool OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void GraySizeItem(WPARAM menu) const;
    void OnThemeChanged(LPARAM theme);
};
