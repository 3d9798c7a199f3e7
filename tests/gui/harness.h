// What tests of windows share: real input through the system's input queue, waiting for conditions while
// messages are dispatched, a dialog to be filled with controls, pixels, and counts of what is held.
//
// Nothing here sleeps for a fixed time: whatever takes time is waited for, with a limit.
//
// Under Wine the display has no window manager, and the prefix is set up by make_prefix of script/wine.sh:
// without that windows have no captions, and the mouse does not always get to where it is moved.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "foundation/tvstring.h"
#include "toolkit/base_dialog.h"

// --- Waiting ---

inline constexpr int kWaitLimit = 5000;  // milliseconds

// Dispatches messages as the modal loop does (through the application object and, if one is given, the
// dialog) until the condition holds. False if it does not within the limit. WM_QUIT is taken out and counts
// for nothing.
bool PumpUntil(const std::function<bool()>& condition, int limit = kWaitLimit, tvDialog* dialog = nullptr);

// Dispatches what is in the queue, paint messages included, and what comes of it, until the queue is empty.
void PumpQueue(tvDialog* dialog = nullptr);

// Carries out steps while a modal loop runs in the test's own thread: each is asked again and again until it
// gives true, then the next. Make it, then call DoModal or Show.
//
// Mouse and keyboard may be used in a step: what they cause reaches the modal loop after the step, before the
// next one. Paint messages and posted ones may be waited for in a step too; they go past the modal loop then.
//
// If a step, or the loop after the last one, does not come to an end within the limit the test has failed,
// and whatever dialog is in front is closed, again and again, so that the loop ends.
class DuringModal {
public:
    explicit DuringModal(std::vector<std::function<bool()>> steps, int limit = kWaitLimit);
    ~DuringModal();
    DuringModal(const DuringModal&) = delete;
    DuringModal& operator=(const DuringModal&) = delete;

    // All steps have been carried out.
    [[nodiscard]] bool Done() const noexcept { return m_Next == m_Steps.size(); }

    // A step is being carried out.
    static bool InStep() noexcept;

private:
    static void CALLBACK OnTick(HWND window, UINT message, UINT_PTR id, DWORD time);
    void Tick();

    std::vector<std::function<bool()>> m_Steps;
    std::size_t m_Next = 0;
    ULONGLONG m_Deadline = 0;
    int m_Limit;
    UINT_PTR m_Timer = 0;
    bool m_Failed = false;
    bool m_InStep = false;
};

// The visible dialog of this thread with this class name that stands in front, or null. An empty name: of any
// class.
HWND FrontDialog(const char16_t* className = u"");

// --- Mouse and keyboard; coordinates are pixels of the window's client area ---

// Modifier keys that are held while something is done, as bits.
enum Modifiers : unsigned { HOLD_NOTHING = 0, HOLD_SHIFT = 1, HOLD_CTRL = 2, HOLD_ALT = 4 };

enum class MouseButton { Left, Right, Middle };

// Each puts its events into the input queue and dispatches messages until the mouse has got there or the keys
// are where they should be; what the events cause may still be on its way, so wait for that with PumpUntil.
void MoveMouse(HWND window, int x, int y);
void MoveMouseTo(HWND window);  // to its middle
void MoveMouseAway();           // to the display's bottom right corner
void Press(MouseButton button = MouseButton::Left);
void Release(MouseButton button = MouseButton::Left);
void Click(HWND window, int x, int y, MouseButton button = MouseButton::Left, unsigned held = HOLD_NOTHING);
void Click(HWND window);  // in its middle, with the left button
void DoubleClick(HWND window, int x, int y);
void RollWheel(HWND window, int x, int y, int notches);

// A key by its virtual code, as VK_RETURN or 'C'.
void KeyDown(WORD key);
void KeyUp(WORD key);
void Type(WORD key, unsigned held = HOLD_NOTHING);
// Characters as such, whatever the keyboard.
void TypeText(std::u16string_view text);

// --- A dialog for tests ---

class TestDialog : public tvBaseDlg {
public:
    // In dialog units.
    explicit TestDialog(int cx = 200, int cy = 120, DialogKind kind = DialogKind::Popup);
    ~TestDialog() override;

    // Adds a control to the template, before Open, and styles to those that its class has.
    void Add(u16 atom, u16 id, int x, int y, int cx, int cy, u32 styles = 0);

    // A wrapper that takes the control with this id when the dialog is made. It has to live longer than the
    // dialog's window.
    void Wrap(tvWnd& wrapper, int id) { m_wraps.push_back({&wrapper, id}); }

    // Makes the window, shows it, brings it to the front and waits until it has the keyboard and is painted.
    // Fails the test if that does not come to pass.
    void Open();
    void Close();

    // Makes it the application's main window until it is closed.
    void BeMain();

    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(m_hWnd, id); }

    // --- What has happened ---

    struct Command {
        WORD id;
        WORD code;
        bool operator==(const Command&) const = default;
    };
    [[nodiscard]] int CountCommands(WORD id) const;

    std::vector<Command> m_commands;  // of WM_COMMAND
    std::vector<MSG> m_messages;      // all, if asked for
    bool m_keepMessages = false;
    // What the test does with the messages of the dialog: true ends one, with the result.
    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> m_onMessage;
    std::function<void()> m_onInit;  // after the wrappers have their controls
    std::function<void(HDC, const RECT&)> m_onPaint;

    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Wrapping {
        tvWnd* wrapper;
        int id;
    };
    std::vector<Wrapping> m_wraps;
};

// --- Pixels ---

// A copy of a window's client area, as it is on the display. Nothing is painted for it; call Settle first.
class Picture {
public:
    Picture() = default;
    explicit Picture(HWND window);

    [[nodiscard]] int Width() const noexcept { return m_Width; }
    [[nodiscard]] int Height() const noexcept { return m_Height; }
    // CLR_INVALID outside.
    [[nodiscard]] COLORREF At(int x, int y) const;
    // How many pixels of a rectangle have the colour.
    [[nodiscard]] int Count(const RECT& rect, COLORREF color) const;
    [[nodiscard]] int Count(COLORREF color) const;

    bool operator==(const Picture&) const = default;

    // A rectangle of it, cut to what there is.
    [[nodiscard]] Picture Part(const RECT& rect) const;

    // For looking at: a bitmap file.
    bool Save(const char* path) const;

private:
    int m_Width = 0;
    int m_Height = 0;
    std::vector<u32> m_Pixels;  // 0x00RRGGBB, rows from the top
};

// One pixel of a window's client area.
COLORREF PixelAt(HWND window, int x, int y);

// Dispatches until the window has nothing left to paint.
void Settle(HWND window);

// A memory context with a bitmap of 32 bits, for operations that draw: filled with one colour at first.
class Canvas {
public:
    Canvas(int width, int height, COLORREF color = RGB(255, 255, 255));
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    [[nodiscard]] HDC Dc() const noexcept { return m_Dc; }
    [[nodiscard]] COLORREF At(int x, int y) const { return GetPixel(m_Dc, x, y); }
    [[nodiscard]] int Count(COLORREF color) const;

private:
    HDC m_Dc;
    HBITMAP m_Bitmap;
    HGDIOBJ m_Old;
    int m_Width;
    int m_Height;
};

// --- Themes ---

// Puts a theme in force by its name, tells the window and all below it as the main window would be told, and
// waits until all is painted. Fails the test if there is none of this name.
void UseTheme(std::u16string_view name, HWND window = nullptr);

// The theme that was in force when it was made, again.
class KeepTheme {
public:
    KeepTheme();
    ~KeepTheme();
    KeepTheme(const KeepTheme&) = delete;
    KeepTheme& operator=(const KeepTheme&) = delete;

private:
    tvstring m_Name;
};

// --- What the process holds ---

// Compare two of them from the second round on: what the system keeps for later is made in the first. Under
// Wine user objects are those of all processes of the prefix.
struct Holdings {
    DWORD gdiObjects = 0;
    DWORD userObjects = 0;
    std::size_t heapBytes = 0;  // allocated from all heaps of the process
};
Holdings WhatIsHeld();
