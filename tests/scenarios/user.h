// What a user does in the main window of a program that has a database open, with mouse and keyboard alone.
// Each returns when what it does can be seen from outside; if that does not come to pass the test fails and
// ends there.
#pragma once

#include <vector>

#include "tests/scenarios/program.h"

enum class List { Items, Entries };
enum class Field : std::size_t { Name, Program, UserName, Password };
enum class SearchMode : int { All, Exact, Any, Without };
enum class Order : int { None, AZ, ZA, NewOld, OldNew };

class User {
public:
    explicit User(const Program& program) : m_Program(program) {}

    // --- The database ---

    // "Create New Database..." with a name.
    void Create(std::u16string_view name) const;
    // Saves a database that has no file and no password yet.
    void SaveAs(const tvstring& path, std::u16string_view password) const;
    void Save() const;
    // By the cross of the window.
    [[nodiscard]] static bool Quit(Program& program);
    [[nodiscard]] bool IsChanged() const;
    void WaitUntilChanged() const;
    void WaitUntilUnchanged() const;
    // Takes so many changes back by the main menu, one after the other.
    void Undo(int times) const;

    // --- Lists; rows count from 0 ---

    [[nodiscard]] HWND ListOf(List list) const;
    [[nodiscard]] int CountRows(List list) const;
    void WaitForRows(List list, int count) const;
    // By a click.
    void Select(List list, int row) const;
    // By the menu of the list with the keyboard; again if somebody holds the clipboard for a moment.
    void Cut(List list, int rowsAfter) const;
    void Copy(const wchar_t* format) const;
    void Paste(List list, int rowsAfter) const;
    // From the first to the last one, with the right mouse button.
    void SelectRange(List list, int first, int last) const;
    // By Ctrl+A, in the list with the keyboard.
    void SelectAll(List list) const;
    // What a copy of the row leaves as text on the clipboard; the row is selected then.
    [[nodiscard]] tvstring RowText(List list, int row) const;
    [[nodiscard]] std::vector<tvstring> RowTexts(List list) const;
    [[nodiscard]] bool IsSelected(List list, int row) const;
    // Of the list with the keyboard, by the row's letter.
    void ChooseFromListMenu(WORD letter) const;

    // --- Items; those that are changed are the ones selected ---

    void AddItem(std::u16string_view name) const;
    void Rename(std::u16string_view name) const;
    void Search(std::u16string_view text) const;
    void SetSearchMode(SearchMode mode) const;
    void SearchInPasswords() const;
    void Sort(Order order) const;
    // With the row below, which gives the basic entries.
    void MergeItemIntoTheNext(int row) const;

    // --- The item that is shown ---

    void Modify(Field field, std::u16string_view text) const;
    // Gives what was generated.
    [[nodiscard]] tvstring GeneratePassword() const;
    [[nodiscard]] tvstring CopyField(Field field) const;
    void TogglePassword() const;
    // Takes the mouse away, and waits until no button stands beside a field.
    void PointAtNothing() const;
    // Line breaks are CR LF.
    void AddEntry(const tvstring& text) const;
    void MergeEntries(int first, int last) const;

    [[nodiscard]] HWND LeftPane() const { return PaneOf(2003); }
    [[nodiscard]] HWND RightPane() const { return PaneOf(2010); }

private:
    // The child of the main window that holds the control.
    [[nodiscard]] HWND PaneOf(int id) const;
    [[nodiscard]] HWND WaitForDialog() const;
    // A dialog with one edit box, from what it holds now to OK.
    void Answer(std::u16string_view text) const;
    void PressOk(HWND dialog) const;
    [[nodiscard]] HWND OpenDialogAt(Field field) const;
    void PointAt(Field field) const;
    void ClickBesideUntil(Field field, int button, const std::function<bool()>& condition,
                          const char* what) const;
    [[nodiscard]] int HoverPlace() const;
    void FindFields() const;
    void Sweep(int moment) const;
    void OpenMainMenu() const;
    // A click that is lost, as under load some are, is made again: only for what a second click cannot undo.
    static void ClickUntil(HWND window, const std::function<bool()>& condition, const char* what);
    [[nodiscard]] HWND OpenDialogBy(HWND button) const;
    void ChooseUntil(WORD letter, const std::function<bool()>& condition, const char* what) const;
    [[nodiscard]] int MiddleOf(List list, int row) const;
    void ChooseSearchOption(int downs) const;

    const Program& m_Program;
    mutable std::vector<int> m_Fields;  // where they are in the pane, from the top; empty until asked for
};

// Waits; if it does not come to pass the test ends with this message.
void Require(const std::function<bool()>& condition, const char* what);

void ClearClipboard();
[[nodiscard]] bool IsTextOnTheClipboard();
[[nodiscard]] bool IsOnTheClipboard(const wchar_t* format);
// Once there is one; the test ends if none comes.
[[nodiscard]] tvstring ClipboardText();
