// A dialog of the program over the main window. It is used once: Renew makes the next one.
#pragma once

#include "tests/app/app_stage.h"

template <typename Dialog>
class DialogTest : public AppTest {
protected:
    using Step = std::function<bool()>;

    // With the id of the control that has the keyboard at first.
    explicit DialogTest(int firstControl) : m_FirstControl(firstControl) {}

    void Renew() { m_Dialog = std::make_unique<Dialog>(); }

    // Shows the dialog without its loop, with the keyboard in its first control.
    void Show() const {
        m_Dialog->BuildTemplate();
        ASSERT_TRUE(m_Dialog->Create(Window()));
        ShowWindow(m_Dialog->Handle(), SW_SHOW);
        SetForegroundWindow(m_Dialog->Handle());
        EXPECT_TRUE(PumpUntil([this] { return HasKeyboard(); }));
        Settle(m_Dialog->Handle());
    }

    // Runs the dialog and carries out the steps, the last of which ends it.
    int Run(std::vector<Step> steps) const {
        steps.insert(steps.begin(), [this] {
            return m_Dialog->IsAttached() && FrontDialog() == m_Dialog->Handle() && HasKeyboard();
        });
        const DuringModal during(std::move(steps));
        return m_Dialog->RunModal();
    }

    // The control itself, not the scroll box around it.
    [[nodiscard]] HWND Item(int id) const { return tvWnd::FindDescendant(m_Dialog->Handle(), id); }

    std::unique_ptr<Dialog> m_Dialog;

private:
    [[nodiscard]] bool HasKeyboard() const { return GetFocus() == Item(m_FirstControl); }

    int m_FirstControl;
};
