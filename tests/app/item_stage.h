// What tests of the item list share: a main window that notes what its panes tell it, with a database of
// named items.
#pragma once

#include <string>
#include <vector>

#include "tests/app/app_stage.h"
#include "tests/app/ink.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"
#include "windows/list_message.h"

// Notes, in order, what it is told, but for what is told while it hands something on. A note is a name with
// arguments, as "TOPBAR", "COUNTS 3 1", "ERROR Text", "SHOWITEM Name".
class TellingDlg : public CVMRDlg {
public:
    void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) override;

    // All notes with "; " between; they are gone afterwards.
    std::string Told();

private:
    std::string m_notes;
    int m_depth = 0;
};

// The names of a list's rows, each in brackets, a selected one with a star: "[a][b*]".
template <typename List>
std::string Shown(const List& list) {
    std::string names;
    for (int row = 0; row < list.GetCount(); ++row) {
        names.append("[");
        for (const char16_t unit : ElementText(list.ElementOf(row)))
            names += static_cast<char>(unit);
        names.append(list.GetSel(row) > 0 ? "*]" : "]");
    }
    return names;
}

// The same of a model's elements.
template <typename Elements>
std::string NamesOf(const Elements& elements) {
    std::string names;
    for (const auto* element = elements.m_Head; element != nullptr; element = element->m_Next) {
        names.append("[");
        for (const char16_t unit : ElementText(element))
            names += static_cast<char>(unit);
        names.append("]");
    }
    return names;
}

class ItemTest : public AppTest {
protected:
    ItemTest();

    // Appends an item behind the program's back, with three empty basic entries.
    static ItemElement* Put(const tvstring& name, u64 date = 0);

    // The window with a database of these items, or of numbered ones, unchanged and without a history, in
    // front with the mouse away and the keyboard in the list.
    void OpenWith(const std::vector<const char16_t*>& names);
    void OpenWith(int count);
    void OpenWindow();

    [[nodiscard]] TellingDlg& Telling() const { return dynamic_cast<TellingDlg&>(Main()); }
    [[nodiscard]] CVMRLeftDlg& Pane() const { return Main().m_leftDlg; }
    [[nodiscard]] CVMRItemListBox& List() const { return Pane().m_list; }
    [[nodiscard]] HWND ListWindow() const { return List().Handle(); }
    [[nodiscard]] std::string Rows() const { return Shown(List()); }
    static std::string Items() { return NamesOf(static_cast<ItemList&>(TheDatabase())); }

    // What the main window is told while this is done.
    template <typename Action>
    std::string Doing(Action action) const {
        PumpQueue();
        Telling().Told();
        action();
        return Telling().Told();
    }

    // Selects these rows alone, and waits until everybody knows.
    void Select(const std::vector<int>& rows) const;
    // Notices of a selection that are still on their way have arrived.
    void AwaitNotice() const;

    void PaneCommand(u16 id, u16 code = 0) const;
    void FocusList() const;

    // In the list's client area, and on the screen.
    [[nodiscard]] POINT MiddleOf(int row) const;
    [[nodiscard]] POINT OnScreen(POINT point) const;
    void ClickRow(int row, MouseButton button = MouseButton::Left, unsigned held = HOLD_NOTHING) const;

    void SearchFor(const char16_t* text) const;
    void ChooseOrder(int order) const;

    static void EmptyTheClipboard();
};

// The formats on the clipboard, as numbers in the order of the system.
std::vector<u32> FormatsOnClipboard();

// Carries out an action that opens the item menu: once it is open it is looked at, in its place on the
// screen, and closed.
void WithItemMenu(const std::function<void(const RECT&)>& look, const std::function<void()>& action);
bool IsMenuOpen();
