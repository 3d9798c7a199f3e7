// CVMRStatusBar, the status bar of the main window: the state of the database in small panes and, for a
// while, what a command has to tell.
#pragma once

#include "toolkit/status_bar.h"
#include "windows/app_notify.h"

class CVMRStatusBar : public tvStatusBar {
public:
    CVMRStatusBar();
    ~CVMRStatusBar() override;

    void DrawBack(HDC dc, const RECT& rect) override;
    void DrawLabel(HDC dc, const RECT& rect, const tvstring& text) override;

    // --- Virtual operations after those of tvStatusBar ---

    // APPN_LANGUAGE and APPN_STATUS.
    virtual void OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c);

    // --- Fields, in their order ---

    u8 m_isError = 0;  // the message that is shown is an error
    i32 m_total = 0;   // rows in the item list
    i32 m_selected = 0;

private:
    enum MessageKind { Information = 0, Error = 1, Warning = 2 };

    void ShowMessage(const char16_t* text, MessageKind kind);
    void Repaint();
    void DrawMessage(HDC dc, RECT rect, const tvstring& text) const;
    void DrawState(HDC dc, RECT rect) const;
    [[nodiscard]] bool IsMessageShown() const { return !m_message.m_text.empty(); }
    [[nodiscard]] tvstring Counts() const;
};
