// Functions that some systems lack. Each is found by name when it is first needed; where it is missing,
// nothing happens in its place and the answer is 0.
#pragma once

#include "toolkit/gdiplus.h"
#include "toolkit/system.h"

struct LateFunctions {
    SystemProc<decltype(BufferedPaintInit)> bufferedPaintInit{u"UxTheme.dll", "BufferedPaintInit"};
    SystemProc<decltype(BufferedPaintUnInit)> bufferedPaintUnInit{u"UxTheme.dll", "BufferedPaintUnInit"};
    SystemProc<decltype(BeginBufferedAnimation)> beginBufferedAnimation{u"UxTheme.dll",
                                                                        "BeginBufferedAnimation"};
    SystemProc<decltype(BufferedPaintRenderAnimation)> bufferedPaintRenderAnimation{
        u"UxTheme.dll", "BufferedPaintRenderAnimation"};
    SystemProc<decltype(EndBufferedAnimation)> endBufferedAnimation{u"UxTheme.dll", "EndBufferedAnimation"};
    SystemProc<decltype(BufferedPaintStopAllAnimations)> bufferedPaintStopAllAnimations{
        u"UxTheme.dll", "BufferedPaintStopAllAnimations"};
    SystemProc<decltype(Gdiplus::GdiplusStartup)> gdiplusStartup{u"Gdiplus.dll", "GdiplusStartup"};
    SystemProc<decltype(Gdiplus::GdiplusShutdown)> gdiplusShutdown{u"Gdiplus.dll", "GdiplusShutdown"};
    SystemProc<decltype(SHGetStockIconInfo)> shGetStockIconInfo{u"Shell32.dll", "SHGetStockIconInfo"};
    SystemProc<decltype(SHCreateItemFromParsingName)> shCreateItemFromParsingName{
        u"Shell32.dll", "SHCreateItemFromParsingName"};
};
LateFunctions& TheLateFunctions() noexcept;

template <typename Function, typename... Arguments>
auto CallIfThere(SystemProc<Function>& proc, Arguments... arguments) {
    Function* function = proc.Get();
    using Result = decltype(function(arguments...));
    return function == nullptr ? Result() : function(arguments...);
}
