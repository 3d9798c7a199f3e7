// Every kind of button in every state: one row a kind, one column a state.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "tests/gallery/control_map.h"
#include "tests/gallery/posed.h"
#include "toolkit/dialog.h"

class StateTable {
public:
    StateTable();

    // Adds the controls to a dialog's template.
    void AddTo(tvDialog& dialog) const;

    // Gives them their wrappers, states and texts. The icon is not owned.
    void Wrap(const ControlMap& controls, HICON icon);

    // Puts them into their places, in the dialog units of a font; the corner is in those too.
    void Place(const ControlMap& controls, HFONT font, int x, int y) const;

    void SetIcon(HICON icon);

    // How many dialog units it takes.
    [[nodiscard]] int Width() const;
    [[nodiscard]] int Height() const;

private:
    enum Column : std::size_t { IDLE, HOT, PUSHED, FOCUSED, DEFAULT, DISABLED, COLUMNS };

    struct Row {
        const char16_t* title = nullptr;
        u32 style = 0;
        unsigned check = 0;
        bool hasIcon = false;
        std::array<std::unique_ptr<tvButton>, COLUMNS> cells;  // null: there is no such state
    };

    template <typename Button, typename... Arguments>
    Row& AddRow(const char16_t* title, u32 style, Arguments... arguments);
    template <typename Button, typename... Arguments>
    void AddCheckRow(const char16_t* title, u32 style, unsigned check);
    static u16 CellId(std::size_t row, std::size_t column);
    static u16 TitleId(std::size_t row);
    void WrapCell(const ControlMap& controls, std::size_t row, std::size_t column, HICON icon);

    std::vector<Row> m_Rows;
};
