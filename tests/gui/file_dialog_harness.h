// File dialogs under test, in a folder of their own.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "tests/gui/message_box_harness.h"
#include "toolkit/com_pointer.h"
#include "toolkit/file_dialog.h"

// Notes what the modern dialog was told before it was shown.
class FileDialogUnderTest : public tvFileDialog {
public:
    bool OnBeforeShow(IFileDialog* dialog) override;
    void OnAfterShow(IFileDialog* dialog) override;

    bool m_goOn = false;  // show it
    int m_before = 0;
    int m_after = 0;
    DWORD m_options = 0;
    UINT m_typeIndex = 0;
    tvstring m_shownFolder;
    tvstring m_name;
    bool m_isSave = false;
    std::size_t m_resultsAfter = 99;  // how many there were at OnAfterShow
};

// A dialog as main window, and a folder with a.txt, b.txt and the folder "inner".
class FileDialogTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] tvstring InFolder(const tvstring& name) const;

    // Steps that wait for the system's dialog in front, put a name into its field and press Enter.
    std::vector<BoxUnderTest::Step> TypeName(const tvstring& name);
    BoxUnderTest::Step WaitForDialog();
    // The field for a name in the dialog, or null.
    [[nodiscard]] HWND NameField() const;

    TestDialog m_Main{300, 200};
    tvstring m_Folder;  // with a backslash
    HWND m_Shown = nullptr;
};

// The same path whatever the case of its letters.
testing::AssertionResult IsPath(const tvstring& actual, const tvstring& expected);
