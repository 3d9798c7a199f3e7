#include "shell/app_data.h"

#include <algorithm>
#include <array>

#include "toolkit/image.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"

namespace {

constexpr float kLargeFactor = 1.45F;

// The captions of message boxes, by their keys in the section "global".
struct ButtonCaption {
    int id;
    const char16_t* key;
};
constexpr std::array<ButtonCaption, 9> kButtonCaptions = {{
    {IDOK, u"ok"},
    {IDCANCEL, u"cancel"},
    {IDYES, u"yes"},
    {IDNO, u"no"},
    {IDCONTINUE, u"continue"},
    {IDABORT, u"abort"},
    {IDRETRY, u"retry"},
    {IDIGNORE, u"ignore"},
    {IDTRYAGAIN, u"tryagain"},
}};

void GiveButtonCaptions() {
    for (const ButtonCaption& caption : kButtonCaptions)
        tvMessageBox::SetButtonText(caption.id, LangText(u"global", caption.key));
}

LOGFONTW DialogFont() {
    LOGFONTW font{};
    GetObjectW(TheTheme().Font(), sizeof font, &font);
    return font;
}

}  // namespace

void CVMRAppData::RenewIcons() {
    constexpr u16 kNeedPassword = 102;
    constexpr u16 kSetPassword = 103;
    hIconSetPwd = LoadTintedIcon(kSetPassword, kNoColor);
    hIconNeedPwd = LoadTintedIcon(kNeedPassword, kNoColor);
}

void CVMRAppData::LoadStoreTheme(LoadStore direction, int index) {
    if (direction == LoadStore::Load) {
        const tvstring name = LoadStoreThemeName(LoadStore::Load, {});
        TheTheme().Apply(TheTheme().IndexForStored(name));
    } else if (index >= 0 && TheTheme().Apply(index)) {
        LoadStoreThemeName(LoadStore::Store, TheTheme().m_themes[static_cast<std::size_t>(index)].m_name);
    }
    RenewIcons();
}

bool CVMRAppData::LoadStoreLang(LoadStore direction, const tvstring& file) {
    bool isLoaded = true;
    if (direction == LoadStore::Load) {
        isLoaded = Language().Load(LoadStoreLangName(LoadStore::Load, {}));
    } else if (!file.empty()) {
        Language().Load(file);
        BuildMenus();
        LoadStoreLangName(LoadStore::Store, file);
        if (m_OnLanguage != nullptr) m_OnLanguage();
    }
    GiveButtonCaptions();
    return isLoaded;
}

void CVMRAppData::LoadStoreFont(LoadStore direction, const LOGFONTW* chosen) {
    static_assert(sizeof(LOGFONTW) == kFontRecordSize);
    LOGFONTW logfont{};
    u8 record[kFontRecordSize] = {};
    bool isChosen = chosen != nullptr;
    if (isChosen) std::copy_n(reinterpret_cast<const u8*>(chosen), kFontRecordSize, record);
    if (direction == LoadStore::Store && !isChosen) return;
    const bool isMoved = LoadStoreFontRecord(direction, record);
    if (direction == LoadStore::Load) isChosen = isMoved;
    std::copy_n(record, kFontRecordSize, reinterpret_cast<u8*>(&logfont));
    if (!isChosen) logfont = DialogFont();

    LOGFONTW higher = logfont;
    higher.lfHeight = PasswordFontHeight(higher.lfHeight);
    font.Set(higher);
    if (isChosen) TheTheme().SetFont(logfont, kLargeFactor);
}

void CVMRAppData::MakeAccelerators() {
    std::array<ACCEL, 2> keys = {{
        {FVIRTKEY | FCONTROL, 'S', CMD_SAVE},
        {FVIRTKEY | FCONTROL, 'Z', CMD_UNDO},
    }};
    hAccel.Reset(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}
