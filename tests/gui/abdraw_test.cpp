#include "toolkit/abdraw.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/gui/late_functions_guard.h"
#include "tests/gui/rows.h"
#include "toolkit/draw.h"
#include "toolkit/font.h"
#include "toolkit/live_count.h"
#include "toolkit/rect.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr RECT kRect{10, 20, 40, 50};
constexpr RECT kAtOrigin{0, 0, 30, 30};

// Fills what it is given and notes with what it was asked to.
class Painter : public tvabdraw {
public:
    void OnDraw(HDC dc, const RECT& rect, void* paint) override {
        ++m_draws;
        m_dc = dc;
        m_rect = rect;
        m_paint = paint;
        m_drawFont = GetCurrentObject(dc, OBJ_FONT);
        m_mode = GetBkMode(dc);
        FillSolid(dc, rect, m_color);
    }

    COLORREF m_color = kRed;
    int m_draws = 0;
    HDC m_dc = nullptr;
    RECT m_rect{};
    void* m_paint = nullptr;
    HGDIOBJ m_drawFont = nullptr;
    int m_mode = 0;
};

// Stands in for the system's animations, of which there need be none.
class Buffered : public testing::Test {
protected:
    Buffered() {
        calls.clear();
        isRunning = FALSE;
        LateFunctions& functions = TheLateFunctions();
        functions.bufferedPaintRenderAnimation.Replace(Render);
        functions.beginBufferedAnimation.Replace(nullptr);
        functions.endBufferedAnimation.Replace(End);
        functions.bufferedPaintStopAllAnimations.Replace(Stop);
        functions.bufferedPaintInit.Replace(Init);
        functions.bufferedPaintUnInit.Replace(UnInit);
    }

    static BOOL WINAPI Render(HWND, HDC) {
        calls.push_back("render");
        return isRunning;
    }
    static HANIMATIONBUFFER WINAPI BeginNone(HWND, HDC, const RECT*, BP_BUFFERFORMAT, BP_PAINTPARAMS*,
                                             BP_ANIMATIONPARAMS*, HDC*, HDC*) {
        calls.push_back("begin");
        return nullptr;
    }
    static HANIMATIONBUFFER WINAPI Begin(HWND window, HDC dc, const RECT* rect, BP_BUFFERFORMAT format,
                                         BP_PAINTPARAMS* paint, BP_ANIMATIONPARAMS* parameters, HDC* from,
                                         HDC* to) {
        calls.push_back("begin");
        begun = {window, dc, *rect, format, paint, *parameters};
        *from = fromDc;
        *to = toDc;
        return Animation();
    }
    static HRESULT WINAPI End(HANIMATIONBUFFER buffer, BOOL update) {
        EXPECT_EQ(buffer, Animation());
        EXPECT_TRUE(update);
        calls.push_back("end");
        return S_OK;
    }
    static HRESULT WINAPI Stop(HWND) {
        calls.push_back("stop");
        return S_OK;
    }
    static HRESULT WINAPI Init() {
        calls.push_back("init");
        return S_OK;
    }
    static HRESULT WINAPI UnInit() {
        calls.push_back("uninit");
        return S_OK;
    }
    static HANIMATIONBUFFER Animation() { return reinterpret_cast<HANIMATIONBUFFER>(INT_PTR{0x1234}); }

    // Has animations run with these contexts.
    void Animate(const Canvas& from, const Canvas& to) {
        fromDc = from.Dc();
        toDc = to.Dc();
        TheLateFunctions().beginBufferedAnimation.Replace(Begin);
    }

    void Paint(tvabdraw::Fade fade, const RECT& rect = kRect) {
        painter.PaintBuffered(nullptr, canvas.Dc(), rect, &parameter, fade);
    }

    struct Begun {
        HWND window;
        HDC dc;
        RECT rect;
        BP_BUFFERFORMAT format;
        BP_PAINTPARAMS* paint;
        BP_ANIMATIONPARAMS parameters;
    };
    using Calls = std::vector<std::string>;
    static inline Calls calls;
    static inline BOOL isRunning;
    static inline Begun begun;
    static inline HDC fromDc;
    static inline HDC toDc;

    LateFunctionsGuard guard;
    Canvas canvas{60, 60};
    Painter painter;
    int parameter = 0;
};

TEST_F(Buffered, PaintGoesIntoABufferAndFromThereToItsPlace) {
    Paint(tvabdraw::Fade::No);
    EXPECT_EQ(painter.m_draws, 1);
    EXPECT_NE(painter.m_dc, canvas.Dc());
    EXPECT_EQ(painter.m_dc, painter.m_buffer.m_dc.Get());
    EXPECT_EQ(painter.m_rect, kAtOrigin);
    EXPECT_EQ(painter.m_paint, &parameter);
    EXPECT_EQ(canvas.Count(kRed), 30 * 30);
    EXPECT_EQ(canvas.At(10, 20), kRed);
    EXPECT_EQ(canvas.At(39, 49), kRed);
    EXPECT_TRUE(painter.m_hasFrame);
}

TEST_F(Buffered, PaintHasTheTargetsFontEachTime) {
    tvfont font;
    font.Set(FallbackFont(nullptr));
    Paint(tvabdraw::Fade::No);
    EXPECT_EQ(painter.m_drawFont, GetStockObject(SYSTEM_FONT));
    {
        const tvSelected selected(canvas.Dc(), font.Get());
        Paint(tvabdraw::Fade::No);
        EXPECT_EQ(painter.m_drawFont, font.Get());
    }
    EXPECT_EQ(painter.m_mode, TRANSPARENT);
}

TEST_F(Buffered, BufferOnlyGrows) {
    Paint(tvabdraw::Fade::No, {0, 0, 30, 20});
    const HBITMAP first = painter.m_buffer.m_bitmap.Get();
    Paint(tvabdraw::Fade::No, {0, 0, 5, 6});
    EXPECT_EQ(painter.m_buffer.m_bitmap.Get(), first);
    EXPECT_EQ(painter.m_buffer.m_usedWidth, 5);
    EXPECT_EQ(painter.m_buffer.m_usedHeight, 6);
    Paint(tvabdraw::Fade::No, {0, 0, 10, 40});
    EXPECT_NE(painter.m_buffer.m_bitmap.Get(), first);
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_width, 30);
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_height, 40);
    EXPECT_EQ(GetObjectType(first), 0U);
    Paint(tvabdraw::Fade::No, {0, 0, 50, 10});
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_width, 50);
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_height, 40);
}

TEST_F(Buffered, EmptyRectangleHasABufferOfOnePixel) {
    Paint(tvabdraw::Fade::No, {5, 5, 5, 5});
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_width, 1);
    EXPECT_EQ(painter.m_buffer.m_bitmap.m_height, 1);
    EXPECT_EQ(canvas.Count(kPaper), 60 * 60);
}

TEST_F(Buffered, WithoutABufferPaintGoesStraightToTheTarget) {
    Paint(tvabdraw::Fade::No);
    constexpr RECT kTooLarge{0, 0, 1 << 20, 1 << 20};
    Paint(tvabdraw::Fade::Yes, kTooLarge);
    EXPECT_EQ(painter.m_dc, canvas.Dc());
    EXPECT_EQ(painter.m_rect, kTooLarge);
    EXPECT_EQ(canvas.Count(kRed), 60 * 60);
    EXPECT_FALSE(painter.m_hasFrame);
    Paint(tvabdraw::Fade::No);
    EXPECT_NE(painter.m_dc, canvas.Dc());
}

// --- Fading ---

TEST_F(Buffered, FirstPictureDoesNotFade) {
    TheLateFunctions().beginBufferedAnimation.Replace(BeginNone);
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(canvas.Count(kRed), 30 * 30);
}

TEST_F(Buffered, FadeRunsFromTheLastPictureToTheNewOne) {
    const Canvas from(60, 60);
    const Canvas to(60, 60);
    Paint(tvabdraw::Fade::Yes);
    Animate(from, to);
    tvfont font;
    font.Set(FallbackFont(nullptr));
    const tvSelected selected(canvas.Dc(), font.Get());
    painter.m_color = kBlue;
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, (Calls{"render", "begin", "end"}));
    EXPECT_EQ(from.Count(kRed), 30 * 30);
    EXPECT_EQ(from.At(10, 20), kRed);
    EXPECT_EQ(to.Count(kBlue), 30 * 30);
    EXPECT_EQ(to.At(10, 20), kBlue);
    EXPECT_EQ(painter.m_dc, to.Dc());
    EXPECT_EQ(painter.m_rect, kRect);  // as it stands
    EXPECT_EQ(painter.m_paint, &parameter);
    EXPECT_EQ(painter.m_drawFont, font.Get());
    EXPECT_EQ(painter.m_mode, TRANSPARENT);
    EXPECT_NE(GetCurrentObject(to.Dc(), OBJ_FONT), font.Get());
    EXPECT_EQ(canvas.Count(kRed), 30 * 30);  // what the system does with its contexts is its own affair
}

TEST_F(Buffered, FadeIsAskedForWithItsParameters) {
    const Canvas from(60, 60);
    const Canvas to(60, 60);
    Paint(tvabdraw::Fade::Yes);
    Animate(from, to);
    HWND window = GetDesktopWindow();
    painter.PaintBuffered(window, canvas.Dc(), kRect, nullptr, tvabdraw::Fade::Yes);
    EXPECT_EQ(begun.window, window);
    EXPECT_EQ(begun.dc, canvas.Dc());
    EXPECT_EQ(begun.rect, kRect);
    EXPECT_EQ(begun.format, 0);
    EXPECT_EQ(begun.paint, nullptr);
    EXPECT_EQ(begun.parameters.cbSize, 16U);
    EXPECT_EQ(begun.parameters.dwFlags, 0U);
    EXPECT_EQ(begun.parameters.style, 1);
    EXPECT_EQ(begun.parameters.dwDuration, 200U);
}

TEST_F(Buffered, PictureThatWasFadedToIsTheNextToFadeFrom) {
    const Canvas from(60, 60);
    const Canvas to(60, 60);
    Paint(tvabdraw::Fade::Yes);
    Animate(from, to);
    painter.m_color = kBlue;
    Paint(tvabdraw::Fade::Yes);
    painter.m_color = kInk;
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(from.Count(kBlue), 30 * 30);
    EXPECT_EQ(to.Count(kInk), 30 * 30);
}

TEST_F(Buffered, FadeNeedsNeitherOfItsContexts) {
    Paint(tvabdraw::Fade::Yes);
    fromDc = nullptr;
    toDc = nullptr;
    TheLateFunctions().beginBufferedAnimation.Replace(Begin);
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, (Calls{"render", "begin", "end"}));
    EXPECT_EQ(painter.m_draws, 1);
}

TEST_F(Buffered, RunningFadeHasPaintedItself) {
    Paint(tvabdraw::Fade::Yes);
    isRunning = TRUE;
    painter.m_color = kBlue;
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, Calls{"render"});
    EXPECT_EQ(painter.m_draws, 1);
    EXPECT_EQ(canvas.Count(kRed), 30 * 30);
}

TEST_F(Buffered, PaintWithoutFadeAsksForNone) {
    const Canvas from(60, 60);
    const Canvas to(60, 60);
    Paint(tvabdraw::Fade::No);
    Animate(from, to);
    painter.m_color = kBlue;
    Paint(tvabdraw::Fade::No);
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(canvas.Count(kBlue), 30 * 30);
}

TEST_F(Buffered, FadeThatCannotBeBegunIsAPlainPaint) {
    TheLateFunctions().beginBufferedAnimation.Replace(BeginNone);
    Paint(tvabdraw::Fade::Yes);
    painter.m_color = kBlue;
    Paint(tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, (Calls{"render", "begin"}));
    EXPECT_EQ(painter.m_rect, kAtOrigin);
    EXPECT_EQ(canvas.Count(kBlue), 30 * 30);
}

TEST_F(Buffered, BufferThatHasGrownHoldsNoPictureToFadeFrom) {
    TheLateFunctions().beginBufferedAnimation.Replace(BeginNone);
    Paint(tvabdraw::Fade::Yes, {0, 0, 10, 10});
    Paint(tvabdraw::Fade::Yes, {0, 0, 20, 20});
    EXPECT_EQ(calls, Calls{});
}

TEST_F(Buffered, BufferAsTheTargetDoesNotFade) {
    Paint(tvabdraw::Fade::Yes);
    TheLateFunctions().beginBufferedAnimation.Replace(BeginNone);
    EXPECT_FALSE(painter.DrawAnimated(nullptr, painter.m_buffer.m_dc.Get(), kRect, nullptr));
    EXPECT_EQ(calls, Calls{"render"});
}

// --- In a window ---

class BufferedWindow : public Buffered {
protected:
    BufferedWindow()
        : window(CreateWindowExW(WS_EX_TOPMOST, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 20, 20, 60, 60,
                                 nullptr, nullptr, nullptr, nullptr)) {
        PumpQueue();
    }
    ~BufferedWindow() override { DestroyWindow(window); }

    [[nodiscard]] bool NeedsPaint() const { return GetUpdateRect(window, nullptr, FALSE) != FALSE; }

    HWND window;
};

TEST_F(BufferedWindow, PaintsCorrectlyWhenTheSystemHasNoAnimations) {
    LateFunctions& functions = TheLateFunctions();
    functions.bufferedPaintRenderAnimation.Replace(nullptr);
    functions.beginBufferedAnimation.Replace(nullptr);
    functions.endBufferedAnimation.Replace(nullptr);
    functions.bufferedPaintStopAllAnimations.Replace(nullptr);
    functions.bufferedPaintInit.Replace(nullptr);
    functions.bufferedPaintUnInit.Replace(nullptr);
    Painter late;
    for (const COLORREF color : {kRed, kBlue, kInk}) {
        late.m_color = color;
        InvalidateRect(window, nullptr, FALSE);
        {
            const tvPaintDC paint(window, nullptr);
            late.PaintBuffered(window, paint.m_dc, {0, 0, 60, 60}, nullptr, tvabdraw::Fade::Yes);
        }
        EXPECT_EQ(Picture(window).Count(color), 60 * 60);
    }
    EXPECT_EQ(late.m_draws, 3);
    late.ResetBuffer(window, tvabdraw::Redraw::Yes);
    EXPECT_FALSE(late.m_hasFrame);
}

TEST_F(BufferedWindow, PaintsCorrectlyWithTheAnimationsOfThisSystem) {
    LateFunctions& functions = TheLateFunctions();
    functions.bufferedPaintRenderAnimation.Forget();
    functions.beginBufferedAnimation.Forget();
    functions.endBufferedAnimation.Forget();
    for (const COLORREF color : {kRed, kBlue}) {
        painter.m_color = color;
        const auto isPainted = [&] {
            InvalidateRect(window, nullptr, FALSE);
            const tvPaintDC paint(window, nullptr);
            painter.PaintBuffered(window, paint.m_dc, {0, 0, 60, 60}, nullptr, tvabdraw::Fade::Yes);
            return Picture(window).Count(color) == 60 * 60;
        };
        EXPECT_TRUE(PumpUntil(isPainted));
    }
}

TEST_F(BufferedWindow, ResetEndsAFadeAndForgetsThePicture) {
    ValidateRect(window, nullptr);
    painter.PaintBuffered(window, canvas.Dc(), kRect, nullptr, tvabdraw::Fade::Yes);
    painter.ResetBuffer(window, tvabdraw::Redraw::No);
    EXPECT_EQ(calls, Calls{"stop"});
    EXPECT_FALSE(painter.m_hasFrame);
    EXPECT_FALSE(NeedsPaint());
    painter.PaintBuffered(window, canvas.Dc(), kRect, nullptr, tvabdraw::Fade::Yes);
    EXPECT_EQ(calls, Calls{"stop"});  // nothing to fade from
}

TEST_F(BufferedWindow, ResetHasAVisibleWindowPaintedAnew) {
    ValidateRect(window, nullptr);
    painter.ResetBuffer(window, tvabdraw::Redraw::Yes);
    EXPECT_TRUE(NeedsPaint());
}

TEST_F(BufferedWindow, PaintContextHasTheFontThatIsGivenAndATransparentBackground) {
    tvfont font;
    font.Set(FallbackFont(nullptr));
    InvalidateRect(window, nullptr, FALSE);
    {
        const tvPaintDC paint(window, font.Get());
        EXPECT_EQ(paint.m_hWnd, window);
        EXPECT_EQ(paint.m_dc, paint.m_paint.hdc);
        EXPECT_EQ(paint.m_paint.rcPaint, (RECT{0, 0, 60, 60}));
        EXPECT_EQ(GetCurrentObject(paint.m_dc, OBJ_FONT), font.Get());
        EXPECT_EQ(GetBkMode(paint.m_dc), TRANSPARENT);
    }
    EXPECT_FALSE(NeedsPaint());
}

TEST_F(BufferedWindow, PaintContextIsGivenBack) {
    HDC dc = nullptr;
    {
        const tvPaintDC paint(window, nullptr);
        dc = paint.m_dc;
        EXPECT_EQ(WindowFromDC(dc), window);
    }
    EXPECT_EQ(WindowFromDC(dc), nullptr);
}

TEST_F(BufferedWindow, PaintContextAsksTheWindowForItsFont) {
    tvfont font;
    font.Set(FallbackFont(nullptr));
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    InvalidateRect(window, nullptr, FALSE);
    {
        const tvPaintDC paint(window, tvPaintDC::kWindowFont);
        EXPECT_EQ(GetCurrentObject(paint.m_dc, OBJ_FONT), font.Get());
    }
    SendMessageW(window, WM_SETFONT, 0, FALSE);
    InvalidateRect(window, nullptr, FALSE);
    const tvPaintDC paint(window, tvPaintDC::kWindowFont);
    EXPECT_EQ(GetCurrentObject(paint.m_dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
}

// --- How many there are ---

TEST_F(Buffered, PaintingIsMadeReadyForTheFirstAndEndedAfterTheLast) {
    LiveCount count;
    count.Add();
    EXPECT_EQ(calls, Calls{"init"});
    count.Add();
    count.Remove();
    EXPECT_EQ(calls, Calls{"init"});
    count.Remove();
    EXPECT_EQ(calls, (Calls{"init", "uninit"}));
    count.Add();
    count.Remove();
    EXPECT_EQ(calls, (Calls{"init", "uninit", "init", "uninit"}));
}

TEST_F(Buffered, EachObjectThatPaintsCounts) {
    const u64 before = TheLiveCount().Value();
    {
        const Painter second;
        EXPECT_EQ(TheLiveCount().Value(), before + 1);
    }
    EXPECT_EQ(TheLiveCount().Value(), before);
    EXPECT_EQ(calls, Calls{}) << "others are left";
}

// --- Bitmaps ---

TEST(Bitmap, HasItsPixelsInMemoryRowByRowFromTheTop) {
    tvBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateDib(3, 2));
    EXPECT_EQ(bitmap.m_width, 3);
    EXPECT_EQ(bitmap.m_height, 2);
    const tvMemoryDCHandle dc(CreateCompatibleDC(nullptr));
    const tvSelected selected(dc.Get(), bitmap.Get());
    SetPixel(dc.Get(), 2, 0, RGB(0x12, 0x34, 0x56));
    GdiFlush();
    EXPECT_EQ(bitmap.Row(0)[2] & 0xFFFFFF, 0x123456U);
    EXPECT_EQ(bitmap.Row(1)[2] & 0xFFFFFF, 0U);
    EXPECT_EQ(reinterpret_cast<u8*>(bitmap.Row(1)), bitmap.m_bits);  // bottom-up
    EXPECT_EQ(bitmap.Row(-1), nullptr);
    EXPECT_EQ(bitmap.Row(2), nullptr);
}

TEST(Bitmap, OfTheScreensKindHasNoRows) {
    const tvClientDC screen(nullptr);
    tvBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatible(screen.Get(), 3, 2));
    EXPECT_EQ(bitmap.Row(0), nullptr);
    BITMAP info{};
    GetObjectW(bitmap.Get(), sizeof info, &info);
    EXPECT_EQ(info.bmWidth, 3);
    EXPECT_EQ(info.bmHeight, 2);
    EXPECT_EQ(info.bmBitsPixel, GetDeviceCaps(screen.Get(), BITSPIXEL));
}

TEST(Bitmap, OfASizeBelowOneIsRefusedAndLeavesNone) {
    const tvClientDC screen(nullptr);
    for (const SIZE& size : {SIZE{0, 5}, SIZE{5, 0}, SIZE{-1, 5}, SIZE{5, -1}}) {
        tvBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateDib(2, 2));
        EXPECT_FALSE(bitmap.CreateDib(size.cx, size.cy));
        EXPECT_EQ(bitmap.Get(), nullptr);
        EXPECT_EQ(bitmap.m_bits, nullptr);
        EXPECT_EQ(bitmap.m_width, 0);
        ASSERT_TRUE(bitmap.CreateDib(2, 2));
        EXPECT_FALSE(bitmap.CreateCompatible(screen.Get(), size.cx, size.cy));
        EXPECT_EQ(bitmap.Get(), nullptr);
    }
}

TEST(Bitmap, ThatTheSystemCannotMakeIsNone) {
    tvBitmap bitmap;
    EXPECT_FALSE(bitmap.CreateDib(1 << 20, 1 << 20));
    EXPECT_EQ(bitmap.Get(), nullptr);
    EXPECT_EQ(bitmap.m_width, 0);
}

TEST(MemoryContext, OfEitherKindOfBitmapIsEmptiedByReset) {
    for (const bool useDib : {false, true}) {
        const Canvas canvas(1, 1);
        tvMemDC memory;
        memory.m_useDib = useDib;
        ASSERT_NE(memory.Prepare(canvas.Dc(), 4, 5), nullptr);
        EXPECT_EQ(memory.m_bitmap.Row(0) != nullptr, useDib);
        const HBITMAP bitmap = memory.m_bitmap.Get();
        HDC dc = memory.m_dc.Get();
        memory.Reset();
        EXPECT_EQ(GetObjectType(bitmap), 0U);
        EXPECT_EQ(GetObjectType(dc), 0U);
        EXPECT_EQ(memory.m_usedWidth, 0);
        ASSERT_NE(memory.Prepare(canvas.Dc(), 2, 2), nullptr);
        EXPECT_EQ(memory.m_bitmap.m_width, 2);
    }
}

TEST(MemoryContext, LeavesNothingBehindInTheSystem) {
    const Canvas canvas(1, 1);
    const auto use = [&] {
        tvMemDC memory;
        for (int size = 1; size < 20; ++size)
            memory.Prepare(canvas.Dc(), size, size);
    };
    use();
    const Holdings before = WhatIsHeld();
    use();
    EXPECT_EQ(WhatIsHeld().gdiObjects, before.gdiObjects);
}

}  // namespace
