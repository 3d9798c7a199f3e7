// The hover buttons of the detail pane: which field the mouse is over, and what stands beside it.
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/right_dlg.h"

// They are asked for at every move of the mouse.
void CVMRRightDlg::SetHoverTip(const CVMRDynTipIconButton& button, int which) {
    static i32 language = -1;
    static tvstring texts[TIP_HIDE + 1];
    if (language != Language().LoadCount()) {
        language = Language().LoadCount();
        texts[TIP_RENAME] = LangText(u"itemdetail", u"rename_title");
        texts[TIP_MODIFY] = LangText(u"global", u"modify");
        texts[TIP_SHOW] = LangText(u"itemdetail", u"show_pwd");
        texts[TIP_HIDE] = LangText(u"itemdetail", u"hide_pwd");
    }
    SetWindowTextW(button.Handle(), Wide(texts[which].c_str()));
}

void CVMRRightDlg::UpdateShowHover() {
    constexpr u32 kShowImage = 111;
    constexpr u32 kHideImage = 112;
    const bool isShown = TheAppData().bShowPassword != 0;
    m_showHover.SetImage(isShown ? kHideImage : kShowImage);
    SetHoverTip(m_showHover, isShown ? TIP_HIDE : TIP_SHOW);
}

// On a hover button the mouse has left the pane, but not the field.
void CVMRRightDlg::OnMouseMove() {
    if (m_tracking == 0) TrackMouseLeaving(m_hWnd);
    m_tracking = 1;
    PlaceHover(false);
}

u16 CVMRRightDlg::FieldAt(const POINT& point) const {
    for (const auto& [type, field] : m_fields) {
        const bool isHit = PtInRect(&field.m_hitRect, point) != FALSE;
        if (isHit && type != VMRD_T_ADDITION) return type;
    }
    return 0;
}

void CVMRRightDlg::HideHover() {
    for (CVMRAutoHideButton* button :
         {static_cast<CVMRAutoHideButton*>(&m_modifyHover), static_cast<CVMRAutoHideButton*>(&m_showHover),
          &m_goHover, &m_copyHover})
        button->Show(false, nullptr);
}

void CVMRRightDlg::PlaceHover(bool hideAll) {
    if (hideAll) {
        HideHover();
        return;
    }
    m_hotField = FieldAt(MouseIn(m_hWnd));
    if (m_hotField == 0) {
        HideHover();
    } else {
        const FieldBox field = m_fields[m_hotField];  // which a paint would make anew
        PlaceBeside(field);
    }
}

// From the end of the value to the right. A value that is empty can only be modified, and so can the name.
void CVMRRightDlg::PlaceBeside(const FieldBox& field) {
    const RECT size = ClientOf(m_modifyHover.Handle());
    const LONG step = Width(size) + TheTheme().m_borderWidth;
    POINT place{field.m_textRect.right + TheTheme().m_borderWidth,
                field.m_textRect.top + Height(field.m_textRect) / 2 - Height(size) / 2};
    SetHoverTip(m_modifyHover, m_hotField == VMRD_T_ITEMNAME ? TIP_RENAME : TIP_MODIFY);
    m_modifyHover.Show(true, &place);

    const bool hasValue = m_hotField != VMRD_T_ITEMNAME && !ElementText(field.m_entry).empty();
    const auto showNext = [&](CVMRAutoHideButton& button, bool isShown) {
        if (isShown) place.x += step;
        button.Show(isShown, isShown ? &place : nullptr);
    };
    showNext(m_copyHover, hasValue);
    showNext(m_goHover, hasValue && m_hotField == VMRD_T_PROGRAM);
    showNext(m_showHover, hasValue && m_hotField == VMRD_T_PASSWORD);
}
