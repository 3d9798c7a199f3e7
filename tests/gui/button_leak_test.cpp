// Buttons of every class leave nothing behind when they go.
#include "tests/gui/button_stage.h"
#include "tests/gui/rounds.h"
#include "tests/gui/test_icon.h"
#include "toolkit/button_icon.h"
#include "toolkit/button_link.h"
#include "toolkit/button_note.h"
#include "toolkit/button_split.h"
#include "toolkit/check_box.h"

namespace {

class GlyphButton : public tvButton_customIcon {
public:
    GlyphButton() : tvButton_customIcon(GLYPH_BIN) {}
};
class RadioButton : public tvCheckBox {};

template <typename Wrapper>
class ButtonLeaks : public testing::Test {};
using AllButtons = testing::Types<tvButton, tvCheckBox, RadioButton, tvButton_Icon, GlyphButton,
                                  tvButton_Note, tvButton_Link, tvButton_Split>;
TYPED_TEST_SUITE(ButtonLeaks, AllButtons);

template <typename Wrapper>
DWORD StyleFor() {
    if (std::is_same_v<Wrapper, RadioButton>) return BS_AUTORADIOBUTTON | BS_MULTILINE;
    return std::is_same_v<Wrapper, tvCheckBox> ? DWORD{BS_AUTO3STATE} : DWORD{BS_PUSHBUTTON};
}

// Makes a button, uses whatever it may hold something for, has it painted twice and destroys it.
template <typename Wrapper>
void UseButton(HWND parent, HICON icon) {
    Wrapper button;
    const HWND window =
        CreateWindowExW(0, L"BUTTON", L"&Caption", WS_CHILD | WS_VISIBLE | StyleFor<Wrapper>(), 10, 10, 120,
                        40, parent, nullptr, nullptr, nullptr);
    button.SubclassWindow(window);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), FALSE);
    button.SetTip(u"What it does");
    SendMessageW(window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon));
    UpdateWindow(window);
    SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
    SetWindowTextW(window, L"Another and a longer one");
    SetWindowPos(window, nullptr, 0, 0, 180, 60, SWP_NOMOVE | SWP_NOZORDER);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
}

template <typename Wrapper>
void ExpectNoLeak(std::u16string_view theme) {
    UseTheme(theme);
    const KeepTheme keep;
    const tvIconHandle icon = SolidIcon(16, RGB(1, 2, 250));
    TestDialog dialog;
    dialog.Open();
    ExpectNothingIsLeft([&] { UseButton<Wrapper>(dialog.Handle(), icon.Get()); });
}

TYPED_TEST(ButtonLeaks, AreNoneUnderAColorTheme) {
    ExpectNoLeak<TypeParam>(kLight);
}

TYPED_TEST(ButtonLeaks, AreNoneUnderSystemDefault) {
    ExpectNoLeak<TypeParam>(kSystem);
}

}  // namespace
