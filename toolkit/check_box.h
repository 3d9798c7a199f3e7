// tvCheckBox, a check box or a radio button in the colours of the theme.
//
// Owner-drawn, it keeps its state itself; with its true style the system does, and the wrapper follows. The
// auto radio buttons of a group find each other by a window property, since the system knows no owner-drawn
// one.
#pragma once

#include "toolkit/button.h"

// The property of auto radio buttons; its value is their type, 9.
inline constexpr const char16_t* kRadioProperty = u"tvCheckBox_AutoRadioButton";

class tvCheckBox : public tvButton {
public:
    tvCheckBox() = default;
    ~tvCheckBox() override;

    // Gives the window this place and the size that its box and text need; with `exactWidth` it is as wide
    // as it may be. Gives the height.
    int Fit(int x, int y, int maxWidth, int maxHeight, bool exactWidth);

    // The same, for a control that from now on does not fit itself when its text or size changes.
    int FitToText(int x, int y, int maxWidth, int maxHeight, bool exactWidth);

    // How many pixels the label can be wide.
    [[nodiscard]] int LabelWidth();

    bool UsesSystemLook() override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;
    void OnAutoFit() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    bool OnReflectCommand(u16 code) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    u8 m_autoFit = 1;
    u32 m_check = 0;      // 0, 1, or 2 for neither
    u32 m_drawFlags = 0;  // of DrawTextW, for the label: those of the style, and what an owner adds

private:
    struct Box {
        int side = 0;
        int gap = 0;  // to the label
        int lineHeight = 0;
    };

    [[nodiscard]] bool IsInFamily() const noexcept;
    [[nodiscard]] bool IsRadio() const noexcept;
    [[nodiscard]] bool HasThreeStates() const noexcept;

    bool OnOwnMessage(UINT message, WPARAM wParam, LRESULT& result);
    void AfterMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void SetCheck(WPARAM state);
    void ReadCheckBack();
    void ChooseInGroup();
    void SyncStyleFollowers();
    void HandStateBack();
    void MeasureAnew();

    const Box& BoxSize();
    [[nodiscard]] int BoxSide(HDC dc, int lineHeight) const;
    [[nodiscard]] bool IsBoxAtRight() const;
    [[nodiscard]] RECT BoxRect(const RECT& inner, int side) const;
    void DrawBox(HDC dc, const RECT& box, const tvButtonColors& colors) const;
    // The size that the text takes in the rectangle's width.
    void MeasureLabel(HDC dc, RECT& rect) const;
    [[nodiscard]] RECT TextRect(HDC dc, const RECT& label) const;
    void DrawLabel(HDC dc, const RECT& client, const RECT& label, const tvButtonColors& colors) const;

    Box m_box;
    HFONT m_boxFont = nullptr;  // the font that the box was measured for
    bool m_boxKnown = false;
    bool m_fitting = false;  // it is just giving itself its size
};
