// What any window program costs to start: it makes a window, fills it once and ends. With "--stay" it stays
// until it is closed.
#include "platform/windows_api.h"

namespace {

bool g_Stays = false;

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    FillRect(dc, &paint.rcPaint, GetSysColorBrush(COLOR_BTNFACE));
    EndPaint(window, &paint);
    if (!g_Stays) PostQuitMessage(0);
    return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* arguments, int) {
    g_Stays = *arguments != 0;
    constexpr int kWidth = 1130;
    constexpr int kHeight = 680;
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = L"BareWindow";
    RegisterClassW(&windowClass);
    CreateWindowExW(0, windowClass.lpszClassName, L"Bare", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, kWidth,
                    kHeight, nullptr, nullptr, instance, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
