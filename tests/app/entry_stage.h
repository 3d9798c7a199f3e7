// What tests of the list of entries share: a pane of the tests' own with such a list, for an item with
// entries.
#pragma once

#include "tests/app/item_stage.h"

// A window of its own with a list of entries, which does with its messages what the item's pane does.
class EntryPane : public CVMRBaseDlg {
public:
    ~EntryPane() override { Detach(Window::Destroy); }

    void BuildTemplate() override {
        if (HasTemplate()) return;
        TemplateBegin(200, 120, DialogKind::Popup, 1);
        AddControl(ATOM_LISTBOX, kItemListId, 7, 7, 186, 106)->style |=
            LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE;
    }
    void OnSubclassControls() override { m_list.SubclassDlgItem(m_hWnd, kItemListId); }
    void OnUpdateState() override { ++m_updates; }
    void OnPaintDlg(HDC, const RECT&) override { ++m_paints; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND) m_commands.push_back(LOWORD(wParam));
        EXPECT_FALSE(HandleListMessage(this, message, wParam, lParam, &m_list, true));
        return CVMRBaseDlg::WindowProc(message, wParam, lParam);
    }

    CVMREntryListBox m_list;
    std::vector<u16> m_commands;  // that arrived
    int m_updates = 0;
    int m_paints = 0;
};

class EntryTest : public ItemTest {
protected:
    ~EntryTest() override { m_Pane.Detach(tvWnd::Window::Destroy); }

    // The item "x" with the basic entries and additional ones of these texts, in the pane, which is in front
    // and has the keyboard.
    void OpenEntries(const std::vector<const char16_t*>& texts) {
        m_Item = Put(u"x");
        for (const char16_t* text : texts)
            AddEntryCopy(*m_Item, VMRD_Entry(VMRD_T_ADDITION, text), nullptr);
        OpenWindow();
        m_Pane.BuildTemplate();
        ASSERT_TRUE(m_Pane.Create(Window()));
        ShowWindow(m_Pane.Handle(), SW_SHOW);
        SetForegroundWindow(m_Pane.Handle());
        m_Pane.m_list.m_Source = m_Item;
        m_Pane.m_list.Refresh();
        SetFocus(EntryWindow());
        Settle(m_Pane.Handle());
        EXPECT_EQ(GetFocus(), EntryWindow());
        m_Pane.m_commands.clear();
    }

    [[nodiscard]] CVMREntryListBox& Entries() { return m_Pane.m_list; }
    [[nodiscard]] HWND EntryWindow() const { return m_Pane.m_list.Handle(); }
    [[nodiscard]] std::string EntryRows() const { return Shown(m_Pane.m_list); }
    // The texts of all entries: the basic ones are empty.
    [[nodiscard]] std::string AllEntries() const { return NamesOf(*m_Item); }

    void SelectEntries(const std::vector<int>& rows) {
        Entries().DeselectAll();
        for (const int row : rows)
            Entries().SetSel(row, true);
        EXPECT_TRUE(PumpUntil([this] { return Entries().m_selTimer.m_id == 0; }));
        PumpQueue();
        m_Pane.m_commands.clear();
    }
    void EntryCommand(u16 id, u16 code = 0) const { m_Pane.Send(WM_COMMAND, MAKEWPARAM(id, code), 0); }

    EntryPane m_Pane;
    ItemElement* m_Item = nullptr;
};
