#include "tests/gallery/lists.h"

#include "toolkit/draw.h"
#include "toolkit/font.h"
#include "toolkit/theme.h"

namespace {

constexpr u16 kFirstList = 800;
constexpr u16 kMenuSheet = 810;

// Of the menu's rows.
constexpr UINT kOpen = 1;
constexpr UINT kSave = 2;
constexpr UINT kChecked = 3;
constexpr UINT kDefault = 4;

// Dialog units.
constexpr int kWidth = 128;
constexpr int kStep = kWidth + 4;
constexpr int kHeight = 76;
constexpr int kMenuWidth = 112;

u16 ListId(std::size_t index) {
    return static_cast<u16>(kFirstList + index);
}

}  // namespace

Lists::Lists() : m_MenuSheet([this](HDC dc, const RECT& rect) { DrawMenu(dc, rect); }) {}

void Lists::PosedList::GetItemColors(tvMListState& state) {
    if (m_focused) state.m_focused = 1;
    tvMListBox::GetItemColors(state);
}

void Lists::AddTo(tvDialog& dialog) {
    constexpr DWORD kVariable = LBS_OWNERDRAWVARIABLE | LBS_NOINTEGRALHEIGHT;
    constexpr DWORD kStyles[LISTS] = {kVariable, kVariable | LBS_EXTENDEDSEL, kVariable | WS_VSCROLL};
    for (std::size_t i = 0; i < LISTS; ++i) {
        DialogControl* list = dialog.AddControl(ATOM_LISTBOX, ListId(i), 0, 0, kWidth, kHeight);
        list->style = (list->style & ~DWORD{WS_VSCROLL}) | kStyles[i];
    }
    dialog.AddControl(ATOM_STATIC, kMenuSheet, 0, 0, 1, 1);
}

void Lists::Wrap(const ControlMap& controls) {
    for (std::size_t i = 0; i < LISTS; ++i)
        m_Lists[i].SubclassWindow(controls[ListId(i)]);
    PosedList& plain = m_Lists[LIST_PLAIN];
    for (const char16_t* text : {u"A list box", u"The current row\tA note", u"\tIndented\t",
                                 u"Cut off\tC:\\A folder with a long name\\Everything.vmr"})
        plain.AddItem(text);
    plain.SetCurSel(1);
    PosedList& focused = m_Lists[LIST_FOCUSED];
    for (const char16_t* text :
         {u"With the keyboard", u"Selected\tA note", u"Selected and hot", u"The last row"})
        focused.AddItem(text);
    focused.m_focused = true;
    focused.m_hotIndex = 2;
    focused.SetSel(1, true);
    focused.SetSel(2, true);
    PosedList& lines = m_Lists[LIST_LINES];
    for (const char16_t* text : {u"A row that is too long for its place is broken into lines\tA note",
                                 u"The mouse is over this row", u"The third row"})
        lines.AddItem(text);
    constexpr int kMore = 12;  // than there is room for
    for (int i = 0; i < kMore; ++i)
        lines.AddItem(u"A row behind the others");
    lines.m_hotIndex = 1;
    FillMenu();
    m_MenuSheet.SubclassWindow(controls[kMenuSheet]);
}

void Lists::FillMenu() {
    m_Menu.CreatePopup();
    m_Menu.AddItem(kOpen, u"&Open...\tCtrl+O");
    m_Menu.AddItem(kSave, u"&Save\tCtrl+S");
    m_Menu.EnableItem(kSave, false);
    m_Menu.AddItem(0, nullptr);
    m_Menu.AddPopup(u"A sub&menu");
    m_Menu.AddItem(kChecked, u"&Checked");
    m_Menu.CheckItem(kChecked, true);
    m_Menu.AddItem(kDefault, u"&Default");
}

MENUITEMINFOW Lists::MenuRow(int position) const {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_STATE;
    GetMenuItemInfoW(m_Menu.Handle(), static_cast<UINT>(position), TRUE, &info);
    return info;
}

void Lists::MeasureMenu() {
    m_RowHeights.clear();
    for (int position = 0; position < m_Menu.GetItemCount(); ++position) {
        MEASUREITEMSTRUCT size{};
        size.CtlType = ODT_MENU;
        size.itemID = MenuRow(position).wID;
        m_Menu.OnMeasureItem(&size);
        m_RowHeights.push_back(static_cast<int>(size.itemHeight));
    }
}

// In two columns, the second with every row selected.
void Lists::DrawMenu(HDC dc, const RECT& rect) {
    const int middle = (rect.left + rect.right) / 2;
    const int saved = SaveDC(dc);
    for (const UINT selected : {0U, UINT{ODS_SELECTED}}) {
        int y = rect.top;
        for (int position = 0; position < m_Menu.GetItemCount(); ++position) {
            const MENUITEMINFOW info = MenuRow(position);
            DRAWITEMSTRUCT item{};
            item.CtlType = ODT_MENU;
            item.itemID = info.wID;
            item.itemState = selected | ((info.fState & MFS_GRAYED) != 0 ? UINT{ODS_GRAYED} : 0U) |
                             (info.wID == kDefault ? UINT{ODS_DEFAULT} : 0U);
            item.hDC = dc;
            const int height = m_RowHeights[static_cast<std::size_t>(position)];
            item.rcItem = {selected != 0 ? middle : rect.left, y, selected != 0 ? rect.right : middle,
                           y + height};
            m_Menu.OnDrawItem(&item);
            y += height;
        }
    }
    RestoreDC(dc, saved);  // rows keep what is painted after them off themselves
}

void Lists::Place(const ControlMap& controls, HFONT font, int x, int y) {
    MeasureMenu();
    const auto place = [&](u16 id, int left, int width) {
        const PixelSize at = DialogUnitsToPixels(font, left, y);
        const PixelSize size = DialogUnitsToPixels(font, width, kHeight);
        SetWindowPos(controls[id], nullptr, at.x, at.y, size.x, size.y, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    for (std::size_t i = 0; i < LISTS; ++i)
        place(ListId(i), x + static_cast<int>(i) * kStep, kWidth);
    place(kMenuSheet, x + static_cast<int>(LISTS) * kStep, 2 * kMenuWidth);
}

int Lists::Height() {
    return kHeight;
}
