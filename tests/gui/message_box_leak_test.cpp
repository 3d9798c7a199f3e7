// Message boxes leave nothing behind when they are closed.
#include <gtest/gtest.h>

#include "tests/gui/message_box_harness.h"
#include "tests/gui/rounds.h"

namespace {

// A box that is closed by its leftmost button as soon as it and its controls have been painted.
class ClosingBox : public tvMessageBox {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = tvMessageBox::WindowProc(message, wParam, lParam);
        if (message == WM_PAINT) Close();
        return result;
    }

private:
    void Close() {
        for (HWND child = GetTopWindow(m_hWnd); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            UpdateWindow(child);
        const auto buttons = MessageButtonSet(m_style).Buttons();
        const int id = buttons.back();
        PostMessageW(m_hWnd, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(id), BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(m_hWnd, id)));
    }
};

class MessageBoxLeaks : public testing::TestWithParam<const char16_t*> {
protected:
    MessageBoxLeaks() { UseTheme(GetParam()); }

private:
    KeepTheme m_Keep;
};
INSTANTIATE_TEST_SUITE_P(Themes, MessageBoxLeaks, testing::ValuesIn(kTestedThemes), NameOfTheme);

TEST_P(MessageBoxLeaks, AreNoneOfAnySetOfButtonsWithIconAndCheckBox) {
    constexpr u32 kSets[] = {MB_OK,    MB_OKCANCEL,    MB_ABORTRETRYIGNORE,  MB_YESNOCANCEL,
                             MB_YESNO, MB_RETRYCANCEL, MB_CANCELTRYCONTINUE, 9};
    constexpr u32 kIcons[] = {MB_ICONERROR, MB_ICONQUESTION, MB_ICONWARNING, MB_ICONINFORMATION,
                              MESSAGE_ICON_TICK};
    std::size_t number = 0;
    ExpectNothingIsLeft([&] {
        const u32 set = kSets[number % std::size(kSets)];
        ClosingBox box;
        box.m_heading = u"Heading";
        box.SetCheck(u"&Do not ask again", 1);
        box.SetCountDown(60, static_cast<u32>(MessageButtonSet(set).Buttons()[0]), false);
        const int result = box.Run(nullptr, u"A question\r\nof two lines.",
                                   set | kIcons[number % std::size(kIcons)], u"Title");
        ASSERT_EQ(result, MessageButtonSet(set).Buttons().back());
        ASSERT_EQ(box.m_checkValue, 1U);
        ++number;
    });
}

}  // namespace
