// How two selected items of the list become one.
#include <memory>

#include "shell/statics.h"
#include "windows/left_dlg.h"
#include "windows/list_message.h"
#include "windows/merge_item_dlg.h"

namespace {

constexpr int kMergedItems = 2;

// While it lives a window and those in it paint nothing; afterwards they do so anew.
class WithoutRedraw {
public:
    explicit WithoutRedraw(HWND window) : m_Window(window) { SendMessageW(window, WM_SETREDRAW, FALSE, 0); }
    ~WithoutRedraw() {
        SendMessageW(m_Window, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(m_Window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
    WithoutRedraw(const WithoutRedraw&) = delete;
    WithoutRedraw& operator=(const WithoutRedraw&) = delete;

private:
    HWND m_Window;
};

}  // namespace

// From the dialog's OK to the new rows there is a row whose item the database no longer has.
void CVMRLeftDlg::MergeItems() {
    if (CountsOf(m_list).selected != kMergedItems) return;
    const auto dialog = std::make_unique<CVMRMergeItemDlg>();
    m_list.GetSelectedElements(&dialog->m_Items);
    if (dialog->m_Items.size() != kMergedItems) return;
    int result = 0;
    {
        const WithoutRedraw still(m_hWnd);
        result = dialog->RunModal();
    }
    if (result != IDOK) return;
    ShowDatabase();
    NotifyMainWindow(APPN_TOPBAR);
    m_list.TellStatus();
}
