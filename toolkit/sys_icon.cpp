// After this, windows.h names the system's own icons.
#define OEMRESOURCE
#include "toolkit/sys_icon.h"

#include <array>

#include "toolkit/com.h"
#include "toolkit/icon_size.h"
#include "toolkit/late_functions.h"

namespace {

struct StockIcon {
    int key;
    SHSTOCKICONID id;
    WORD resource;  // in User32.dll
    WORD shared;    // of the system's own, should User32.dll have none of that number
};
constexpr std::array<StockIcon, 8> kStockIcons = {{
    {ICON_INFORMATION, SIID_INFO, 104, OIC_INFORMATION},
    {ICON_INFORMATION_SMALL, SIID_INFO, 104, OIC_INFORMATION},
    {ICON_WARNING, SIID_WARNING, 101, OIC_WARNING},
    {ICON_WARNING_SMALL, SIID_WARNING, 101, OIC_WARNING},
    {ICON_ERROR, SIID_ERROR, 103, OIC_ERROR},
    {ICON_ERROR_SMALL, SIID_ERROR, 103, OIC_ERROR},
    {ICON_QUESTION, SIID_HELP, 102, OIC_QUES},
    {ICON_QUESTION_SMALL, SIID_HELP, 102, OIC_QUES},
}};
static_assert(SIID_INFO == 79 && SIID_WARNING == 78 && SIID_ERROR == 80 && SIID_HELP == 23);

bool IsSmall(int key) {
    return key % 2 == 0;
}

// The icons of messages have one size for the large ones and one for the small.
int SizeKey(int key) {
    if (key < ICON_INFORMATION || key > ICON_QUESTION_SMALL) return key;
    return IsSmall(key) ? ICON_INFORMATION_SMALL : ICON_INFORMATION;
}

HICON LoadStockIcon(const StockIcon& icon) {
    SHSTOCKICONINFO info{};
    info.cbSize = sizeof info;
    const UINT flags = SHGSI_ICON | (IsSmall(icon.key) ? SHGSI_SMALLICON : 0);
    const HRESULT result = CallIfThere(TheLateFunctions().shGetStockIconInfo, icon.id, flags, &info);
    return SUCCEEDED(result) ? info.hIcon : nullptr;
}

HICON LoadUserIcon(const StockIcon& icon, const SIZE& size) {
    const auto load = [&](HMODULE module, WORD resource) {
        return static_cast<HICON>(
            LoadImageW(module, MAKEINTRESOURCEW(resource), IMAGE_ICON, size.cx, size.cy, LR_SHARED));
    };
    HICON own = load(GetModuleHandleW(L"User32.dll"), icon.resource);
    return own != nullptr ? own : load(nullptr, icon.shared);
}

HICON Lookup(const std::map<int, HICON>& icons, int key) {
    const auto found = icons.find(key);
    return found == icons.end() ? nullptr : found->second;
}

}  // namespace

tvsysicon::~tvsysicon() {
    for (const auto* icons : {&m_stockIcons, &m_userIcons}) {
        for (const auto& [key, icon] : *icons)
            handle_release::Icon(icon);
    }
}

void tvsysicon::Load() {
    if (m_loaded) return;
    m_loaded = true;
    const tvcominit com;
    m_sizes[ICON_INFORMATION] = {GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)};
    m_sizes[ICON_INFORMATION_SMALL] = {GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)};
    for (const StockIcon& icon : kStockIcons) {
        if (HICON stock = LoadStockIcon(icon)) m_stockIcons[icon.key] = stock;
        if (HICON user = LoadUserIcon(icon, m_sizes[SizeKey(icon.key)])) m_userIcons[icon.key] = user;
    }
}

HICON tvsysicon::Find(int key) {
    Load();
    const HICON stock = Lookup(m_stockIcons, key);
    return stock != nullptr ? stock : Lookup(m_userIcons, key);
}

void tvsysicon::Add(int key, HICON icon) {
    if (icon == nullptr) return;
    Load();
    HICON& place = m_stockIcons[key];
    const tvIconHandle old(place == icon ? nullptr : place);
    place = icon;
    m_sizes[key] = IconSize(icon);
}

SIZE tvsysicon::SizeOf(int key) {
    Load();
    const auto found = m_sizes.find(SizeKey(key));
    return found == m_sizes.end() ? SIZE{} : found->second;
}
