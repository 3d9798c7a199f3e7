// tvComboBox, a combo box in the colours of the theme.
//
// Under a colour theme the window is owner-drawn, under System Default it is the system's. The system lets
// this be chosen only when the window is made: where a change of theme asks for the other kind the window is
// replaced. Its rows, selection, texts and settings are carried over, but not the data of its rows. Whoever
// keeps the handle takes it from the wrapper anew when told by WM_TVCOMBOBOX_RECREATED.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/edit.h"
#include "toolkit/handle.h"
#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

// Posted to the parent when a combo box has got a new window: wParam is its id.
UINT WM_TVCOMBOBOX_RECREATED();

class tvComboBox : public tvWnd, public tvtheme_control {
public:
    tvComboBox();
    ~tvComboBox() override;

    // Makes the window as a child and wraps it. The rectangle's height is that with the list dropped down;
    // below 1 it is a third of the screen's. False if that fails or there is a window already.
    bool Create(HWND parent, int id, const RECT& rect, DWORD style);

    // --- Virtual operations after those of tvWnd, in slot order ---

    // True if the window is never to be replaced.
    virtual bool KeepsWindow();

    // True if the window is not of the kind that the theme in force asks for.
    virtual bool NeedsRecreate();

    // How a part of a combo box looks.
    enum State : int { STATE_DISABLED = -1, STATE_IDLE = 0, STATE_HOT = 1, STATE_ACTIVE = 2 };

    // Paints what a row, or the box itself, shows besides the text. `rect` is the room for both, and becomes
    // what is left for the text. A row is active if it is selected.
    virtual void DrawItemExtra(HDC dc, RECT& rect, State state);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override;
    int OnReflectCompareItem(COMPAREITEMSTRUCT* item) override;
    void OnReflectCtlColor(HDC dc, LRESULT* result) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // The list, which is a window of its own while it is dropped down.
    // NOLINTNEXTLINE(clang-diagnostic-reserved-identifier): within a class the name is nobody else's
    class _ListBox : public tvWnd {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
        tvComboBox* m_owner = nullptr;
    };

    // The edit box, if the style has one. What mouse and keyboard do there shows on the combo box.
    class EditPart : public tvEdit {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
        tvComboBox* m_owner = nullptr;
    };

    // --- Fields, in their order ---

    _ListBox m_list;
    EditPart m_edit;
    u8 m_autoHeight = 1;    // rows and box are as high as the font needs
    tvThemeHandle m_theme;  // the visual style of combo boxes
    u8 m_themeOpen = 0;     // it was asked for
    u32 m_uiState = 0;      // of WM_QUERYUISTATE
    int m_dropHeight = 0;   // of the window with its list, in pixels

private:
    bool BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void AfterDefault(UINT message);
    [[nodiscard]] bool IsOwnerDrawn() const;
    void Repaint();
    void SubclassParts();
    void FitItems() const;
    void ReadUiState();
    void OnThemeChosen();
    void OnMouse();

    // Everything that a new window is given of the old one.
    struct Kept;
    bool Recreate();
    [[nodiscard]] Kept Read() const;
    void Restore(const Kept& kept) const;
    [[nodiscard]] tvstring ItemText(int index) const;

    // What one picture is painted from.
    struct Look;
    [[nodiscard]] Look CurrentLook(const RECT& client) const;
    [[nodiscard]] State MouseState() const;
    void PaintWindow();
    void OpenTheme();
    void DrawGround(HDC dc, const Look& look) const;
    static void DrawColored(HDC dc, const Look& look);
    void DrawSystems(HDC dc, const Look& look) const;
    static void DrawListGround(HDC dc, const Look& look);
    void DrawArrow(HDC dc, const Look& look) const;
    static void DrawColoredArrow(HDC dc, const Look& look);
    void DrawFocus(HDC dc, const Look& look) const;
    void DrawSelection(HDC dc, RECT rect, const Look& look) const;
    [[nodiscard]] bool HasFocus(HWND list) const;

    State m_mouse = STATE_IDLE;  // where the mouse was last: active is on the arrow
};
