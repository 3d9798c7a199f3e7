// An input dialog over the main window.
#pragma once

#include "tests/app/dialog_stage.h"
#include "toolkit/control_state.h"
#include "toolkit/theme.h"
#include "windows/input_dlg.h"

class InputDialogTest : public DialogTest<CVMRInputDlg> {
protected:
    static constexpr int kEdit1 = 2014;
    static constexpr int kEdit2 = 2015;
    static constexpr int kExtra = 2006;

    InputDialogTest() : DialogTest(kEdit1) {
        Open();
        Renew();
    }

    // For one line that can be read.
    void Renew() {
        DialogTest::Renew();
        m_Dialog->m_Title = u"Title";
        m_Dialog->m_PlainText = 1;
    }
    void BeMultiLine() const {
        m_Dialog->m_PlainText = 0;
        m_Dialog->m_MultiLine = 1;
    }

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
};
