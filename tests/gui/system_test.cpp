#include "toolkit/system.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/gui/late_functions_guard.h"
#include "tests/gui/rows.h"
#include "toolkit/draw.h"

namespace {

TEST(SystemProc, IsFoundInALibraryThatIsThere) {
    EXPECT_EQ(LoadSystemProc(u"Kernel32.dll", "GetTickCount"),
              GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetTickCount"));
}

TEST(SystemProc, LibraryIsLoadedIfItHasToBe) {
    constexpr const wchar_t* kLibrary = L"avicap32.dll";
    ASSERT_EQ(GetModuleHandleW(kLibrary), nullptr);
    EXPECT_NE(LoadSystemProc(u"avicap32.dll", "capGetDriverDescriptionW"), nullptr);
    EXPECT_NE(GetModuleHandleW(kLibrary), nullptr);
}

TEST(SystemProc, OfAMissingLibraryOrNameIsNull) {
    EXPECT_EQ(LoadSystemProc(u"no-such-library.dll", "GetTickCount"), nullptr);
    EXPECT_EQ(LoadSystemProc(u"Kernel32.dll", "NoSuchFunction"), nullptr);
}

TEST(SystemProc, CallsWhatItFound) {
    SystemProc<DWORD WINAPI()> proc(u"Kernel32.dll", "GetCurrentProcessId");
    ASSERT_NE(proc.Get(), nullptr);
    EXPECT_EQ(proc.Get()(), GetCurrentProcessId());
    EXPECT_EQ(CallIfThere(proc), GetCurrentProcessId());
}

TEST(SystemProc, ThatIsMissingGivesZeroWhenCalled) {
    SystemProc<DWORD WINAPI()> proc(u"Kernel32.dll", "NoSuchFunction");
    EXPECT_EQ(proc.Get(), nullptr);
    EXPECT_EQ(CallIfThere(proc), 0U);
}

TEST(SystemProc, CanBeReplacedAndForgotten) {
    SystemProc<DWORD WINAPI()> proc(u"Kernel32.dll", "GetCurrentProcessId");
    proc.Replace(nullptr);
    EXPECT_EQ(proc.Get(), nullptr);
    proc.Forget();
    EXPECT_NE(proc.Get(), nullptr);
}

TEST(SystemProc, IsLookedForOnce) {
    constexpr const wchar_t* kLibrary = L"wtsapi32.dll";
    ASSERT_EQ(GetModuleHandleW(kLibrary), nullptr);
    HMODULE library = LoadLibraryW(kLibrary);
    SystemProc<void WINAPI(void*)> proc(u"wtsapi32.dll", "WTSFreeMemory");
    const auto found = proc.Get();
    EXPECT_NE(found, nullptr);
    FreeLibrary(library);
    ASSERT_EQ(GetModuleHandleW(kLibrary), nullptr);
    EXPECT_EQ(proc.Get(), found);
    EXPECT_EQ(GetModuleHandleW(kLibrary), nullptr);
}

TEST(SystemProc, EachLateFunctionIsThereOnThisSystem) {
    const LateFunctionsGuard guard;
    LateFunctions& functions = TheLateFunctions();
    EXPECT_NE(functions.bufferedPaintInit.Get(), nullptr);
    EXPECT_NE(functions.bufferedPaintUnInit.Get(), nullptr);
    EXPECT_NE(functions.beginBufferedAnimation.Get(), nullptr);
    EXPECT_NE(functions.bufferedPaintRenderAnimation.Get(), nullptr);
    EXPECT_NE(functions.endBufferedAnimation.Get(), nullptr);
    EXPECT_NE(functions.bufferedPaintStopAllAnimations.Get(), nullptr);
    EXPECT_NE(functions.gdiplusStartup.Get(), nullptr);
    EXPECT_NE(functions.gdiplusShutdown.Get(), nullptr);
    EXPECT_NE(functions.shGetStockIconInfo.Get(), nullptr);
    EXPECT_NE(functions.shCreateItemFromParsingName.Get(), nullptr);
}

// --- GDI+ ---

class GdiPlusRun : public testing::Test {
protected:
    GdiPlusRun() {
        inputs.clear();
        tokens.clear();
        TheLateFunctions().gdiplusStartup.Replace(Startup);
        TheLateFunctions().gdiplusShutdown.Replace(Shutdown);
    }

    static Gdiplus::GpStatus WINAPI Startup(ULONG_PTR* token, const Gdiplus::GdiplusStartupInput* input,
                                            Gdiplus::GdiplusStartupOutput*) {
        inputs.push_back(*input);
        *token = 77;
        return Gdiplus::Ok;
    }
    static void WINAPI Shutdown(ULONG_PTR token) { tokens.push_back(token); }

    static inline std::vector<Gdiplus::GdiplusStartupInput> inputs;
    static inline std::vector<ULONG_PTR> tokens;
    LateFunctionsGuard guard;
};

TEST_F(GdiPlusRun, BeginsWithVersionOneAndEndsWithItsToken) {
    GdiPlusState state;
    EXPECT_TRUE(state.Start());
    ASSERT_EQ(inputs.size(), 1U);
    EXPECT_EQ(inputs[0].GdiplusVersion, 1U);
    EXPECT_EQ(inputs[0].DebugEventCallback, nullptr);
    EXPECT_EQ(inputs[0].SuppressBackgroundThread, 0);
    EXPECT_EQ(inputs[0].SuppressExternalCodecs, 0);
    EXPECT_TRUE(tokens.empty());
    state.Stop();
    EXPECT_EQ(tokens, std::vector<ULONG_PTR>{77});
}

TEST_F(GdiPlusRun, SecondStartDoesNothing) {
    GdiPlusState state;
    EXPECT_TRUE(state.Start());
    EXPECT_FALSE(state.Start());
    EXPECT_EQ(inputs.size(), 1U);
}

TEST_F(GdiPlusRun, CanBeStartedAgainAfterItsEnd) {
    GdiPlusState state;
    state.Start();
    state.Stop();
    EXPECT_TRUE(state.Start());
    state.Stop();
    state.Stop();
    EXPECT_EQ(inputs.size(), 2U);
    EXPECT_EQ(tokens.size(), 2U);
}

TEST_F(GdiPlusRun, WithoutItsFunctionsIsNotEnded) {
    TheLateFunctions().gdiplusStartup.Replace(nullptr);
    GdiPlusState state;
    EXPECT_TRUE(state.Start());
    state.Stop();
    EXPECT_TRUE(tokens.empty());
}

TEST_F(GdiPlusRun, OfTheProgramLastsThoughAnotherObjectComesAndGoes) {
    { const tvGdiPlus second; }
    EXPECT_TRUE(inputs.empty());
    EXPECT_TRUE(tokens.empty());
    const Canvas canvas(20, 20);
    FillEllipse(canvas.Dc(), {0, 0, 20, 20}, kInk);
    EXPECT_EQ(canvas.At(10, 10), kInk);
}

// --- Styles and cursors ---

TEST(VisualStyle, IsActiveIfTheSystemHasOneAndTheControlsAreOfVersionSix) {
    DLLVERSIONINFO info{};
    info.cbSize = sizeof info;
    const auto getVersion = reinterpret_cast<HRESULT(CALLBACK*)(DLLVERSIONINFO*)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"comctl32.dll"), "DllGetVersion")));
    ASSERT_NE(getVersion, nullptr);
    ASSERT_TRUE(SUCCEEDED(getVersion(&info)));
    EXPECT_EQ(IsVisualStyleActive(), IsAppThemed() != FALSE && info.dwMajorVersion >= 6);
}

TEST(Cursor, IsLoadedOnce) {
    HCURSOR hand = LoadSharedCursor(32649);
    EXPECT_NE(hand, nullptr);
    EXPECT_EQ(hand, LoadCursorW(nullptr, MAKEINTRESOURCEW(32649)));
    EXPECT_EQ(LoadSharedCursor(32649), hand);
    EXPECT_NE(LoadSharedCursor(32644), hand);
}

TEST(Cursor, OfANumberThatIsNoneIsNull) {
    EXPECT_EQ(LoadSharedCursor(0), nullptr);
    EXPECT_EQ(LoadSharedCursor(0x10000), nullptr);
    EXPECT_EQ(LoadSharedCursor(0xFFFFFFFF), nullptr);
    EXPECT_EQ(LoadSharedCursor(5), nullptr);
}

TEST(Cursor, HandIsSet) {
    SetCursor(LoadSharedCursor(32512));
    SetHandCursor();
    EXPECT_EQ(GetCursor(), LoadSharedCursor(32649));
}

}  // namespace
