// How the selected additional entries of an item become one, whose text the user reviews.
#include <memory>

#include "database/database.h"
#include "foundation/language.h"
#include "shell/statics.h"
#include "windows/input_dlg.h"
#include "windows/right_dlg.h"

namespace {

// The texts on lines of their own, without those that are empty. False if that is more than an entry can
// hold.
bool JoinTexts(const ElementArray& elements, tvstring& joined) {
    for (const VMRD_Element* element : elements) {
        const tvstring& text = ElementText(element);
        if (text.empty()) continue;
        if (!joined.empty()) joined.append(u"\r\n");
        joined.append(text);
        if (joined.size() > kLongestText) return false;
    }
    return true;
}

}  // namespace

void CVMRRightDlg::MergeEntries() {
    VMRD_Item* const item = m_Item;  // another one may come into the pane while the dialog is open
    if (item == nullptr) return;
    const auto dialog = std::make_unique<CVMRInputDlg>();
    dialog->m_PlainText = 1;
    dialog->m_MultiLine = 1;
    dialog->m_Title = LangText(u"itemdetail", u"merge_title");
    dialog->m_Info = LangText(u"itemdetail", u"merge_info");
    std::vector<int> rows;
    ElementArray elements;
    m_list.GetSelection(&rows, &elements);
    if (rows.size() < 2 || rows.size() != elements.size()) return;
    if (!JoinTexts(elements, dialog->m_Text)) {
        const tvstring text = LangText(u"itemdetail", u"err_merge_toolarge");
        NotifyMainWindow(APPN_STATUS, STATUS_ERROR, AsArgument(text.c_str()));
        return;
    }
    if (dialog->RunModal() != IDOK || dialog->m_Text.empty()) return;
    TheDatabase().MergeEntries(elements, dialog->m_Text, item);
    m_list.m_Source = m_Item;
    m_list.Refresh();
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);  // for the date
    NotifyMainWindow(APPN_TOPBAR);
    NotifyMainWindow(APPN_STATUS, STATUS_REPAINT);
}
