#include "tests/gallery/pictures.h"

#include "toolkit/gdiplus.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

namespace {

// Dispatches messages until none but those of timers has come for a while: everything is painted then.
void Settle() {
    constexpr ULONGLONG kQuiet = 40;  // milliseconds
    constexpr ULONGLONG kLongest = 10000;
    const ULONGLONG start = GetTickCount64();
    ULONGLONG last = start;
    for (ULONGLONG now = start; now - last < kQuiet && now - start < kLongest; now = GetTickCount64()) {
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuiet, QS_ALLINPUT);
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
        // After it: what a message sets off may take longer than the quiet does.
        if (message.message != WM_TIMER) last = GetTickCount64();
    }
    GdiFlush();
}

// A canvas that windows are copied into.
class Shot {
public:
    Shot(HWND like, int width, int height) {
        const tvClientDC dc(like);
        m_Dc.Prepare(dc.Get(), width, height);
        m_Width = width;
        m_Height = height;
        const RECT all{0, 0, width, height};
        FillRect(m_Dc.m_dc.Get(), &all, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
    }

    // A window's client area as it is on the display.
    void Copy(HWND window, int x, int y) {
        RECT client{};
        GetClientRect(window, &client);
        const tvClientDC source(window);
        BitBlt(m_Dc.m_dc.Get(), x, y, client.right, client.bottom, source.Get(), 0, 0, SRCCOPY);
    }

    [[nodiscard]] bool Save(const tvstring& path) const {
        constexpr CLSID kPng = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
        Gdiplus::GpBitmap* all = nullptr;
        if (gdiplus::GdipCreateBitmapFromHBITMAP(m_Dc.m_bitmap.Get(), nullptr, &all) != Gdiplus::Ok)
            return false;
        const gdiplus::Bitmap whole(all);
        Gdiplus::GpBitmap* part = nullptr;
        if (gdiplus::GdipCloneBitmapAreaI(0, 0, m_Width, m_Height, PixelFormat24bppRGB, all, &part) !=
            Gdiplus::Ok)
            return false;
        const gdiplus::Bitmap used(part);
        return gdiplus::GdipSaveImageToFile(part, Wide(path.c_str()), &kPng, nullptr) == Gdiplus::Ok;
    }

private:
    tvMemDC m_Dc;
    int m_Width = 0;
    int m_Height = 0;
};

tvstring FileName(const tvstring& folder, const char16_t* what) {
    tvstring path = folder;
    path += u"\\";
    for (const char16_t unit : TheTheme().m_name)
        path += unit == u' ' ? u'-' : unit;
    path += what;
    path += u".png";
    return path;
}

// The tip of a window of its own, at a place of the gallery.
void ShowTip(GalleryDialog& gallery, int x, int y) {
    POINT point{x, y};
    ClientToScreen(gallery.Handle(), &point);
    TheToolTip().Track(gallery.Handle(), true, point.x, point.y);
    Settle();
}

bool TakeWindow(GalleryDialog& gallery, const tvstring& folder) {
    RECT client{};
    GetClientRect(gallery.Handle(), &client);
    ShowTip(gallery, gallery.TipPlace().x, gallery.TipPlace().y);
    Shot shot(gallery.Handle(), client.right, client.bottom);
    shot.Copy(gallery.Handle(), 0, 0);
    if (const HWND tip = TheToolTip().Handle(); tip != nullptr && IsWindowVisible(tip) != FALSE) {
        POINT corner{0, 0};
        MapWindowPoints(tip, gallery.Handle(), &corner, 1);
        shot.Copy(tip, corner.x, corner.y);
    }
    TheToolTip().Track(gallery.Handle(), false, 0, 0);
    return shot.Save(FileName(folder, u""));
}

// --- Message boxes ---

// What is to be done with the message box that is in front.
struct BoxShot {
    Shot* shot = nullptr;
    int x = 0;
    int y = 0;
    bool busy = false;
};

BoxShot& TheBoxShot() {
    static BoxShot box;
    return box;
}

void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD) {
    BoxShot& box = TheBoxShot();
    const HWND window = GetActiveWindow();
    wchar_t name[32] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (box.busy || lstrcmpW(name, L"tvMsgBox00") != 0 || IsWindowVisible(window) == FALSE) return;
    box.busy = true;
    Settle();
    box.shot->Copy(window, box.x, box.y);
    if (auto* dialog = dynamic_cast<tvDialog*>(tvWnd::FromHandle(window))) dialog->EndDialog(IDCANCEL);
    box.busy = false;
}

bool TakeMessages(GalleryDialog& gallery, const tvstring& folder) {
    constexpr int kColumns = 3;
    constexpr SIZE kCell{480, 180};
    const int rows = (gallery.MessageCount() + kColumns - 1) / kColumns;
    Shot shot(gallery.Handle(), kColumns * kCell.cx, rows * kCell.cy);
    constexpr UINT kTick = 20;
    const UINT_PTR timer = SetTimer(nullptr, 0, kTick, OnTick);
    for (int i = 0; i < gallery.MessageCount(); ++i) {
        TheBoxShot() = {&shot, i % kColumns * static_cast<int>(kCell.cx),
                        i / kColumns * static_cast<int>(kCell.cy), false};
        gallery.ShowMessage(i);
    }
    KillTimer(nullptr, timer);
    gallery.ShowStatus(1);
    return shot.Save(FileName(folder, u"-messages"));
}

}  // namespace

bool TakePictures(GalleryDialog& gallery, const tvstring& folder) {
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    gallery.ShowStatus(1);
    bool written = true;
    for (int i = 0; i < static_cast<int>(TheTheme().m_themes.size()); ++i) {
        TheTheme().Apply(i);
        Settle();
        written = TakeWindow(gallery, folder) && written;
        written = TakeMessages(gallery, folder) && written;
    }
    return written;
}
