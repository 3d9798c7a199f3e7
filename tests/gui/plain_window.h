// A window of a class of its own, without any wrapper, that notes the messages it gets.
#pragma once

#include <vector>

#include "toolkit/win32.h"

class PlainWindow {
public:
    struct Message {
        UINT number;
        WPARAM wParam;
        LPARAM lParam;
    };

    explicit PlainWindow(DWORD style = WS_POPUP, HWND parent = nullptr, int id = 0);
    ~PlainWindow();
    PlainWindow(const PlainWindow&) = delete;
    PlainWindow& operator=(const PlainWindow&) = delete;

    [[nodiscard]] HWND Handle() const { return m_Handle; }

    // Lets messages run until one with this number and argument has come; false if none has within the limit.
    bool WaitFor(UINT message, WPARAM wParam, DWORD milliseconds = 5000);

    // How many of these messages have come.
    [[nodiscard]] int Count(UINT message) const;

    std::vector<Message> m_Messages;
    LRESULT m_Answer = 0;  // to messages of `m_AnswerTo`
    UINT m_AnswerTo = WM_NULL;

private:
    static LRESULT CALLBACK Proc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_Handle = nullptr;
};
