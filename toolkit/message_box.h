// tvMessageBox, a message with buttons, in the colours of the theme and the language of the program. It takes
// the styles of the system's own message box and gives its results.
#pragma once

#include "toolkit/base_dialog.h"
#include "toolkit/check_box.h"
#include "toolkit/message_box_buttons.h"
#include "toolkit/message_box_layout.h"
#include "toolkit/message_text.h"
#include "toolkit/timer.h"

// Icons that the system's message box has not.
enum MessageIcon : u32 { MESSAGE_ICON_TICK = 0x70, MESSAGE_ICON_NONE = 0x80 };

class tvMessageBox : public tvBaseDlg {
public:
    tvMessageBox();

    // Shows a message and waits for the answer: a MessageButton. -1 if the box cannot be made. Without a
    // title it has the program's name for one. The box stands over whatever the program has in front;
    // `parent` says whose screen its size goes by.
    static int Show(HWND parent, const tvstring& text, u32 style, const tvstring& title);

    // The same with what was set below.
    int Run(HWND parent, const tvstring& text, u32 style, const tvstring& title);

    // Adds a check box. The text has to live as long as the box; null for none. What it was at the end is in
    // m_checkValue.
    void SetCheck(const char16_t* text, u32 value);

    // Answers with this button when the time is over, and lets the check box be `checkResult` then. With
    // negative seconds nothing is shown at all.
    void SetCountDown(i32 seconds, u32 buttonId, bool checkResult);

    // The button's text in the language of the program; an empty one for the system's.
    static void SetButtonText(int id, const tvstring& text);
    static tvstring GetButtonText(int id, const char16_t* newText, bool forceNew);

    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnPaintDlg(HDC dc, const RECT& rect) override;
    bool PreTranslateMsg(MSG* msg) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Gives an answer after a while.
    struct _countDown : tvWndTimer {
        // The button, if it is to be answered without showing anything; else 0.
        [[nodiscard]] int AutoAnswer(const MessageButtonSet& buttons) const;
        // The button's text with the seconds that remain.
        [[nodiscard]] tvstring Label() const;

        u32 m_elapsed = 0;  // seconds
        tvstring m_label;   // the button's own text
        i32 m_seconds = 0;  // 0: none
        u32 m_buttonId = 0;
        u8 m_checkResult = 0;
    };

    // --- Fields, in their order ---

    u32 m_style = 0;
    HICON m_icon = nullptr;  // of the theme
    tvstring m_title;
    tvstring m_heading;  // in a large font; none if it is empty
    tvstring m_text;
    const char16_t* m_checkText = nullptr;
    u32 m_checkValue = 0;
    tvButton m_button1;  // the leftmost of three
    tvButton m_button2;
    tvButton m_button3;
    tvCheckBox m_check;
    _countDown m_countDown;

private:
    void TakeTexts(const tvstring& text, const tvstring& title);
    void SelectIcon();
    void SetUpButtons();
    void SetUpCheck();
    void StartCountDown();
    void OnCountDown();
    bool OnCommand(int id);
    bool CloseMapped();
    void CopyText() const;
    // Counted from the right, from 0.
    [[nodiscard]] tvButton& ButtonAt(int index);

    void FitToContent();
    void PlaceControls(SIZE client);
    [[nodiscard]] SIZE ClientSize();
    [[nodiscard]] MessageBoxMetrics Measure() const;
    [[nodiscard]] SIZE WorkArea() const;
    [[nodiscard]] int CaptionWidth(int width) const;
    int DrawHeading(HDC dc, RECT area) const;
    void DrawIconAt(HDC dc, const RECT& area) const;

    HWND m_parent = nullptr;
    MessageBoxMetrics m_metrics;
    SIZE m_checkSize{};
};
