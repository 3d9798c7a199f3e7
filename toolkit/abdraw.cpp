#include "toolkit/abdraw.h"

#include "toolkit/control_state.h"
#include "toolkit/late_functions.h"
#include "toolkit/live_count.h"
#include "toolkit/rect.h"

namespace {

constexpr DWORD kFadeMilliseconds = 200;

// One picture of a fade as the system wants it: between what is painted into the two contexts. It runs from
// here on, if it could be begun.
class Animation {
public:
    Animation(HWND window, HDC dc, const RECT& rect) {
        BP_ANIMATIONPARAMS parameters{};
        parameters.cbSize = sizeof parameters;
        parameters.style = BPAS_LINEAR;
        parameters.dwDuration = kFadeMilliseconds;
        m_Buffer =
            CallIfThere(TheLateFunctions().beginBufferedAnimation, window, dc, &rect, BPBF_COMPATIBLEBITMAP,
                        static_cast<BP_PAINTPARAMS*>(nullptr), &parameters, &m_From, &m_To);
    }
    ~Animation() {
        if (m_Buffer != nullptr) CallIfThere(TheLateFunctions().endBufferedAnimation, m_Buffer, TRUE);
    }
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

    explicit operator bool() const noexcept { return m_Buffer != nullptr; }
    [[nodiscard]] HDC From() const noexcept { return m_From; }
    [[nodiscard]] HDC To() const noexcept { return m_To; }

private:
    HANIMATIONBUFFER m_Buffer = nullptr;
    HDC m_From = nullptr;
    HDC m_To = nullptr;
};

}  // namespace

LiveCount& TheLiveCount() noexcept {
    static constinit LiveCount count;
    return count;
}

void LiveCount::Add() {
    if (m_Count == 0) CallIfThere(TheLateFunctions().bufferedPaintInit);
    ++m_Count;
}

void LiveCount::Remove() {
    if (--m_Count == 0) CallIfThere(TheLateFunctions().bufferedPaintUnInit);
}

tvabdraw::tvabdraw() {
    m_buffer.m_useDib = true;
    TheLiveCount().Add();
}

tvabdraw::~tvabdraw() {
    TheLiveCount().Remove();
}

bool tvabdraw::DrawAnimated(HWND window, HDC dc, const RECT& rect, void* paint) {
    if (CallIfThere(TheLateFunctions().bufferedPaintRenderAnimation, window, dc) != FALSE) return true;
    const HDC buffer = m_buffer.m_dc.Get();
    if (!m_hasFrame || buffer == nullptr || dc == buffer) return false;
    const Animation animation(window, dc, rect);
    if (!animation) return false;
    const int width = Width(rect);
    const int height = Height(rect);
    if (animation.From() != nullptr)
        BitBlt(animation.From(), rect.left, rect.top, width, height, buffer, 0, 0, SRCCOPY);
    if (animation.To() != nullptr) {
        const tvSelected font(animation.To(), GetCurrentObject(buffer, OBJ_FONT));
        SetBkMode(animation.To(), TRANSPARENT);
        OnDraw(animation.To(), rect, paint);
        BitBlt(buffer, 0, 0, width, height, animation.To(), rect.left, rect.top, SRCCOPY);
    }
    return true;
}

HDC tvabdraw::PrepareFrame(HDC dc, HGDIOBJ font, const RECT& rect) {
    const HBITMAP before = m_buffer.m_bitmap.Get();
    const HDC buffer = m_buffer.Prepare(dc, font, Width(rect), Height(rect));
    if (m_buffer.m_bitmap.Get() != before) m_hasFrame = false;
    return buffer;
}

void tvabdraw::PaintPrepared(HWND window, HDC dc, const RECT& rect, void* paint, Fade fade) {
    if (m_hasFrame && fade == Fade::Yes && DrawAnimated(window, dc, rect, paint)) return;
    const HDC buffer = m_buffer.m_dc.Get();
    if (buffer == nullptr) {
        OnDraw(dc, rect, paint);
        return;
    }
    const int width = Width(rect);
    const int height = Height(rect);
    OnDraw(buffer, BoxAt(0, 0, width, height), paint);
    BitBlt(dc, rect.left, rect.top, width, height, buffer, 0, 0, SRCCOPY);
    m_hasFrame = true;
}

void tvabdraw::PaintBuffered(HWND window, HDC dc, const RECT& rect, void* paint, Fade fade) {
    PrepareFrame(dc, GetCurrentObject(dc, OBJ_FONT), rect);
    PaintPrepared(window, dc, rect, paint, fade);
}

void tvabdraw::PaintWhole(HWND window, HFONT font, void* paint, Fade fade) {
    constexpr UINT kPainted = RDW_VALIDATE | RDW_NOERASE | RDW_NOFRAME | RDW_NOINTERNALPAINT | RDW_NOCHILDREN;
    RedrawWindow(window, nullptr, nullptr, kPainted);
    const tvClientDC dc(window);
    const RECT rect = ClientOf(window);
    const HGDIOBJ used = font == nullptr ? GetStockObject(SYSTEM_FONT) : font;
    const bool isDirect = PrepareFrame(dc.Get(), used, rect) == nullptr;
    const tvSelected selected(dc.Get(), isDirect ? used : nullptr);
    if (isDirect) SetBkMode(dc.Get(), TRANSPARENT);
    PaintPrepared(window, dc.Get(), rect, paint, fade);
}

void tvabdraw::ResetBuffer(HWND window, Redraw redraw) {
    CallIfThere(TheLateFunctions().bufferedPaintStopAllAnimations, window);
    m_hasFrame = false;
    if (redraw == Redraw::Yes && IsWindowVisible(window))
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE);
}
