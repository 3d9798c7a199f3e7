// tvMenu, a menu of the system that follows the colour theme.
//
// Under a colour theme every row is owner-drawn: the system asks for its size and has it painted here. Under
// System Default rows are the system's own again. Rows keep their texts with the system in either case; a
// text may hold a mnemonic mark and, behind a tab, a shortcut.
//
// Operations on a menu without a handle give false, 0, null or an empty text.
#pragma once

#include "foundation/tvstring.h"
#include "platform/types.h"
#include "toolkit/win32.h"

class tvMenu {
public:
    tvMenu() = default;
    tvMenu(const tvMenu&) = delete;
    tvMenu& operator=(const tvMenu&) = delete;

    // What is painted can also be measured only: nothing is painted then, and the width is the same.
    enum class Pass { Paint, Measure };

    // --- Virtual operations, in slot order. States are bits of ODS_SELECTED and so on ---

    virtual bool IsOwnerDraw();
    virtual int GetRowHeight();
    virtual int GetAccelGap();  // between a text and its shortcut
    virtual HFONT GetFont(bool bold);

    // The check mark in the column at the left, and the chevron of a submenu in that at the right. Both give
    // the column's width.
    virtual int DrawCheck(HDC dc, const RECT& rect, UINT state, bool radio, Pass pass);
    virtual int DrawArrow(HDC dc, const RECT& rect, UINT state, Pass pass);

    // The text in the context's font. Gives the width that it needs.
    virtual int DrawItemText(HDC dc, const RECT& rect, const tvstring& text, UINT state, Pass pass);

    // What the menu is filled with around its rows. It belongs to the theme or the system.
    virtual HBRUSH GetBackBrush();

    virtual void OnDrawItem(DRAWITEMSTRUCT* item);
    virtual void OnMeasureItem(MEASUREITEMSTRUCT* item);

    // Destroys the menu, unless it is an attached one, and the wrappers of its submenus.
    virtual ~tvMenu();

    // --- The handle ---

    // The wrapper of a menu, or null.
    static tvMenu* FromHandle(HMENU menu);

    // Each replaces what was there by a new, empty menu: for a menu bar, and for a popup.
    bool CreateMenu();
    bool CreatePopup();

    // Takes a menu in place of what was there. An attached one belongs to somebody else.
    enum class Kind { Owned, Attached };
    bool Attach(HMENU menu, Kind kind);

    // Gives the menu up. Destroyed is only what is owned; the wrappers of submenus go too then.
    enum class Menu { Keep, Destroy };
    void Detach(Menu then);

    [[nodiscard]] HMENU Handle() const noexcept { return m_hMenu; }

    // Makes it the menu bar of a window, in place of the one that the window has.
    bool SetAsBar(HWND owner) const;
    [[nodiscard]] bool IsBar() const;

    // --- Rows ---

    // Adds a row at the end: without id and submenu a separator. A submenu then belongs to this menu.
    bool AddItem(UINT id, const char16_t* text, HMENU submenu = nullptr);

    // Adds a row with a new submenu. The wrapper lives as long as this menu; null if the system fails.
    tvMenu* AddPopup(const char16_t* text);

    // The wrapper of the submenu at a position; null if there is no submenu.
    tvMenu* GetSubMenu(int position) const;

    // Each finds the row in submenus, too.
    bool SetItemText(UINT id, const char16_t* text) const;
    bool EnableItem(UINT id, bool on) const;
    bool CheckItem(UINT id, bool on) const;

    [[nodiscard]] int GetItemCount() const;
    [[nodiscard]] tvstring GetItemText(int position) const;

    // True if the menu itself, and not a submenu, has a row with this id. That of a row with a submenu is the
    // submenu's handle.
    [[nodiscard]] bool HasItem(UINT id) const;

    // The menu that has the row: this one, or a submenu of whatever depth.
    tvMenu* FindOwner(UINT id);

    // True if `sub` lies anywhere below `menu`.
    static bool IsSubMenuOf(HMENU menu, HMENU sub);

    // Opens it at a point of the screen and waits until it is closed: what TrackPopupMenu gives for the
    // flags. The chosen command is sent to the window, as are the messages that have the rows painted: the
    // window has to be one in the colours of the theme.
    int TrackPopup(int x, int y, HWND window, UINT flags) const;

    // --- Following the theme ---

    // Gives background and rows the look that they have to have now. Rows that were measured by this class
    // never get the system's size again: OnThemeChosen makes such menus anew.
    void ApplyTheme();

    // The theme, or its font, has changed: brings all menus up to date. Menus that have to be made anew get
    // another handle. Wrappers of their submenus do not survive that.
    static void OnThemeChosen();
    static void OnFontChosen();

    // --- Fields, in their order ---

    HMENU m_hMenu = nullptr;
    u8 m_attached = 0;    // the menu belongs to somebody else
    u8 m_plainItems = 0;  // rows are never owner-drawn

private:
    void SyncOwnerDraw();
    void FollowTheme();
    bool Rebuild();
    bool CopyItems(HMENU from);
    bool CopyItem(HMENU from, UINT position);
    bool CopyPopup(const MENUITEMINFOW& item, const tvstring& text);
    bool TakeNew(HMENU menu);
    [[nodiscard]] UINT TypeBits(UINT type);
    void DrawContent(HDC dc, RECT rect, UINT id, UINT state);
};
