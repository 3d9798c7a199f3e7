// An input dialog over the main window.
#pragma once

#include "tests/app/app_stage.h"
#include "toolkit/control_state.h"
#include "toolkit/theme.h"
#include "windows/input_dlg.h"

class InputDialogTest : public AppTest {
protected:
    static constexpr int kEdit1 = 2014;
    static constexpr int kEdit2 = 2015;
    static constexpr int kExtra = 2006;
    using Step = std::function<bool()>;

    InputDialogTest() {
        Open();
        Renew();
    }

    // A dialog is used once: this is the next one, for one line that can be read.
    void Renew() {
        m_Dialog = std::make_unique<CVMRInputDlg>();
        m_Dialog->m_Title = u"Title";
        m_Dialog->m_PlainText = 1;
    }
    void BeMultiLine() const {
        m_Dialog->m_PlainText = 0;
        m_Dialog->m_MultiLine = 1;
    }

    // Shows the dialog without its loop, with the keyboard in its first edit box.
    void Show() const {
        m_Dialog->BuildTemplate();
        ASSERT_TRUE(m_Dialog->Create(Window()));
        ShowWindow(m_Dialog->Handle(), SW_SHOW);
        SetForegroundWindow(m_Dialog->Handle());
        EXPECT_TRUE(PumpUntil([this] { return GetFocus() == Item(kEdit1); }));
        Settle(m_Dialog->Handle());
    }

    // Runs the dialog and carries out the steps, the last of which ends it.
    int Run(std::vector<Step> steps) const {
        steps.insert(steps.begin(), [this] {
            return m_Dialog->IsAttached() && FrontDialog() == m_Dialog->Handle() &&
                   GetFocus() == Item(kEdit1);
        });
        const DuringModal during(std::move(steps));
        return m_Dialog->RunModal();
    }

    // The control itself, not the scroll box around it.
    [[nodiscard]] HWND Item(int id) const { return tvWnd::FindDescendant(m_Dialog->Handle(), id); }
    [[nodiscard]] bool IsOkEnabled() const { return IsWindowEnabled(Item(IDOK)) != FALSE; }

    // As the user does it: boxes of several lines tell nothing of a text that is set.
    void Put(int id, const char16_t* text) const {
        SendMessageW(Item(id), EM_SETSEL, 0, -1);
        SendMessageW(Item(id), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
    }
    [[nodiscard]] Step Putting(int id, const char16_t* text) const {
        return [this, id, text] {
            Put(id, text);
            return true;
        };
    }
    // Ends a dialog whose buttons are its own affair.
    [[nodiscard]] Step Sending(int command) const {
        return [this, command] {
            PostMessageW(m_Dialog->Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
            return true;
        };
    }

    std::unique_ptr<CVMRInputDlg> m_Dialog;
};
