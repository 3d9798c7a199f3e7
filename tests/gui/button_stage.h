// What the tests of buttons share: a dialog with an edit control, which has the keyboard at first, and one
// button.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/gui/harness.h"
#include "toolkit/button.h"
#include "toolkit/theme.h"

inline constexpr u16 kEdit = 10;
inline constexpr u16 kButton = 20;

inline constexpr std::u16string_view kLight = u"Light";
inline constexpr std::u16string_view kDark = u"Dark";
inline constexpr std::u16string_view kSystem = u"System Default";

template <typename Wrapper = tvButton>
class Stage {
public:
    explicit Stage(std::u16string_view theme = kLight, u32 styles = 0, const char16_t* caption = u"Caption")
        : Stage(theme, styles, caption, [](TestDialog&) {}) {}

    // `more` adds what else is to be in the dialog.
    template <typename More>
    Stage(std::u16string_view theme, u32 styles, const char16_t* caption, More more) {
        UseTheme(theme);
        MoveMouseAway();
        dialog.Add(ATOM_EDIT, kEdit, 5, 5, 80, 12);
        dialog.Add(ATOM_BUTTON, kButton, 20, 30, 60, 16, styles);
        dialog.Wrap(button, kButton);
        more(dialog);
        dialog.m_onInit = [this, caption] { SetWindowTextW(button.Handle(), Wide(caption)); };
        dialog.Open();
    }

    [[nodiscard]] HWND Window() const { return button.Handle(); }
    [[nodiscard]] Picture Look() const {
        Settle(button.Handle());
        return Picture(button.Handle());
    }

    KeepTheme keep;
    Wrapper button;
    TestDialog dialog;
};

inline DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

// The low four bits: 11 is owner-drawn.
inline DWORD TypeOf(HWND window) {
    return StyleOf(window) & BS_TYPEMASK;
}

inline tvstring TextOf(HWND window) {
    wchar_t text[200] = {};
    GetWindowTextW(window, text, 200);
    return tvstring(platform::Units(text));
}

// Sees the messages that are taken out of this thread's queue.
class TakenKeys {
public:
    TakenKeys() : m_Hook(SetWindowsHookExW(WH_GETMESSAGE, &OnMessage, nullptr, GetCurrentThreadId())) {
        s_KeyUps = 0;
    }
    ~TakenKeys() { UnhookWindowsHookEx(m_Hook); }
    TakenKeys(const TakenKeys&) = delete;
    TakenKeys& operator=(const TakenKeys&) = delete;

    [[nodiscard]] static int KeyUps() { return s_KeyUps; }

private:
    static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
        const auto* message = reinterpret_cast<const MSG*>(lParam);  // NOLINT(performance-no-int-to-ptr)
        if (code == HC_ACTION && wParam == PM_REMOVE && message->message == WM_KEYUP) ++s_KeyUps;
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    inline static int s_KeyUps = 0;
    HHOOK m_Hook;
};

// Types a key as the modal loop of a dialog sees it, where Enter and Tab belong to the dialog.
inline void TypeInDialog(TestDialog& dialog, WORD key) {
    const TakenKeys taken;
    INPUT inputs[2] = {};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    ASSERT_EQ(SendInput(2, inputs, sizeof inputs[0]), 2U);
    EXPECT_TRUE(PumpUntil([] { return TakenKeys::KeyUps() > 0; }, kWaitLimit, &dialog));
    PumpQueue(&dialog);
}

inline void Focus(TestDialog& dialog, HWND control) {
    dialog.Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    Settle(dialog.Handle());
    ASSERT_EQ(GetFocus(), control);
}

// Has an owner-drawn button painted into a canvas, as if the system had asked for it with this state.
inline void PaintInto(const Canvas& canvas, HWND button, UINT state) {
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(button));
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = state;
    item.hwndItem = button;
    item.hDC = canvas.Dc();
    GetClientRect(button, &item.rcItem);
    const auto font = SendMessageW(button, WM_GETFONT, 0, 0);
    const tvSelected selected(canvas.Dc(),
                              reinterpret_cast<HGDIOBJ>(font));  // NOLINT(performance-no-int-to-ptr)
    SendMessageW(GetParent(button), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

inline SIZE SizeOf(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return {rect.right, rect.bottom};
}

// Its size and a canvas of that size, filled with a colour that no theme has.
struct Sheet {
    explicit Sheet(HWND window)
        : size(SizeOf(window)),
          canvas(static_cast<int>(size.cx), static_cast<int>(size.cy), RGB(255, 0, 255)) {}
    Sheet(HWND window, UINT state) : Sheet(window) { PaintInto(canvas, window, state); }

    [[nodiscard]] COLORREF At(int x, int y) const { return canvas.At(x, y); }
    // From the right and from the bottom.
    [[nodiscard]] COLORREF AtEnd(int x, int y) const {
        return canvas.At(static_cast<int>(size.cx) - 1 - x, static_cast<int>(size.cy) - 1 - y);
    }
    [[nodiscard]] int Count(COLORREF color) const { return canvas.Count(color); }
    [[nodiscard]] RECT ExtentOf(COLORREF color) const {
        RECT found{};
        for (int y = 0; y < size.cy; ++y) {
            for (int x = 0; x < size.cx; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                if (canvas.At(x, y) == color) UnionRect(&found, &found, &pixel);
            }
        }
        return found;
    }
    bool operator==(const Sheet& other) const {
        if (size.cx != other.size.cx || size.cy != other.size.cy) return false;
        for (int y = 0; y < size.cy; ++y)
            for (int x = 0; x < size.cx; ++x)
                if (At(x, y) != other.At(x, y)) return false;
        return true;
    }

    SIZE size;
    Canvas canvas;
};

// A window's place in its parent.
inline RECT PlaceIn(HWND parent, HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// The window that stands for a control in its dialog: the scroll box around it, if there is one.
inline HWND OuterOf(HWND dialog, HWND control) {
    while (control != nullptr && GetAncestor(control, GA_PARENT) != dialog)
        control = GetAncestor(control, GA_PARENT);
    return control;
}

// The rectangle that holds all pixels of a colour; empty if there are none.
inline RECT Extent(const Picture& picture, COLORREF color) {
    RECT found{};
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (picture.At(x, y) == color) UnionRect(&found, &found, &pixel);
        }
    }
    return found;
}

// The rectangle that holds all pixels that have another colour than this one, inside `within`.
inline RECT ExtentOfOthers(const Picture& picture, COLORREF color, const RECT& within) {
    RECT found{};
    for (int y = within.top; y < within.bottom; ++y) {
        for (int x = within.left; x < within.right; ++x) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (picture.At(x, y) != color) UnionRect(&found, &found, &pixel);
        }
    }
    return found;
}

// Names of tests that run under each theme.
inline std::string ThemeName(const testing::TestParamInfo<std::u16string_view>& info) {
    std::string name;
    for (const char16_t unit : info.param)
        if (unit != u' ') name += static_cast<char>(unit);
    return name;
}

class EachTheme : public testing::TestWithParam<std::u16string_view> {
protected:
    [[nodiscard]] static bool IsColored() { return GetParam() != kSystem; }
};

#define UNDER_EACH_THEME(Suite)        \
    class Suite : public EachTheme {}; \
    INSTANTIATE_TEST_SUITE_P(Themes, Suite, testing::Values(kLight, kDark, kSystem), ThemeName)
#define UNDER_COLOR_THEMES(Suite)      \
    class Suite : public EachTheme {}; \
    INSTANTIATE_TEST_SUITE_P(Themes, Suite, testing::Values(kLight, kDark), ThemeName)

// Notes the messages that a wrapper hands on to the window's own procedure.
class HandedOn {
public:
    explicit HandedOn(tvWnd& wrapper) : m_Wrapper(wrapper), m_Proc(wrapper.m_oldProc) {
        s_Current = this;
        wrapper.m_oldProc = &Note;
    }
    ~HandedOn() {
        m_Wrapper.m_oldProc = m_Proc;
        s_Current = nullptr;
    }
    HandedOn(const HandedOn&) = delete;
    HandedOn& operator=(const HandedOn&) = delete;

    // The arguments of the messages with this number.
    [[nodiscard]] std::vector<WPARAM> Of(UINT message) const {
        std::vector<WPARAM> found;
        for (const auto& [number, wParam] : m_Messages)
            if (number == message) found.push_back(wParam);
        return found;
    }
    void Clear() { m_Messages.clear(); }

private:
    static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        s_Current->m_Messages.emplace_back(message, wParam);
        return CallWindowProcW(s_Current->m_Proc, window, message, wParam, lParam);
    }

    inline static HandedOn* s_Current = nullptr;
    tvWnd& m_Wrapper;
    WNDPROC m_Proc;
    std::vector<std::pair<UINT, WPARAM>> m_Messages;
};
