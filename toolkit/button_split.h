// tvButton_Split, a divider between panes that can be dragged. The system drags it, as it drags a window by
// its caption; the parent is told and lays the panes out.
#pragma once

#include "toolkit/button.h"

// Posted to the parent when the divider was dragged: wParam its id, lParam its window.
extern const UINT WM_TVBUTTON_SPLIT;

class tvButton_Split : public tvButton {
public:
    tvButton_Split() = default;
    ~tvButton_Split() override;

    bool UsesSystemLook() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    HWND m_parent = nullptr;
    u8 m_vertical = 0;    // it moves up and down
    int m_marginTop = 0;  // kept free at both ends of the way, if it moves up and down
    int m_marginLeft = 0;
    u8 m_asButton = 0;           // painted as a button
    COLORREF m_fill = kNoColor;  // none: the theme's
    COLORREF m_frameColor = kNoColor;

private:
    bool OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnMouseOver();
    void LockAxis(RECT& rect) const;
    void KeepInParent(WINDOWPOS& position) const;
    void TellParent(const WINDOWPOS& position) const;
    void Drag(WPARAM wParam, LPARAM lParam, LRESULT& result);

    bool m_dragging = false;  // the system's own loop is running
};
