// The application object: there is one, and the toolkit finds it by a pointer.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"
#include "platform/types.h"
#include "toolkit/win32.h"

class tvWnd;

class tvApp {
public:
    // Publishes itself, takes the module's handle, and makes the common controls ready.
    tvApp();
    tvApp(const tvApp&) = delete;
    tvApp& operator=(const tvApp&) = delete;

    // --- Virtual operations, in slot order ---

    // Called by the modal loop with each message: true ends the message.
    virtual bool PreTranslateAppMsg(MSG* msg);
    virtual ~tvApp();
    virtual void OnHelp();

    // The name that the program goes by: the given one, or else that of its file, without extension.
    static tvstring NameOr(std::u16string_view given);

    // The application object, or null.
    static tvApp* Get() noexcept;

    // The window of m_mainWnd, or null.
    static HWND MainWindow() noexcept;

    // --- Fields, in their order ---

    HINSTANCE m_hInstance = nullptr;
    tvWnd* m_mainWnd = nullptr;
    tvstring m_appName;
    u32 m_exitCode = 0;
};

// With the shared tool tip, which gets to see each message, and the popup menu that is open.
class tvBaseApp : public tvApp {
public:
    tvBaseApp();
    ~tvBaseApp() override;

    bool PreTranslateAppMsg(MSG* msg) override;

    static tvBaseApp* Get() noexcept;

    HMENU m_activePopup = nullptr;
};
