// What the tests of scroll boxes share: a dialog with an edit control that has the keyboard at first, and an
// edit box of several lines, or a list, in a scroll box.
#pragma once

#include <string>

#include "tests/gui/button_stage.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/edit.h"
#include "toolkit/list_box.h"
#include "toolkit/rect.h"

inline constexpr u16 kBefore = 10;  // has the keyboard at first
inline constexpr u16 kHosted = 30;
inline constexpr u16 kBehind = 31;
inline constexpr u32 kLinesStyle = ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL;
inline constexpr u32 kListStyle = LBS_OWNERDRAWVARIABLE | LBS_NOINTEGRALHEIGHT | WS_VSCROLL;

// The position that a window's vertical bar stands at.
inline int ScrolledTo(HWND window) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    return GetScrollInfo(window, SB_VERT, &info) != FALSE ? info.nPos : -1;
}

inline int LastPosition(HWND window) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    return GetScrollInfo(window, SB_VERT, &info) != FALSE ? info.nMax - static_cast<int>(info.nPage) + 1 : -1;
}

template <typename Wrapper>
class BoxStage {
public:
    explicit BoxStage(std::u16string_view theme, u16 atom, u32 styles, int height = 70) {
        UseTheme(theme);
        MoveMouseAway();
        dialog.Add(ATOM_EDIT, kBefore, 5, 5, 80, 12);
        dialog.Add(atom, kHosted, 20, 25, 120, height, styles);
        dialog.Add(ATOM_BUTTON, kBehind, 20, 100, 60, 14);
        dialog.Wrap(control, kHosted);
        dialog.m_keepMessages = true;
        dialog.Open();
        Settle(dialog.Handle());
    }

    [[nodiscard]] HWND Control() const { return control.Handle(); }
    [[nodiscard]] HWND Host() const { return control.m_scrollBox.Handle(); }
    [[nodiscard]] tvScrollBox& Box() { return control.m_scrollBox; }
    [[nodiscard]] RECT Part(int part) const {
        return control.m_scrollBox.m_parts[static_cast<std::size_t>(part)];
    }
    [[nodiscard]] POINT MiddleOf(int part) const {
        const RECT rect = Part(part);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    [[nodiscard]] Picture Look() const {
        Settle(dialog.Handle());
        return Picture(Host());
    }
    // The parent has got this message, from now on and as long as is waited for.
    [[nodiscard]] bool Hears(UINT message, WPARAM wParam) {
        return PumpUntil([&] {
            for (const MSG& got : dialog.m_messages)
                if (got.message == message && got.wParam == wParam) return true;
            return false;
        });
    }

    KeepTheme keep;
    Wrapper control;
    TestDialog dialog{200, 130};
};

// Thirty lines, of which about eight can be seen.
class LinesStage : public BoxStage<tvEdit> {
public:
    explicit LinesStage(std::u16string_view theme = kDark, u32 styles = kLinesStyle, int height = 70)
        : BoxStage(theme, ATOM_EDIT, styles, height) {
        std::wstring text = L"Line 0";
        for (int i = 1; i < 30; ++i)
            text += L"\r\nLine " + std::to_wstring(i);
        SetWindowTextW(Control(), text.c_str());
        Settle(dialog.Handle());
        if (Host() != nullptr) Box().Update();
        Settle(dialog.Handle());
    }
    [[nodiscard]] int TopLine() const { return static_cast<int>(control.Send(EM_GETFIRSTVISIBLELINE)); }
};

class RowsStage : public BoxStage<tvMListBox> {
public:
    explicit RowsStage(std::u16string_view theme = kDark, int rows = 40, u32 styles = kListStyle)
        : BoxStage(theme, ATOM_LISTBOX, styles) {
        AddRows(rows);
    }
    void AddRows(int count) {
        {
            const tvMListBox::Bulk bulk(control);
            for (int i = 0; i < count; ++i)
                control.AddItem(u"A row");
        }
        PumpQueue();
        Settle(dialog.Handle());
    }
    [[nodiscard]] int TopRow() const { return static_cast<int>(control.Send(LB_GETTOPINDEX)); }
};
