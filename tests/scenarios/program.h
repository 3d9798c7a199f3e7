// A running vaultmere.exe, seen from outside: its windows, and what a user does with them.
#pragma once

#include <gtest/gtest.h>

#include "foundation/tvstring.h"
#include "tests/gui/harness.h"

class Program {
public:
    Program() = default;
    ~Program();  // ends the process, whatever it is doing
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Starts it with these arguments and waits for its main window, which then is in front and asks nothing.
    // False, with a failure of the test, if none comes.
    bool Start(const tvstring& arguments = {});

    // Starts it with arguments that make it ask something at once; gives the dialog that asks. (To bring the
    // main window to the front meanwhile would take the keyboard from that dialog.) Null, with a failure of
    // the test, if none comes.
    HWND StartAsking(const tvstring& arguments);

    // The same for a copy of the program in another folder.
    bool StartCopy(const tvstring& program, const tvstring& arguments = {});

    // Starts a copy that gets no further than a message, and gives that: it has no other window. Null, with a
    // failure of the test, if none comes.
    HWND StartRefusing(const tvstring& program, const tvstring& arguments = {});

    // Starts it and waits for its end; gives its exit code.
    static DWORD Run(const tvstring& program, const tvstring& arguments);

    [[nodiscard]] HWND Main() const noexcept { return m_Main; }

    // A control of the main window or of one of its panes; null if there is none. Seen: and it is visible.
    [[nodiscard]] HWND Control(int id) const;
    [[nodiscard]] bool Sees(int id) const;

    // The dialog in front of the main window, once there is one; null after the limit.
    [[nodiscard]] HWND WaitForDialog(int limit = kWaitLimit) const;
    [[nodiscard]] HWND Dialog() const;
    [[nodiscard]] bool WaitForNoDialog() const;

    // The menu that is open, once there is one.
    [[nodiscard]] HMENU WaitForMenu() const;
    [[nodiscard]] bool WaitForNoMenu() const;

    // Opens the main menu by the keyboard, and chooses by a row's letter.
    void OpenMenuByKeyboard() const;
    void Choose(std::u16string_view letters) const;
    void ChooseByKeys(std::initializer_list<WORD> keys) const;

    // Brings the main window to the front.
    void Activate() const;

    // It has ended, and well.
    [[nodiscard]] bool HasEnded(int limit = kWaitLimit);

    // Closes the main window by the keyboard and waits for the end.
    [[nodiscard]] bool Quit();

private:
    void Begin(const tvstring& program, const tvstring& arguments);
    bool Launch(const tvstring& program, const tvstring& arguments);

    HANDLE m_Process = nullptr;
    DWORD m_Id = 0;
    HWND m_Main = nullptr;
};

// Types a key with Ctrl until what it is to bring about is there; false if that does not come. On a busy
// machine a window that comes to the front late may let go of Ctrl before the program has seen it: only if
// Ctrl is lost the key is typed again.
bool TypeWithControl(WORD key, const std::function<bool()>& effect, int limit = kWaitLimit);

tvstring TextOf(HWND window);

// A number that tells a picture of a window from another one.
u64 LookOf(HWND window);

// How many pixels of a window have this colour.
int CountPixels(HWND window, COLORREF color);
COLORREF ColorAt(HWND window, int x, int y);

// Each test has an empty registry and a folder of its own, and leaves a picture of the display in
// build/scenario-failed if it fails.
class Scenario : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] tvstring InFolder(const char16_t* name) const;

    // Answers a password dialog; with a second text if it has two fields.
    static void EnterTexts(std::u16string_view first, const char16_t* second = nullptr);

    // Makes a database file without the program.
    void MakeDatabase(const tvstring& path, const tvstring& name, const tvstring& password) const;

    static void UseStoredTheme(const tvstring& name);

    // Goes through a system's dialog for files, then the password dialog that follows it.
    static void EnterPath(const Program& program, const tvstring& path);

    tvstring m_Folder;
};
