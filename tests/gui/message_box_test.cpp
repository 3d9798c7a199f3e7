#include "toolkit/message_box.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "foundation/path.h"
#include "tests/gui/message_box_harness.h"
#include "tests/gui/sizes.h"
#include "toolkit/app.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

constexpr u32 kContinue = 9;
constexpr u32 kNoButtons = 8;

struct SetOfButtons {
    u32 style;
    std::vector<int> buttons;  // from right to left
    int closed;                // the result of Esc and of the cross
};
const std::vector<SetOfButtons> kSets = {
    {MB_OK, {1}, 1},
    {MB_OKCANCEL, {2, 1}, 2},
    {MB_ABORTRETRYIGNORE, {5, 4, 3}, 3},
    {MB_YESNOCANCEL, {2, 7, 6}, 2},
    {MB_YESNO, {7, 6}, 7},
    {MB_RETRYCANCEL, {2, 4}, 2},
    {MB_CANCELTRYCONTINUE, {11, 10, 2}, 2},
    {kContinue, {11}, 11},
};

// In each of the themes.
class MessageBoxInTheme : public testing::TestWithParam<const char16_t*> {
protected:
    MessageBoxInTheme() { UseTheme(GetParam()); }

private:
    KeepTheme m_Keep;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Themes, MessageBoxInTheme, testing::ValuesIn(kTestedThemes), NameOfTheme);

// --- Answers ---

TEST_P(MessageBoxInTheme, ClickGivesTheResultOfTheButton) {
    for (const SetOfButtons& set : kSets) {
        for (const int button : set.buttons) {
            BoxUnderTest box;
            EXPECT_EQ(box.Answer(set.style, {ClickOn(box, button)}), button) << set.style;
        }
    }
}

TEST_P(MessageBoxInTheme, EscapeGivesWhatClosingMeansForTheSet) {
    for (const SetOfButtons& set : kSets) {
        BoxUnderTest box;
        EXPECT_EQ(box.Answer(set.style, {Key(VK_ESCAPE)}), set.closed) << set.style;
    }
}

TEST_P(MessageBoxInTheme, CrossGivesWhatClosingMeansForTheSet) {
    for (const SetOfButtons& set : kSets) {
        BoxUnderTest box;
        EXPECT_EQ(box.Answer(set.style, {ClickCross(box)}), set.closed) << set.style;
    }
}

TEST_P(MessageBoxInTheme, EnterGivesTheDefaultButton) {
    for (const SetOfButtons& set : kSets) {
        const int count = static_cast<int>(set.buttons.size());
        for (int i = 0; i < 4; ++i) {
            const int expected = set.buttons[static_cast<std::size_t>(i < count ? count - 1 - i : count - 1)];
            BoxUnderTest box;
            EXPECT_EQ(box.Answer(set.style | static_cast<u32>(i) << 8, {Key(VK_RETURN)}), expected)
                << set.style << " " << i;
        }
    }
}

TEST_P(MessageBoxInTheme, SpaceGivesTheDefaultButtonSinceItHasTheFocus) {
    BoxUnderTest box;
    EXPECT_EQ(box.Answer(MB_YESNOCANCEL | MB_DEFBUTTON2, {Key(VK_SPACE)}), IDNO);
}

TEST_P(MessageBoxInTheme, DefaultButtonStaysSoWhileTheCheckBoxHasTheFocus) {
    BoxUnderTest box;
    box.SetCheck(u"Check", 0);
    const auto checkHasFocus = [&] { return GetFocus() == box.Item(1004); };
    const auto look = Once([&] { EXPECT_EQ(LOWORD(box.Send(DM_GETDEFID)), static_cast<WORD>(IDNO)); });
    box.Answer(MB_YESNOCANCEL | MB_DEFBUTTON2,
               {look, ClickOn(box, 1004), checkHasFocus, look, Key(VK_ESCAPE)});
}

TEST_P(MessageBoxInTheme, TabGoesFromLeftToRight) {
    BoxUnderTest box;
    EXPECT_EQ(box.Answer(MB_YESNOCANCEL, {Key(VK_TAB), Key(VK_SPACE)}), IDNO);
}

TEST_P(MessageBoxInTheme, LetterOfAButtonGivesIt) {
    BoxUnderTest box;
    EXPECT_EQ(box.Answer(MB_YESNO, {Key('N')}), IDNO);
}

TEST(MessageBoxes, WithoutButtonsEndsWithTwo) {
    BoxUnderTest escaped;
    EXPECT_EQ(escaped.Answer(kNoButtons, {Key(VK_ESCAPE)}), 2);
    BoxUnderTest crossed;
    EXPECT_EQ(crossed.Answer(kNoButtons, {ClickCross(crossed)}), 2);
}

TEST(MessageBoxes, WhoseCloseIsGrayTakesNoNoteOfWhatClosingMeans) {
    BoxUnderTest box;
    const auto grayClose =
        Once([&] { EnableMenuItem(GetSystemMenu(box.Handle(), FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED); });
    EXPECT_EQ(box.Answer(MB_YESNO, {grayClose, Key(VK_ESCAPE)}), 2);
}

TEST(MessageBoxes, ShowsWithoutAnObjectOfTheCallers) {
    HWND shown = nullptr;
    const DuringModal during({[&] {
                                  shown = FrontDialog(u"tvMsgBox00");
                                  return shown != nullptr && GetForegroundWindow() == shown;
                              },
                              Key(VK_ESCAPE)});
    EXPECT_EQ(tvMessageBox::Show(nullptr, u"Text", MB_YESNO, u"Title"), IDNO);
    EXPECT_FALSE(IsWindow(shown));
}

// --- Buttons ---

TEST(MessageBoxes, ShowsTheButtonsOfItsSetFromRightToLeft) {
    for (const SetOfButtons& set : kSets) {
        BoxUnderTest box;
        const auto look = Once([&] {
            int right = 1 << 20;
            for (const int button : set.buttons) {
                ASSERT_TRUE(box.HasVisible(button)) << set.style << " " << button;
                EXPECT_LT(box.PlaceOf(box.Item(button)).right, right);
                right = box.PlaceOf(box.Item(button)).left;
                EXPECT_EQ(box.ItemText(button), tvMessageBox::GetButtonText(button, nullptr, false));
            }
            int visible = 0;
            for (const tvButton* button : {&box.m_button1, &box.m_button2, &box.m_button3})
                visible += IsWindowVisible(button->Handle()) != FALSE ? 1 : 0;
            EXPECT_EQ(visible, static_cast<int>(set.buttons.size())) << set.style;
        });
        box.Answer(set.style, {look, Key(VK_ESCAPE)});
    }
}

TEST(MessageBoxes, TakesTheTextsOfTheLanguage) {
    tvMessageBox::SetButtonText(MESSAGE_YES, u"&Ja");
    BoxUnderTest box;
    box.Answer(MB_YESNO, {Once([&] {
                              EXPECT_EQ(box.ItemText(IDYES), u"&Ja");
                              EXPECT_EQ(box.ItemText(IDNO), u"&No");
                          }),
                          Key(VK_ESCAPE)});
    tvMessageBox::SetButtonText(MESSAGE_YES, u"");
}

TEST(MessageBoxes, PlacesButtonsAtTheBottomRight) {
    BoxUnderTest box;
    const auto look = Once([&] {
        RECT client;
        GetClientRect(box.Handle(), &client);
        const int side = TheTheme().m_marginX + TheTheme().m_marginX / 2;
        const PixelSize size = DialogUnitsToPixels(TheTheme().Font(), 50, 14);
        const RECT no = box.PlaceOf(box.Item(IDNO));
        const RECT yes = box.PlaceOf(box.Item(IDYES));
        EXPECT_EQ(no, BoxAt(client.right - side - size.x, client.bottom - TheTheme().m_marginY - size.y,
                            size.x, size.y));
        EXPECT_EQ(yes.right, no.left - TheTheme().m_gapX);
        EXPECT_EQ(yes.bottom, no.bottom);
    });
    box.Answer(MB_YESNO, {look, Key(VK_ESCAPE)});
}

// --- Title and text ---

namespace {

tvstring TitleOf(const tvstring& given) {
    BoxUnderTest box;
    tvstring title;
    box.Answer(MB_OK, {Once([&] { title = WindowText(box.Handle()); }), Key(VK_ESCAPE)}, u"Text", given);
    return title;
}

}  // namespace

TEST(MessageBoxes, TitleOfAMenuTextLosesItsDecoration) {
    EXPECT_EQ(TitleOf(u"Save As..."), u"Save As");
    EXPECT_EQ(TitleOf(u"&Open\tCtrl+O"), u"Open");
    EXPECT_EQ(TitleOf(u"Wait....."), u"Wait");
}

TEST(MessageBoxes, TitleKeepsOneDotAndDoubledMarks) {
    EXPECT_EQ(TitleOf(u"Item."), u"Item.");
    EXPECT_EQ(TitleOf(u"&&Co"), u"&&Co");
}

TEST(MessageBoxes, WithoutATitleHasTheProgramsName) {
    EXPECT_EQ(TitleOf(u""), tvApp::Get()->m_appName);
}

TEST(MessageBoxes, WithoutATitleAndAProgramNameHasTheFilesName) {
    const tvstring name = tvApp::Get()->m_appName;
    tvApp::Get()->m_appName.clear();
    EXPECT_EQ(TitleOf(u""), FileNameOf(ProgramPath(u"")));
    tvApp::Get()->m_appName = name;
}

TEST(MessageBoxes, TextLosesLineEndsInFront) {
    BoxUnderTest box;
    box.m_heading = u"Heading\r\n\n";
    box.Answer(MB_OK, {Key(VK_ESCAPE)}, u"\r\n\r\n Text\r\n");
    EXPECT_EQ(box.m_text, u" Text\r\n");
    EXPECT_EQ(box.m_heading, u"Heading");
}

// --- Size ---

namespace {

// Where a box with this text stands on the screen.
RECT PlaceWith(u32 style, const tvstring& text, const tvstring& title = u"T") {
    BoxUnderTest box;
    RECT window{};
    box.Answer(style, {Once([&] { GetWindowRect(box.Handle(), &window); }), Key(VK_ESCAPE)}, text, title);
    return window;
}

}  // namespace

TEST(MessageBoxes, WithAVeryLongTextGrowsToSevenEighthsOfTheScreenAndItsButtonsStayVisible) {
    RECT area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    tvstring text;
    for (int i = 0; i < 4000; ++i)
        text += u"word after word ";
    BoxUnderTest box;
    const auto look = Once([&] {
        RECT window;
        GetWindowRect(box.Handle(), &window);
        EXPECT_LE(Width(window), Width(area) * 7 / 8);
        EXPECT_GT(Width(window), Width(area) * 3 / 4) << "it stops short of that only by the last word";
        EXPECT_LE(Height(window), Height(area));
        RECT button;
        GetWindowRect(box.Item(IDOK), &button);
        EXPECT_EQ(WindowFromPoint({(button.left + button.right) / 2, (button.top + button.bottom) / 2}),
                  box.Item(IDOK));
        RECT inside;
        EXPECT_TRUE(IntersectRect(&inside, &button, &area));
        EXPECT_EQ(inside, button);
    });
    EXPECT_EQ(box.Answer(MB_OK, {look, ClickOn(box, IDOK)}, text), IDOK);
}

TEST(MessageBoxes, WithALongTextIsWiderThanWithAShortOne) {
    const auto widthFor = [](const tvstring& text) { return Width(PlaceWith(MB_OK, text)); };
    EXPECT_GT(widthFor(u"A text of some length that takes more than the button does, by far."),
              widthFor(u"Short."));
}

TEST(MessageBoxes, WithoutATextHasRoomForOneLine) {
    const auto heightFor = [](const tvstring& text) {
        return Height(PlaceWith(MB_OK | MESSAGE_ICON_NONE, text));
    };
    EXPECT_EQ(heightFor(u""), heightFor(u"hy"));
    EXPECT_LT(heightFor(u""), heightFor(u"hy\r\nhy"));
}

TEST(MessageBoxes, WithALongTitleIsWider) {
    const auto widthFor = [](const tvstring& title) { return Width(PlaceWith(MB_OK, u"x", title)); };
    const int limit = DialogUnitsToPixels(TheTheme().Font(), 278, 0).x;
    EXPECT_GT(widthFor(u"A title that is longer than the text"), widthFor(u"T"));
    EXPECT_EQ(widthFor(tvstring(500, u'm')), limit);
}

namespace {

int CaptionFontWidth(const NONCLIENTMETRICSW& metrics, const tvstring& text) {
    const tvFontHandle font(CreateFontIndirectW(&metrics.lfCaptionFont));
    const tvClientDC screen(nullptr);
    const tvSelected selected(screen.Get(), font.Get());
    SIZE size{};
    GetTextExtentPoint32W(screen.Get(), Wide(text.c_str()), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace

TEST(MessageBoxes, HasRoomForItsTitleInTheTitleBar) {
    const tvstring title = u"A title that is longer than the text";
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    BoxUnderTest box;
    const auto look = Once([&] {
        TITLEBARINFO bar{};
        bar.cbSize = sizeof bar;
        GetTitleBarInfo(box.Handle(), &bar);
        RECT window;
        GetWindowRect(box.Handle(), &window);
        const int besides = Width(window) - Width(bar.rcTitleBar) + metrics.iCaptionWidth;
        EXPECT_EQ(Width(window), besides + CaptionFontWidth(metrics, title) + 10);
    });
    box.Answer(MB_OK, {look, Key(VK_ESCAPE)}, u"x", title);
}

TEST(MessageBoxes, StandsInTheMiddleOfTheMainWindow) {
    TestDialog owner(300, 200);
    owner.Open();
    owner.BeMain();
    SetWindowPos(owner.Handle(), nullptr, 200, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    BoxUnderTest box;
    const auto look = Once([&] {
        RECT outer;
        RECT inner;
        GetWindowRect(owner.Handle(), &outer);
        GetWindowRect(box.Handle(), &inner);
        EXPECT_EQ(GetWindow(box.Handle(), GW_OWNER), owner.Handle());
        EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 1);
        EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 1);
        EXPECT_FALSE(IsWindowEnabled(owner.Handle()));
    });
    box.Answer(MB_OK, {look, Key(VK_ESCAPE)});
    EXPECT_TRUE(IsWindowEnabled(owner.Handle()));
}

TEST(MessageBoxes, HasAWindowClassOfItsOwn) {
    BoxUnderTest box;
    box.Answer(MB_OK, {Once([&] {
                           wchar_t name[32] = {};
                           GetClassNameW(box.Handle(), name, 32);
                           EXPECT_STREQ(name, L"tvMsgBox00");
                       }),
                       Key(VK_ESCAPE)});
}

TEST(MessageBoxes, IsMadeFromATemplateOfThreeButtonsAndACheckBox) {
    tvMessageBox box;
    const DialogHeader& header = *box.m_builder.Header();
    EXPECT_EQ(header.cx, 188);
    EXPECT_EQ(header.cy, 106);
    EXPECT_EQ(header.count, 4);
    EXPECT_NE(header.style & WS_POPUP, 0U);
    constexpr i16 kButtonX[] = {7, 67, 131};
    for (int i = 0; i < 3; ++i) {
        const DialogControl& button = *box.Item(i);
        EXPECT_EQ(button.id, 1001 + i);
        EXPECT_EQ(button.x, kButtonX[i]);
        EXPECT_EQ(button.y, 85);
        EXPECT_EQ(button.cx, 50);
        EXPECT_EQ(button.cy, 14);
        EXPECT_EQ(button.style & BS_TYPEMASK, u32{BS_PUSHBUTTON});
    }
    const DialogControl& check = *box.Item(3);
    EXPECT_EQ(check.id, 1004);
    EXPECT_EQ(check.cx, 0);
    EXPECT_EQ(check.cy, 0);
    EXPECT_EQ(check.style & 0xFFFF, 0x2403U);
}

// --- The check box ---

TEST_P(MessageBoxInTheme, CheckBoxTellsWhatItWasAtTheEnd) {
    for (const u32 before : {0U, 1U}) {
        BoxUnderTest untouched;
        untouched.SetCheck(u"&Do not ask again", before);
        EXPECT_EQ(untouched.Answer(MB_YESNO, {ClickOn(untouched, IDYES)}), IDYES);
        EXPECT_EQ(untouched.m_checkValue, before);
        BoxUnderTest clicked;
        clicked.SetCheck(u"&Do not ask again", before);
        EXPECT_EQ(clicked.Answer(MB_YESNO, {ClickOn(clicked, 1004),
                                            [&] { return clicked.m_check.Send(BM_GETCHECK) != before; },
                                            ClickOn(clicked, IDYES)}),
                  IDYES);
        EXPECT_EQ(clicked.m_checkValue, 1 - before);
    }
}

TEST_P(MessageBoxInTheme, CheckBoxStandsAboveTheButtonsAtTheLeft) {
    BoxUnderTest box;
    box.SetCheck(u"Do not ask again", 0);
    const auto look = Once([&] {
        EXPECT_TRUE(box.HasVisible(1004));
        EXPECT_EQ(box.ItemText(1004), u"Do not ask again");
        const RECT check = box.PlaceOf(box.Item(1004));
        EXPECT_EQ(check.left, TheTheme().m_marginX + TheTheme().m_marginX / 2);
        EXPECT_EQ(check.bottom, box.PlaceOf(box.Item(IDOK)).top - TheTheme().m_marginY);
        EXPECT_GT(Width(check), 40);
    });
    box.Answer(MB_OK, {look, Key(VK_ESCAPE)});
}

TEST(MessageBoxes, WithoutACheckTextHidesTheCheckBox) {
    BoxUnderTest box;
    box.SetCheck(nullptr, 1);
    box.Answer(MB_OK, {Once([&] { EXPECT_FALSE(box.HasVisible(1004)); }), Key(VK_ESCAPE)});
    EXPECT_EQ(box.m_checkValue, 0U);
}

TEST(MessageBoxes, GrowsByItsCheckBox) {
    const auto heightWith = [](const char16_t* check) {
        BoxUnderTest box;
        box.SetCheck(check, 0);
        RECT window{};
        RECT checkBox{};
        box.Answer(MB_OK, {Once([&] {
                               GetWindowRect(box.Handle(), &window);
                               checkBox = box.PlaceOf(box.Item(1004));
                           }),
                           Key(VK_ESCAPE)});
        return Height(window) - (check != nullptr ? Height(checkBox) + TheTheme().m_marginY : 0);
    };
    EXPECT_EQ(heightWith(u"Check"), heightWith(nullptr));
}

TEST(MessageBoxes, WrapsALongCheckTextAtTheLimit) {
    BoxUnderTest box;
    tvstring text;
    for (int i = 0; i < 60; ++i)
        text += u"word ";
    box.SetCheck(text.c_str(), 0);
    const auto look = Once([&] {
        const RECT check = box.PlaceOf(box.Item(1004));
        RECT client;
        GetClientRect(box.Handle(), &client);
        EXPECT_LE(check.right, client.right - TheTheme().m_marginX);
        EXPECT_GT(Height(check), 2 * TheTheme().TextHeight(TheTheme().Font(), nullptr));
    });
    box.Answer(MB_OK, {look, Key(VK_ESCAPE)});
}

// --- Failures ---

namespace {
bool g_NoMemory = false;
}

// What a message box is made with; everything else in the program throws where there is no memory.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return g_NoMemory ? nullptr : std::malloc(size);
}

TEST(MessageBoxes, GivesMinusOneIfItCannotBeMade) {
    g_NoMemory = true;
    const int result = tvMessageBox::Show(nullptr, u"Text", MB_OK, u"Title");
    g_NoMemory = false;
    EXPECT_EQ(result, -1);
}

TEST(MessageBoxes, GivesMinusOneIfItsWindowCannotBeMade) {
    BoxUnderTest box;
    box.m_builder = DialogTemplate();
    EXPECT_EQ(box.Run(nullptr, u"Text", MB_OK, u"Title"), -1);
}
