// What tests of the application share: a main window of this process, with an empty registry, a closed
// database and a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "database/database.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "tests/gui/harness.h"
#include "windows/main_dlg.h"

class AppTest : public testing::Test {
protected:
    // The settings are those of a first start under the theme "Light". There is no window yet.
    AppTest();
    ~AppTest() override;

    // Makes the main window as the program does, without its loop, and shows it. A test may bring a window of
    // a class of its own.
    void Open(std::unique_ptr<CVMRDlg> window = std::make_unique<CVMRDlg>());
    void Close();
    [[nodiscard]] CVMRDlg& Main() const { return *m_Main; }
    [[nodiscard]] HWND Window() const { return m_Main == nullptr ? nullptr : m_Main->Handle(); }

    // Carries out a command of the main window; returns when it is done, dialogs included (see DuringModal).
    void Command(u16 id) const;

    // A control of the main window or of one of its panes; null if there is none.
    [[nodiscard]] HWND Control(int id) const;

    // A dialog stands over the middle of the main window.
    void ExpectInTheMiddle(HWND dialog) const;

    [[nodiscard]] tvstring InFolder(const char16_t* name) const;

    // A database file, made without the window; the database of the application is closed afterwards.
    tvstring MakeFile(const char16_t* name, const tvstring& password) const;

private:
    std::unique_ptr<CVMRDlg> m_Main;
    tvstring m_Folder;
};

// A step for DuringModal: once a dialog is in front, puts these texts into its edit boxes and presses OK.
std::function<bool()> AnswerWith(tvstring first, tvstring second = {});

// A step for DuringModal: once a dialog is in front, presses its button with this id.
std::function<bool()> PressButton(int id);

tvstring TextOf(HWND window);

// Where a control stands in its dialog, and on the screen: with the scroll box that may be around it.
RECT OuterPlace(HWND control);
RECT OuterScreenPlace(HWND control);
