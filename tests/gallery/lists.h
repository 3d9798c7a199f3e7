// List boxes, and the rows of a menu as if it were open.
#pragma once

#include <array>
#include <vector>

#include "tests/gallery/control_map.h"
#include "tests/gallery/sheet.h"
#include "toolkit/dialog.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"

class Lists {
public:
    Lists();

    // Adds the controls to a dialog's template.
    static void AddTo(tvDialog& dialog);

    // Gives them their wrappers and rows.
    void Wrap(const ControlMap& controls);

    // Puts them into their places, in the dialog units of a font; the corner is in those too.
    void Place(const ControlMap& controls, HFONT font, int x, int y);

    // How many dialog units it takes.
    [[nodiscard]] static int Height();

private:
    // A list that looks as if it had the keyboard and the mouse over a row.
    class PosedList : public tvMListBox {
    public:
        void GetItemColors(tvMListState& state) override;

        bool m_focused = false;
    };

    enum : std::size_t { LIST_PLAIN, LIST_FOCUSED, LIST_LINES, LISTS };

    void FillMenu();
    [[nodiscard]] MENUITEMINFOW MenuRow(int position) const;
    void MeasureMenu();
    void DrawMenu(HDC dc, const RECT& rect);

    std::array<PosedList, LISTS> m_Lists;
    tvMenu m_Menu;
    std::vector<int> m_RowHeights;  // of the menu
    Sheet m_MenuSheet;
};
