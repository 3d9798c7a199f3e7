// What the panes of both lists do alike: the commands on their list and its context menu.
#pragma once

#include "windows/base_dlg.h"
#include "windows/item_list_box.h"

// The list's id in either pane.
inline constexpr u16 kItemListId = 2005;

// To be called by a pane's WindowProc with each message, before its own handling. Carries out the commands of
// the list, but for Add and Modify of entries, and Merge, which are the pane's own, and opens the menu of the
// list. Always false: the message goes on.
template <typename TOwner, typename TElement>
bool HandleListMessage(CVMRBaseDlg* pane, UINT message, WPARAM wParam, LPARAM lParam,
                       CVMRListBox<TOwner, TElement>* list, bool isEntryList);

extern template bool HandleListMessage(CVMRBaseDlg*, UINT, WPARAM, LPARAM, CVMRItemListBox*, bool);
extern template bool HandleListMessage(CVMRBaseDlg*, UINT, WPARAM, LPARAM, CVMREntryListBox*, bool);

// The numbers that the menu of the list and the buttons of its pane depend on.
struct ListCounts {
    int rows;
    int selected;
};
ListCounts CountsOf(const tvMListBox& list);

// Enables or disables a button of the list's pane. The keyboard goes from a button that has it to the list:
// disabled, the button would keep it, and no key would do anything.
void EnableListButton(const CVMRBaseDlg& pane, const tvMListBox& list, const tvWnd& button, bool enabled);

// Sets up the menu of the list; false if it must not be opened.
bool UpdateItemMenu(const tvMListBox* list, bool isEntryList);

// The pane's part of APPN_FORWARDCMD: a command that comes from this list is posted to the pane.
void ForwardListCommand(const CVMRBaseDlg& pane, const tvMListBox& list, NotifyArgument id,
                        NotifyArgument window);
