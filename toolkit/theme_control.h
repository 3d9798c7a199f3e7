// tvtheme_control, the second base of all windows in the colours of the theme: it takes part in their
// messages first.
#pragma once

#include "toolkit/abdraw.h"

class tvtheme_control : public tvabdraw {
public:
    // Called first in each WindowProc. True if the message is done with, and `result` its answer.
    bool OnThemeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
};

// What measures and paints the rows of an owner-drawn menu. A menu that does so registers itself by its
// handle; rows are looked up there, or by the popup that is open.
class MenuPainter {
public:
    virtual void OnMeasureItem(MEASUREITEMSTRUCT* item) = 0;
    virtual void OnDrawItem(DRAWITEMSTRUCT* item) = 0;
    // True if a row of this command is in the menu.
    [[nodiscard]] virtual bool HasItem(UINT id) const = 0;

    static void Register(HMENU menu, MenuPainter* painter);
    static void Unregister(HMENU menu);
    static MenuPainter* Find(HMENU menu);

protected:
    ~MenuPainter() = default;
};
