#include "tests/gallery/state_table.h"

#include "toolkit/button_icon.h"
#include "toolkit/button_link.h"
#include "toolkit/font.h"

namespace {

constexpr u16 kFirstId = 1000;
constexpr u16 kIdsOfRow = 10;
constexpr u16 kTitleOfRow = 9;
constexpr u16 kFirstHeadId = 1900;

// Dialog units.
constexpr int kTitleWidth = 66;
constexpr int kCellWidth = 50;
constexpr int kCellHeight = 15;
constexpr int kColumnStep = kCellWidth + 5;
constexpr int kRowStep = kCellHeight + 4;
constexpr int kHeadHeight = 10;
constexpr int kHeadStep = kHeadHeight + 2;

constexpr const char16_t* kHeads[] = {u"Idle", u"Hot", u"Pushed", u"Focused", u"Default", u"Disabled"};

}  // namespace

template <typename Button, typename... Arguments>
StateTable::Row& StateTable::AddRow(const char16_t* title, u32 style, Arguments... arguments) {
    Row& row = m_Rows.emplace_back();
    row.title = title;
    row.style = style;
    for (std::size_t column = 0; column < COLUMNS; ++column) {
        auto cell = std::make_unique<Posed<Button>>(arguments...);
        if (column == HOT) cell->m_pose = Pose::Hot;
        if (column == FOCUSED) cell->m_pose = Pose::Focused;
        if (column == DEFAULT) cell->m_pose = Pose::Default;
        cell->m_noAnimation = 1;
        row.cells[column] = std::move(cell);
    }
    return row;
}

template <typename Button, typename... Arguments>
void StateTable::AddCheckRow(const char16_t* title, u32 style, unsigned check) {
    Row& row = AddRow<Button>(title, style);
    row.check = check;
    row.cells[DEFAULT].reset();
}

StateTable::StateTable() {
    AddRow<tvButton>(u"Push button", BS_PUSHBUTTON);
    for (const auto& cell : AddRow<tvButton>(u"Round corners", BS_PUSHBUTTON).cells)
        cell->m_rounded = 1;
    for (const auto& cell : AddRow<tvButton>(u"Without frame", BS_PUSHBUTTON).cells)
        cell->m_sides = 0;
    AddRow<tvButton_customIcon>(u"Glyph", BS_PUSHBUTTON, int{GLYPH_PENCIL});
    AddRow<tvButton_Icon>(u"Icon", BS_PUSHBUTTON).hasIcon = true;
    AddCheckRow<tvCheckBox>(u"Check box, off", BS_AUTOCHECKBOX, BST_UNCHECKED);
    AddCheckRow<tvCheckBox>(u"Check box, on", BS_AUTOCHECKBOX, BST_CHECKED);
    AddCheckRow<tvCheckBox>(u"Check box, mixed", BS_AUTO3STATE, BST_INDETERMINATE);
    // Not automatic: they would be a group, and but one of them be on.
    AddCheckRow<tvCheckBox>(u"Radio button, off", BS_RADIOBUTTON, BST_UNCHECKED);
    AddCheckRow<tvCheckBox>(u"Radio button, on", BS_RADIOBUTTON, BST_CHECKED);
    AddRow<tvButton_Link>(u"Link", BS_PUSHBUTTON).cells[DEFAULT].reset();
}

u16 StateTable::CellId(std::size_t row, std::size_t column) {
    return static_cast<u16>(kFirstId + row * kIdsOfRow + column);
}

u16 StateTable::TitleId(std::size_t row) {
    return CellId(row, kTitleOfRow);
}

void StateTable::AddTo(tvDialog& dialog) const {
    for (u16 column = 0; column < COLUMNS; ++column)
        dialog.AddControl(ATOM_STATIC, static_cast<u16>(kFirstHeadId + column), 0, 0, 1, 1);
    for (std::size_t row = 0; row < m_Rows.size(); ++row) {
        dialog.AddControl(ATOM_STATIC, TitleId(row), 0, 0, 1, 1);
        for (std::size_t column = 0; column < COLUMNS; ++column) {
            if (m_Rows[row].cells[column] == nullptr) continue;
            DialogControl* control = dialog.AddControl(ATOM_BUTTON, CellId(row, column), 0, 0, 1, 1);
            control->style |= m_Rows[row].style;
            if (column == DISABLED) control->style |= WS_DISABLED;
        }
    }
}

void StateTable::Wrap(const ControlMap& controls, HICON icon) {
    for (int column = 0; column < static_cast<int>(COLUMNS); ++column)
        SetWindowTextW(controls[kFirstHeadId + column], Wide(kHeads[column]));
    for (std::size_t row = 0; row < m_Rows.size(); ++row) {
        SetWindowTextW(controls[TitleId(row)], Wide(m_Rows[row].title));
        for (std::size_t column = 0; column < COLUMNS; ++column)
            if (m_Rows[row].cells[column] != nullptr) WrapCell(controls, row, column, icon);
    }
}

void StateTable::WrapCell(const ControlMap& controls, std::size_t row, std::size_t column, HICON icon) {
    tvButton& cell = *m_Rows[row].cells[column];
    const HWND control = controls[CellId(row, column)];
    SetWindowTextW(control, L"&Button");
    cell.SubclassWindow(control);
    if (m_Rows[row].hasIcon) cell.Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
    if (m_Rows[row].check != 0) cell.Send(BM_SETCHECK, m_Rows[row].check);
    // Not from the template: a dialog takes the style from all but one.
    if (column == DEFAULT) cell.Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    if (column == PUSHED) cell.Send(BM_SETSTATE, TRUE);
}

void StateTable::SetIcon(HICON icon) {
    for (Row& row : m_Rows)
        if (row.hasIcon)
            for (const auto& cell : row.cells)
                cell->Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
}

void StateTable::Place(const ControlMap& controls, HFONT font, int x, int y) const {
    const auto place = [&](u16 id, int left, int top, int width, int height) {
        const PixelSize at = DialogUnitsToPixels(font, left, top);
        const PixelSize size = DialogUnitsToPixels(font, width, height);
        SetWindowPos(controls[id], nullptr, at.x, at.y, size.x, size.y, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const auto leftOf = [x](std::size_t column) {
        return x + kTitleWidth + static_cast<int>(column) * kColumnStep;
    };
    for (std::size_t column = 0; column < COLUMNS; ++column)
        place(static_cast<u16>(kFirstHeadId + column), leftOf(column), y, kCellWidth, kHeadHeight);
    for (std::size_t row = 0; row < m_Rows.size(); ++row) {
        const int top = y + kHeadStep + static_cast<int>(row) * kRowStep;
        place(TitleId(row), x, top + 3, kTitleWidth, kHeadHeight);
        for (std::size_t column = 0; column < COLUMNS; ++column)
            if (m_Rows[row].cells[column] != nullptr)
                place(CellId(row, column), leftOf(column), top, kCellWidth, kCellHeight);
    }
}

int StateTable::Width() const {
    return kTitleWidth + static_cast<int>(COLUMNS) * kColumnStep;
}

int StateTable::Height() const {
    return kHeadStep + static_cast<int>(m_Rows.size()) * kRowStep;
}
