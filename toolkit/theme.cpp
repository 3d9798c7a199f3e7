#include "toolkit/theme.h"

#include <algorithm>

#include "toolkit/app.h"
#include "toolkit/menu.h"
#include "toolkit/statics.h"
#include "toolkit/tool_tip.h"

namespace {

constexpr float kUsualLargeFactor = 1.45F;

void RenewBrush(tvBrushHandle& brush, u32 color) {
    brush.Reset(CreateSolidBrush(color));
}

}  // namespace

tvTheme::tvTheme() {
    const bool applied = Apply(-1);
    if (!applied) Apply(IsSystemDark() ? 1 : 0);
    m_isSystemDefault = applied;
    SetFont(GetSystemFont(), kUsualLargeFactor);
    m_ready = true;
}

bool tvTheme::Apply(int index) {
    if (index == -1) index = DefaultIndex();
    if (index < 0 || static_cast<std::size_t>(index) >= m_themes.size()) return false;
    static_cast<tvColorTheme&>(*this) = m_themes[static_cast<std::size_t>(index)];
    m_isSystemDefault = IsSystemDefault(index);
    RenewBrush(m_baseBrush, m_base);
    RenewBrush(m_editBrush, m_editBg);
    RenewBrush(m_borderBrush, m_border);
    if (m_ready) tvMenu::OnThemeChosen();
    if (HWND mainWindow = tvApp::MainWindow()) {
        PostMessageW(mainWindow, WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(this));
    }
    return true;
}

void tvTheme::SetFont(const LOGFONTW& logfont, float largeFactor) {
    constexpr int kMarginUnits = 7;
    constexpr int kGapUnits = 4;
    const HFONT old = m_fontRegular.Get();
    LOGFONTW changed = logfont;
    m_fontRegular.Set(logfont);
    changed.lfWeight = FW_BOLD;
    m_fontBold.Set(changed);
    changed.lfWeight = logfont.lfWeight;
    const double height = double{static_cast<float>(logfont.lfHeight) * std::max(largeFactor, 1.0F)};
    constexpr double kLimit = 10'000;  // a font from the settings may have any height
    changed.lfHeight = static_cast<LONG>(std::clamp(height, -kLimit, kLimit));
    m_fontLarge.Set(changed);
    const PixelSize margin = DialogUnitsToPixels(m_fontRegular.Get(), kMarginUnits, kMarginUnits);
    const PixelSize gap = DialogUnitsToPixels(m_fontRegular.Get(), kGapUnits, kGapUnits);
    m_marginX = margin.x;
    m_marginY = margin.y;
    m_halfMarginX = margin.x / 2;
    m_halfMarginY = margin.y / 2;
    m_gapX = gap.x;
    m_gapY = gap.y;
    if (m_ready && m_fontRegular.Get() != old) AnnounceFont();
}

void tvTheme::AnnounceFont() const {
    const auto font = reinterpret_cast<WPARAM>(Font());
    TheToolTip().Send(WM_SETFONT, font, TRUE);
    tvMenu::OnFontChosen();
    if (HWND mainWindow = tvApp::MainWindow()) SendMessageW(mainWindow, WM_SETFONT, font, TRUE);
}

int tvTheme::TextHeight(HFONT font, int* averageWidth) {
    const auto measure = [font] {
        const tvClientDC screen(nullptr);
        const tvSelected selected(screen.Get(), font);
        LineSize size;
        size.height = GetFontHeight(screen.Get(), &size.averageWidth);
        return size;
    };
    if (m_cachedFor != Font()) {
        m_charCache.clear();
        m_cachedFor = Font();
    }
    LineSize size;
    if (font == Font() || font == m_fontBold.Get() || font == m_fontLarge.Get()) {
        const auto found = m_charCache.find(font);
        size = found != m_charCache.end() ? found->second : m_charCache[font] = measure();
    } else {
        size = measure();
    }
    if (averageWidth != nullptr) *averageWidth = size.averageWidth;
    return size.height;
}
