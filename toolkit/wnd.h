// tvWnd, a wrapper of one window; tvWndMap, which finds the wrapper of a handle; and the one window procedure
// that all wrapped windows share.
//
// The shared procedure hands each message to the wrapper's WindowProc. Before that, what a control has sent
// to its parent (owner drawing, notifications, commands) is reflected to the control's own wrapper, and after
// it the colours that a control asks its parent for.
//
// Windows and their wrappers belong to the user-interface thread.
#pragma once

#include <map>

#include "platform/types.h"
#include "toolkit/win32.h"

class tvWnd {
public:
    tvWnd() = default;
    tvWnd(const tvWnd&) = delete;
    tvWnd& operator=(const tvWnd&) = delete;

    // --- Virtual operations, in slot order ---

    // The window's own handling. The default lets the application show its help for WM_HELP; everything else
    // goes to the procedure that was replaced, or to the system's.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // Called by the modal loop with each message: true if it was one for the dialog's keys and is done with.
    virtual bool IsDialogMsg(MSG* msg);

    // The wrapper has got its window through SubclassWindow.
    virtual void OnSubclassed();

    // Called by the modal loop before anything else of the window: true ends the message.
    virtual bool PreTranslateMsg(MSG* msg);

    // What the control's parent was sent about the control. The defaults of the first three set the flag that
    // says that nobody has handled it; the parent then gets the message. True from the next two, too, keeps
    // it from the parent. The default comparison is of the items' data as unsigned numbers: -1, 0 or 1.
    virtual void OnReflectDrawItem(DRAWITEMSTRUCT* item);
    virtual void OnReflectMeasureItem(MEASUREITEMSTRUCT* item);
    virtual int OnReflectCompareItem(COMPAREITEMSTRUCT* item);
    virtual bool OnReflectNotify(NMHDR* header, LRESULT* result);
    virtual bool OnReflectCommand(u16 code);

    // The parent has been asked for the control's colours and has answered `result`, which may be replaced.
    virtual void OnReflectCtlColor(HDC dc, LRESULT* result);

    // Destroys the window.
    virtual ~tvWnd();

    // Wraps the control of a dialog: nothing happens if the wrapper is taken, or an argument is null.
    virtual void SubclassDlgItem(HWND parent, int id);
    // Attach, then OnSubclassed, whatever came of it.
    virtual void SubclassWindow(HWND handle);

    // --- Attaching ---

    // Wraps a window. True also for the one that is wrapped already; false for null, or if the wrapper is
    // taken.
    bool Attach(HWND handle);

    // Gives the window up, with its old procedure back in place, and destroys it if asked to. The wrapper can
    // be used again.
    enum class Window { Keep, Destroy };
    void Detach(Window then);

    [[nodiscard]] HWND Handle() const noexcept { return m_hWnd; }
    [[nodiscard]] bool IsAttached() const noexcept { return m_hWnd != nullptr; }

    // --- The window ---

    // The wrapper of a window, or null.
    static tvWnd* FromHandle(HWND handle) noexcept;

    // Takes style bits out and puts others in; 1 if that changed something, else 0.
    int ModifyStyle(DWORD remove, DWORD add) const;
    int ModifyStyleEx(DWORD remove, DWORD add) const;

    // The control with this id anywhere below a window; where ids come twice the deepest one.
    static HWND FindDescendant(HWND parent, int id);

    // 0 if no window is attached.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // The wrapper that takes the next window that is made (or whose dialog is). Null for none.
    static void SetCreating(tvWnd* wnd) noexcept;

    // Gives a new window, or new dialog, to the wrapper that is waiting for one. Null if none is, or if it
    // cannot take it.
    static tvWnd* TakeCreated(HWND handle);

    static LRESULT CALLBACK SharedProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    // --- Fields, in their order ---

    WNDPROC m_oldProc = nullptr;  // the procedure replaced; null if it was the shared one
    int m_minWidth = 0;           // least tracking size in pixels; 0: none
    int m_minHeight = 0;
    HFONT m_font = nullptr;  // the font that the window was given last
    // Set by the defaults of the reflected operations, cleared before each of them is called.
    u8 m_drawItemUnhandled = 0;
    u8 m_measureItemUnhandled = 0;
    u8 m_compareItemUnhandled = 0;
    HWND m_hWnd = nullptr;
};

// All wrappers by their windows.
class tvWndMap {
public:
    tvWndMap() = default;
    // Detaches the wrappers that are left, without destroying windows.
    ~tvWndMap();
    tvWndMap(const tvWndMap&) = delete;
    tvWndMap& operator=(const tvWndMap&) = delete;

    [[nodiscard]] tvWnd* Find(HWND handle) const noexcept;
    void Add(HWND handle, tvWnd* wnd) { m_Map[handle] = wnd; }
    void Remove(HWND handle) { m_Map.erase(handle); }
    [[nodiscard]] std::size_t Count() const noexcept { return m_Map.size(); }

    // The control that has its parent asked for a size at this moment, if that is known: it need not be
    // looked for then, which takes time.
    tvWnd* m_measured = nullptr;

private:
    std::map<HWND, tvWnd*> m_Map;
};

tvWndMap& TheWndMap();
