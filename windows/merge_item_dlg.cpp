#include "windows/merge_item_dlg.h"

#include <algorithm>
#include <utility>

#include "database/database.h"
#include "foundation/language.h"
#include "foundation/textops.h"
#include "shell/statics.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "windows/dialog_layout.h"
#include "windows/set_control.h"
#include "windows/shown_text.h"

namespace {

constexpr u16 kRadio1 = 2007;
constexpr u16 kRadio2 = 2008;
constexpr i32 kWholeWidth = 100;
constexpr std::size_t kItems = 2;
constexpr UINT kPreviewFlags = DT_NOPREFIX | DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS;

// A text as a caption, in which a single "&" would mark a short cut.
tvstring AsCaption(tvstring text) {
    ReplaceAll(text, u"&", u"&&");
    return text;
}

// A name as long as there is room for it.
tvstring CutToFit(const tvstring& name, HFONT font, int width) {
    const tvClientDC screen(nullptr);
    const tvSelected selected(screen.Get(), font);
    return CutTextToWidth(name, screen.Get(), width);
}

tvstring InfoText() {
    return LangText(u"itemlist", u"merge_info");
}

}  // namespace

CVMRMergeItemDlg::CVMRMergeItemDlg() : m_okBtn(kWholeWidth), m_cancelBtn(kWholeWidth) {}

CVMRMergeItemDlg::~CVMRMergeItemDlg() {
    Detach(Window::Destroy);
}

// --- The template and the controls ---

void CVMRMergeItemDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(245, 180, DialogKind::Popup, 4);
    AddControl(ATOM_BUTTON, kRadio1, 7, 7, 231, 10)->style |= BS_AUTORADIOBUTTON;
    AddControl(ATOM_BUTTON, kRadio2, 7, 22, 231, 10)->style |= BS_AUTORADIOBUTTON;
    AddControl(ATOM_BUTTON, IDOK, 133, 159, 50, 14);
    AddControl(ATOM_BUTTON, IDCANCEL, 188, 159, 50, 14);
}

void CVMRMergeItemDlg::OnSubclassControls() {
    m_radio1.SubclassDlgItem(m_hWnd, kRadio1);
    m_radio2.SubclassDlgItem(m_hWnd, kRadio2);
    m_radio1.m_drawFlags |= DT_END_ELLIPSIS;
    m_radio2.m_drawFlags |= DT_END_ELLIPSIS;
    m_okBtn.SubclassDlgItem(m_hWnd, IDOK);
    m_cancelBtn.SubclassDlgItem(m_hWnd, IDCANCEL);
}

void CVMRMergeItemDlg::OnUpdateText() {
    SetText(*this, u"itemlist", u"merge_title");
    SetText(m_okBtn, u"global", u"ok");
    SetText(m_cancelBtn, u"global", u"cancel");
}

// The names come before the layout, since the height of a radio button hangs on its text.
bool CVMRMergeItemDlg::OnInitDialog() {
    CVMRBaseDlg::OnInitDialog();
    SetText(m_radio1, AsCaption(NameOf(0)));
    SetText(m_radio2, AsCaption(NameOf(1)));
    LayOut();
    ShowNames();
    m_radio1.Send(BM_SETCHECK, BST_CHECKED);
    m_radio2.Send(BM_SETCHECK, BST_UNCHECKED);
    BuildPreview(0);
    CenterWindow();
    return true;
}

// --- The names ---

tvstring CVMRMergeItemDlg::NameOf(std::size_t index) const {
    return index < m_Items.size() ? ElementText(m_Items[index]) : tvstring();
}

// The system cuts a caption off wherever it ends: where it paints the buttons, dots are put into the caption.
void CVMRMergeItemDlg::ShowNames() {
    std::size_t index = 0;
    for (tvCheckBox* radio : {&m_radio1, &m_radio2}) {
        tvstring name = NameOf(index++);
        if (radio->UsesSystemLook()) name = CutToFit(name, m_font, radio->LabelWidth());
        SetText(*radio, AsCaption(std::move(name)));
    }
}

// --- The preview ---

void CVMRMergeItemDlg::BuildPreview(std::size_t index) {
    m_Preview.clear();
    if (index >= m_Items.size()) return;
    VMRD_Entry* entries[3] = {};
    GetBasicEntries(AsItem(m_Items[index]), &entries[0], &entries[1], &entries[2]);
    for (const VMRD_Entry* entry : entries) {
        if (entry != nullptr) m_Preview.append(ShownText(*entry)).append(u"\r\n");
    }
}

bool CVMRMergeItemDlg::IsSecondChosen() const {
    return m_radio2.Send(BM_GETCHECK) == BST_CHECKED;
}

void CVMRMergeItemDlg::OnUpdateState() {
    BuildPreview(IsSecondChosen() ? 1 : 0);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);
}

// --- Layout ---

void CVMRMergeItemDlg::LayOut() {
    const tvTheme& theme = TheTheme();
    RECT content = ContentOf(ClientOf(m_hWnd));
    content.right = content.left + FittingContentWidth(Width(content), static_cast<int>(SizeOf(m_okBtn).cx));
    const int info = HeightOfText(m_hWnd, m_font, InfoText(), Width(content), kParagraphFlags);
    int top = LayOutRadios(content, static_cast<int>(content.top) + info + theme.m_marginY);
    top += HighestPreview(Width(content) - 2 * theme.m_marginX) + 2 * theme.m_marginY;
    PlaceOkAndCancel(m_okBtn, m_cancelBtn, static_cast<int>(content.right), top);
    content.bottom = top + SizeOf(m_okBtn).cy;
    SizeToContent(m_hWnd, content);
}

int CVMRMergeItemDlg::LayOutRadios(const RECT& content, int top) const {
    const int height = static_cast<int>(SizeOf(m_radio1).cy);
    const int second = top + height + TheTheme().m_borderWidth;
    Place(m_radio1, BoxAt(static_cast<int>(content.left), top, Width(content), height));
    Place(m_radio2, BoxAt(static_cast<int>(content.left), second, Width(content), height));
    return second + height + TheTheme().m_marginY;
}

// The frame has room for either item, and stays as it is when the user goes from one to the other.
int CVMRMergeItemDlg::HighestPreview(int width) {
    int highest = 0;
    for (std::size_t i = 0; i < m_Items.size(); ++i) {
        BuildPreview(i);
        highest = std::max(highest, HeightOfText(m_hWnd, m_font, m_Preview, width, kPreviewFlags));
    }
    return highest;
}

// --- Painting ---

void CVMRMergeItemDlg::OnPaintDlg(HDC dc, const RECT& rect) {
    const tvTheme& theme = TheTheme();
    const RECT content = ContentOf(rect);
    const tvSelected font(dc, m_font);
    DrawTextIn(dc, InfoText(), content, kParagraphFlags);
    RECT frame = content;
    frame.top = PlaceOf(m_radio2).bottom + theme.m_marginY / 2;
    frame.bottom = PlaceOf(m_okBtn).top - theme.m_marginY;
    DrawGroupFrame(dc, frame);
    DrawTextIn(dc, m_Preview, Inset(frame, theme.m_marginX, theme.m_marginY / 2), kPreviewFlags);
}

// --- What the user does ---

void CVMRMergeItemDlg::Merge() {
    if (m_Items.size() == kItems && IsSecondChosen()) std::swap(m_Items[0], m_Items[1]);
    TheDatabase().MergeItems(m_Items);
}

LRESULT CVMRMergeItemDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SYSCOLORCHANGE:
            if (lParam == reinterpret_cast<LPARAM>(&TheTheme())) {
                // They are posted it too, but their boxes have to be measured before there is room for names.
                for (const tvCheckBox* radio : {&m_radio1, &m_radio2})
                    radio->Send(message, wParam, lParam);
                ShowNames();
            }
            break;
        case WM_COMMAND:
            if (LOWORD(wParam) == kRadio1 || LOWORD(wParam) == kRadio2) OnUpdateState();
            if (LOWORD(wParam) == IDOK) Merge();
            break;
        default:
            break;
    }
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}
