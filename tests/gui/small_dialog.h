// A dialog of some buttons, and modal runs of it, for tests.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/gui/harness.h"

inline constexpr u16 kOk = IDOK;
inline constexpr u16 kCancel = IDCANCEL;
inline constexpr u16 kEdit = 100;

// A dialog of some buttons that does something when it starts.
class SmallDialog : public tvDialog {
public:
    explicit SmallDialog(std::initializer_list<u16> buttons = {}) {
        TemplateBegin(120, 60, DialogKind::Popup, 4);
        int x = 5;
        for (const u16 id : buttons) {
            AddControl(ATOM_BUTTON, id, x, 40, 30, 14);
            x += 35;
        }
    }
    void OnSubclassControls() override { m_Order += "S"; }
    bool OnInitDialog() override {
        m_Order += "I";
        if (m_OnInit) m_OnInit();
        return m_FocusIsFree;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NULL) ++m_Nulls;
        return tvDialog::WindowProc(message, wParam, lParam);
    }
    std::string m_Order;
    std::function<void()> m_OnInit;
    bool m_FocusIsFree = true;
    int m_Nulls = 0;
};

// The result of a modal run of which each step is done when it gives true.
inline int RunModal(SmallDialog& dialog, std::vector<std::function<bool()>> steps) {
    DuringModal during(std::move(steps));
    const int result = dialog.DoModal();
    EXPECT_TRUE(during.Done());
    return result;
}

// A step that is done at once.
inline std::function<bool()> Step(const std::function<void()>& action) {
    return [action] {
        action();
        return true;
    };
}

inline std::function<bool()> InFront(const SmallDialog& dialog) {
    return [&dialog] { return GetForegroundWindow() == dialog.Handle(); };
}
