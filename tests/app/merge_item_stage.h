// The dialog that merges two items, over the main window with a database of two items.
#pragma once

#include "tests/app/dialog_stage.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/merge_item_dlg.h"

// The entries of an item as "type text", one behind the other, with "; " between them.
inline std::string EntriesOf(const VMRD_Item& item) {
    std::string all;
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        if (!all.empty()) all.append("; ");
        all.append(std::to_string(entry->m_Type)).append(" ");
        for (const char16_t unit : entry->m_Text)
            all.push_back(static_cast<char>(unit));
    }
    return all;
}

class MergeItemTest : public DialogTest<CVMRMergeItemDlg> {
protected:
    static constexpr int kRadio1 = 2007;
    static constexpr int kRadio2 = 2008;

    MergeItemTest() : DialogTest(kRadio1) {
        TheAppData().bShowPassword = 0;
        EXPECT_TRUE(TheDatabase().New(u"Database"));
        m_First = TheDatabase().m_Head;
        m_First->m_Name = u"First";
        Fill(*m_First, u"one.exe", u"ann", u"pass one");
        AddEntryCopy(*m_First, VMRD_Entry(VMRD_T_ADDITION, u"note one"), nullptr);
        m_Second = TheDatabase().AddNewItem(&TheDatabase());
        m_Second->m_Name = u"Second";
        Fill(*m_Second, u"two.exe", u"bob", u"pass two");
        TheDatabase().m_Undo.Clear();
        TheDatabase().m_Changed = false;
        Open();
        Renew();
    }
    ~MergeItemTest() override {
        m_Dialog.reset();
        TheAppData().bShowPassword = 0;
    }

    // Texts of an item's basic entries.
    static void Fill(VMRD_Item& item, const char16_t* program, const char16_t* username,
                     const char16_t* password) {
        VMRD_Entry* entries[3] = {};
        GetBasicEntries(&item, &entries[0], &entries[1], &entries[2]);
        entries[0]->m_Text = program;
        entries[1]->m_Text = username;
        entries[2]->m_Text = password;
    }
    // Takes an item's entry of a type out.
    static void Drop(VMRD_Item& item, u16 type) {
        for (EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
            if (entry->m_Type != type) continue;
            item.Unlink(entry, Unlinked::Destroy);
            return;
        }
    }

    void Renew() {
        DialogTest::Renew();
        m_Dialog->m_Items = {m_First, m_Second};
    }

    void Show() const {
        DialogTest::Show();
        MoveMouseAway();
        Settle(m_Dialog->Handle());
    }
    [[nodiscard]] Step Clicking(int id) const {
        return [this, id] {
            Click(Item(id));
            return true;
        };
    }
    // Waits until this one of the items is chosen, and no other.
    [[nodiscard]] Step SeeingChosen(int id) const {
        return [this, id] {
            const auto isChecked = [this](int radio) {
                return SendMessageW(Item(radio), BM_GETCHECK, 0, 0) == BST_CHECKED;
            };
            return isChecked(id) && !isChecked(id == kRadio1 ? kRadio2 : kRadio1);
        };
    }
    [[nodiscard]] RECT PlaceOf(int id) const { return PlaceInParent(Item(id)); }

    ItemElement* m_First = nullptr;
    ItemElement* m_Second = nullptr;
};
