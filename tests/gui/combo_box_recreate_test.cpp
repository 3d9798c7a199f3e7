// What a combo box takes along when it gets a new window.
#include "tests/gui/input_stage.h"
#include "toolkit/combo_box.h"

namespace {

using ComboStage = InputStage<tvComboBox, ATOM_COMBOBOX>;

constexpr int kItems = 50;

tvstring NameOf(int index) {
    tvstring name = u"Row ";
    name += static_cast<char16_t>(u'A' + index * 7 % 26);
    name += static_cast<char16_t>(u'a' + index % 26);
    name += static_cast<char16_t>(u'0' + index / 26);
    return name;
}

tvstring Item(const tvComboBox& combo, int index) {
    wchar_t text[100] = {};
    combo.Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return platform::Units(text);
}

void Fill(const tvComboBox& combo) {
    for (int i = 0; i < kItems; ++i)
        combo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(NameOf(i).c_str()));
}

// What some systems cannot do: the list cannot be scrolled before it is dropped down, and there is no least
// number of rows and no cue. This combo box has them,
// and a new window has none of what the old one was told.
class ScrolledCombo : public tvComboBox {
public:
    void OnSubclassed() override {
        m_minVisible = kUsualMinVisible;
        m_cue.clear();
        tvComboBox::OnSubclassed();
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case CB_GETTOPINDEX:
                return m_topIndex;
            case CB_SETTOPINDEX:
                m_newTopIndex = wParam;
                break;
            case CB_GETMINVISIBLE:
                return m_minVisible;
            case CB_SETMINVISIBLE:
                m_minVisible = static_cast<LRESULT>(wParam);
                return TRUE;
            case CB_GETCUEBANNER:
                lstrcpynW(reinterpret_cast<wchar_t*>(wParam), Wide(m_cue.c_str()), static_cast<int>(lParam));
                return TRUE;
            case CB_SETCUEBANNER:
                m_cue = reinterpret_cast<const char16_t*>(lParam);
                return TRUE;
            default:
                break;
        }
        return tvComboBox::WindowProc(message, wParam, lParam);
    }
    static constexpr LRESULT kUsualMinVisible = 30;
    LRESULT m_topIndex = 0;
    WPARAM m_newTopIndex = 0;
    LRESULT m_minVisible = kUsualMinVisible;
    tvstring m_cue;
};

// A dialog with a combo box of a style, under the theme Dark.
class ComboRecreate : public testing::TestWithParam<u32> {
protected:
    ComboRecreate() {
        UseTheme(kDark);
        MoveMouseAway();
        m_Dialog.m_onMessage = [this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
            if (message == WM_TVCOMBOBOX_RECREATED()) m_Told.emplace_back(wParam, lParam);
            return false;
        };
        m_Dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        m_Dialog.Open();
        m_Combo.Create(m_Dialog.Handle(), kInput, {10, 60, 150, 260},
                       WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | GetParam());
        PumpQueue();
        m_Told.clear();
    }
    void Switch(std::u16string_view theme) { UseTheme(theme, m_Dialog.Handle()); }

    KeepTheme m_Keep;
    ScrolledCombo m_Combo;
    TestDialog m_Dialog;
    std::vector<std::pair<WPARAM, LPARAM>> m_Told;
};
INSTANTIATE_TEST_SUITE_P(Styles, ComboRecreate, testing::Values(u32{CBS_DROPDOWNLIST}, u32{CBS_DROPDOWN}),
                         [](const auto& style) { return style.param == CBS_DROPDOWN ? "Edit" : "List"; });

TEST_P(ComboRecreate, KeepsFiftyItemsWithTextSelectionAndOrder) {
    Fill(m_Combo);
    m_Combo.Send(CB_SETCURSEL, 31);
    for (const std::u16string_view theme : {kSystem, kDark, kSystem, kLight}) {
        Switch(theme);
        ASSERT_EQ(m_Combo.Send(CB_GETCOUNT), kItems);
        EXPECT_EQ(m_Combo.Send(CB_GETCURSEL), 31);
        EXPECT_EQ(TextOf(m_Combo.Handle()), NameOf(31));
        for (int i = 0; i < kItems; ++i)
            ASSERT_EQ(Item(m_Combo, i), NameOf(i));
    }
}

TEST_P(ComboRecreate, HasANewWindowThatTheParentIsToldOf) {
    for (const std::u16string_view theme : {kSystem, kDark}) {
        m_Told.clear();
        const HWND before = m_Combo.Handle();
        Switch(theme);
        EXPECT_NE(m_Combo.Handle(), before);
        EXPECT_FALSE(IsWindow(before));
        EXPECT_EQ(tvWnd::FromHandle(before), nullptr);
        EXPECT_EQ(tvWnd::FromHandle(m_Combo.Handle()), &m_Combo);
        EXPECT_EQ(m_Dialog.Item(kInput), m_Combo.Handle());
        EXPECT_EQ(m_Told, (std::vector<std::pair<WPARAM, LPARAM>>{{kInput, 0}}));
    }
}

TEST_P(ComboRecreate, IsNotMadeAnewFromOneColorThemeToAnother) {
    const HWND before = m_Combo.Handle();
    Switch(kLight);
    EXPECT_EQ(m_Combo.Handle(), before);
    EXPECT_TRUE(m_Told.empty());
}

TEST_P(ComboRecreate, WrapsThePartsOfTheNewWindow) {
    for (const std::u16string_view theme : {kSystem, kDark}) {
        Switch(theme);
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        GetComboBoxInfo(m_Combo.Handle(), &info);
        EXPECT_EQ(m_Combo.m_list.Handle(), info.hwndList);
        EXPECT_EQ(m_Combo.m_edit.IsAttached(), GetParam() == CBS_DROPDOWN);
    }
}

TEST_P(ComboRecreate, KeepsItsSettings) {
    Fill(m_Combo);
    m_Combo.Send(CB_SETMINVISIBLE, 7);
    m_Combo.Send(CB_SETDROPPEDWIDTH, 222);
    m_Combo.Send(CB_SETEXTENDEDUI, TRUE);
    m_Combo.Send(CB_SETHORIZONTALEXTENT, 333);
    m_Combo.m_topIndex = 9;
    constexpr LCID kGerman = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    ASSERT_NE(m_Combo.Send(CB_GETLOCALE), LRESULT{kGerman});
    m_Combo.Send(CB_SETLOCALE, kGerman);
    m_Combo.Send(CB_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(u"Cue"));
    for (const std::u16string_view theme : {kSystem, kDark}) {
        m_Combo.m_newTopIndex = 0;
        Switch(theme);
        EXPECT_EQ(m_Combo.Send(CB_GETMINVISIBLE), 7);
        EXPECT_EQ(m_Combo.Send(CB_GETDROPPEDWIDTH), 222);
        EXPECT_EQ(m_Combo.Send(CB_GETEXTENDEDUI), TRUE);
        EXPECT_EQ(m_Combo.Send(CB_GETHORIZONTALEXTENT), 333);
        EXPECT_EQ(m_Combo.m_newTopIndex, 9U);
        EXPECT_EQ(m_Combo.Send(CB_GETLOCALE), LRESULT{kGerman});
        EXPECT_EQ(m_Combo.m_cue, u"Cue");
    }
}

TEST_P(ComboRecreate, KeepsItsPlaceOrderFontAndStyle) {
    const HWND after = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, m_Dialog.Handle(), nullptr,
                                       nullptr, nullptr);
    SetWindowPos(after, m_Combo.Handle(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    const HWND before = GetWindow(m_Combo.Handle(), GW_HWNDPREV);
    ASSERT_NE(before, nullptr);
    m_Combo.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontBold.Get()), TRUE);
    EnableWindow(m_Combo.Handle(), FALSE);
    const RECT place = PlaceIn(m_Dialog.Handle(), m_Combo.Handle());
    for (const std::u16string_view theme : {kSystem, kDark}) {
        Switch(theme);
        EXPECT_EQ(PlaceIn(m_Dialog.Handle(), m_Combo.Handle()), place);
        EXPECT_EQ(GetWindow(m_Combo.Handle(), GW_HWNDPREV), before);
        EXPECT_EQ(GetWindow(m_Combo.Handle(), GW_HWNDNEXT), after);
        EXPECT_EQ(m_Combo.m_font, TheTheme().m_fontBold.Get());
        EXPECT_EQ(StyleOf(m_Combo.Handle()) & (WS_VISIBLE | WS_DISABLED | WS_TABSTOP),
                  WS_VISIBLE | WS_DISABLED | WS_TABSTOP);
    }
}

TEST_P(ComboRecreate, HasAScrollBarInItsListIfItIsLong) {
    Fill(m_Combo);
    for (const std::u16string_view theme : {kSystem, kDark}) {
        Switch(theme);
        m_Combo.Send(CB_SHOWDROPDOWN, TRUE);
        EXPECT_NE(StyleOf(m_Combo.m_list.Handle()) & WS_VSCROLL, 0U);
        m_Combo.Send(CB_SHOWDROPDOWN, FALSE);
    }
}

TEST_P(ComboRecreate, StaysTheFirstOfItsParent) {
    SetWindowPos(m_Combo.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Switch(kSystem);
    EXPECT_EQ(GetTopWindow(m_Dialog.Handle()), m_Combo.Handle());
}

TEST_P(ComboRecreate, StaysHidden) {
    ShowWindow(m_Combo.Handle(), SW_HIDE);
    Switch(kSystem);
    EXPECT_EQ(StyleOf(m_Combo.Handle()) & WS_VISIBLE, 0U);
}

TEST_P(ComboRecreate, DropsDownAsFarAsBefore) {
    const int drop = m_Combo.m_dropHeight;
    RECT before{};
    m_Combo.Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&before));
    for (const std::u16string_view theme : {kSystem, kDark, kSystem}) {
        Switch(theme);
        RECT now{};
        m_Combo.Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&now));
        EXPECT_EQ(m_Combo.m_dropHeight, drop);
        EXPECT_NEAR(Height(now), Height(before), 4);
    }
}

TEST_P(ComboRecreate, KeepsItsTurnWhenTheFocusGoesRound) {
    const HWND last = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 100, 60, 20,
                                      m_Dialog.Handle(), nullptr, nullptr, nullptr);
    const auto focused = [this] {
        const HWND focus = GetFocus();
        return IsChild(m_Combo.Handle(), focus) != FALSE ? m_Combo.Handle() : focus;
    };
    for (const std::u16string_view theme : {kSystem, kDark, kSystem}) {
        Switch(theme);
        PumpQueue();
        Focus(m_Dialog, m_Dialog.Item(kOther));
        TypeInDialog(m_Dialog, VK_TAB);
        EXPECT_EQ(focused(), m_Combo.Handle());
        TypeInDialog(m_Dialog, VK_TAB);
        EXPECT_EQ(focused(), last);
        TypeInDialog(m_Dialog, VK_TAB);
        EXPECT_EQ(focused(), m_Dialog.Item(kOther));
    }
}

TEST_P(ComboRecreate, KeepsTheKeyboard) {
    for (const std::u16string_view theme : {kSystem, kDark}) {
        SetFocus(m_Combo.Handle());
        Switch(theme);
        const HWND focus = GetFocus();
        EXPECT_TRUE(focus == m_Combo.Handle() || IsChild(m_Combo.Handle(), focus));
    }
}

TEST_P(ComboRecreate, LeavesTheKeyboardWhereItIs) {
    Focus(m_Dialog, m_Dialog.Item(kOther));
    Switch(kSystem);
    EXPECT_EQ(GetFocus(), m_Dialog.Item(kOther));
}

TEST_P(ComboRecreate, LosesTheDataOfItsRows) {
    Fill(m_Combo);
    m_Combo.Send(CB_SETITEMDATA, 3, 99);
    Switch(kSystem);
    EXPECT_EQ(m_Combo.Send(CB_GETITEMDATA, 3), 0);
}

TEST_P(ComboRecreate, HasNoSelectionIfItHadNone) {
    Fill(m_Combo);
    Switch(kSystem);
    EXPECT_EQ(m_Combo.Send(CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(m_Combo.Send(CB_GETCOUNT), kItems);
}

TEST_P(ComboRecreate, OfATemplateHappensOnceTheDialogRuns) {
    std::vector<WPARAM> told;
    UseTheme(kDark);
    tvComboBox combo;
    TestDialog dialog;
    dialog.m_onMessage = [&](UINT message, WPARAM wParam, LPARAM, LRESULT&) {
        if (message == WM_TVCOMBOBOX_RECREATED()) told.push_back(wParam);
        return false;
    };
    dialog.Add(ATOM_COMBOBOX, kInput, 20, 40, 100, 14);
    dialog.Wrap(combo, kInput);
    dialog.m_onInit = [&] {
        EXPECT_EQ(StyleOf(combo.Handle()) & CBS_OWNERDRAWFIXED, 0U);
        Fill(combo);
        combo.Send(CB_SETCURSEL, 2);
    };
    dialog.Open();
    EXPECT_TRUE(PumpUntil([&] { return !told.empty(); }));
    EXPECT_EQ(told, std::vector<WPARAM>{kInput});
    EXPECT_NE(StyleOf(combo.Handle()) & CBS_OWNERDRAWFIXED, 0U);
    EXPECT_EQ(TextOf(combo.Handle()), NameOf(2));
}

TEST(ComboRecreateEdit, KeepsATextThatIsNoRow) {
    const KeepTheme keep;
    UseTheme(kDark);
    tvComboBox combo;
    TestDialog dialog;
    dialog.Open();
    combo.Create(dialog.Handle(), kInput, {10, 60, 150, 260}, WS_VISIBLE | CBS_DROPDOWN);
    Fill(combo);
    SetWindowTextW(combo.Handle(), L"Typed");
    for (const std::u16string_view theme : {kSystem, kDark}) {
        UseTheme(theme, dialog.Handle());
        EXPECT_EQ(TextOf(combo.Handle()), u"Typed");
        EXPECT_EQ(combo.Send(CB_GETCURSEL), CB_ERR);
    }
}

TEST(ComboRecreateEdit, KeepsTheCueOfItsEditBox) {
    const KeepTheme keep;
    UseTheme(kDark);
    tvComboBox combo;
    TestDialog dialog;
    dialog.Open();
    combo.Create(dialog.Handle(), kInput, {10, 60, 150, 260}, WS_VISIBLE | CBS_DROPDOWN);
    combo.m_edit.SetCue(u"Cue", false);
    PumpQueue();
    for (const std::u16string_view theme : {kSystem, kDark}) {
        UseTheme(theme, dialog.Handle());
        EXPECT_EQ(combo.m_edit.m_cue, u"Cue");
        EXPECT_EQ(combo.m_edit.m_cueOnFocus, 0);
        wchar_t cue[50] = {};  // of the new window
        combo.m_edit.Send(EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 50);
        EXPECT_STREQ(cue, L"Cue");
        Settle(dialog.Handle());
        const Picture look(combo.m_edit.Handle());
        EXPECT_GT(look.Count(TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)), 5);
    }
}

}  // namespace
