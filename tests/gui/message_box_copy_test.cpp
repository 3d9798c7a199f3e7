// Ctrl+C in a message box.
#include <gtest/gtest.h>

#include "tests/gui/message_box_harness.h"
#include "tests/gui/plain_window.h"

namespace {

void PutOnClipboard(const tvstring& text) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    std::copy(text.c_str(), text.c_str() + text.size() + 1, static_cast<char16_t*>(GlobalLock(block)));
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
}

tvstring OnClipboard() {
    if (!OpenClipboard(nullptr)) return u"(not to be opened)";
    tvstring text;
    if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const char16_t*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

// What Ctrl+C puts there in place of "before".
tvstring CopiedFrom(const tvstring& heading, const tvstring& text) {
    PutOnClipboard(u"before");
    BoxUnderTest box;
    box.m_heading = heading;
    EXPECT_EQ(
        box.Answer(MB_YESNO,
                   {Key('C', HOLD_CTRL), [] { return OnClipboard() != u"before"; }, ClickOn(box, IDYES)},
                   text),
        IDYES);
    return OnClipboard();
}

// A step for what is not to happen: the keys have gone through the box's loop when the focus has moved.
BoxUnderTest::Step TabHasArrived(const BoxUnderTest& box) {
    return [&box] { return GetFocus() == box.Item(IDNO); };
}

}  // namespace

TEST(MessageBoxCopy, CtrlCCopiesTheText) {
    EXPECT_EQ(CopiedFrom(u"", u"The text\r\nin lines"), u"The text\r\nin lines");
}

TEST(MessageBoxCopy, PutsTheHeadingInFront) {
    EXPECT_EQ(CopiedFrom(u"Heading", u"Text"), u"Heading\r\nText");
}

TEST(MessageBoxCopy, TakesAHeadingAlone) {
    EXPECT_EQ(CopiedFrom(u"Heading", u""), u"Heading");
}

TEST(MessageBoxCopy, WithoutAnyTextLeavesTheClipboard) {
    PutOnClipboard(u"before");
    BoxUnderTest box;
    box.Answer(MB_YESNO, {Key('C', HOLD_CTRL), Key(VK_TAB), TabHasArrived(box), Key(VK_ESCAPE)}, u"");
    EXPECT_EQ(OnClipboard(), u"before");
}

TEST(MessageBoxCopy, NeedsCtrl) {
    PutOnClipboard(u"before");
    BoxUnderTest box;
    box.Answer(MB_YESNO, {Key('C'), Key(VK_TAB), TabHasArrived(box), Key(VK_ESCAPE)});
    EXPECT_EQ(OnClipboard(), u"before");
}

TEST(MessageBoxCopy, NeedsTheLetterC) {
    PutOnClipboard(u"before");
    BoxUnderTest box;
    box.Answer(MB_YESNO, {Key('D', HOLD_CTRL), Key(VK_TAB), TabHasArrived(box), Key(VK_ESCAPE)});
    EXPECT_EQ(OnClipboard(), u"before");
}

TEST(MessageBoxCopy, LeavesTheBoxAsItIsWhileAnotherWindowHasTheClipboard) {
    PutOnClipboard(u"before");
    const PlainWindow holder;
    BoxUnderTest box;
    const auto hold = Once([&] { ASSERT_TRUE(OpenClipboard(holder.Handle())); });
    const auto look = Once([&] {
        EXPECT_EQ(box.m_text, u"The question.");
        EXPECT_EQ(box.m_result, 0);
        CloseClipboard();
    });
    EXPECT_EQ(box.Answer(MB_YESNO, {hold, Key('C', HOLD_CTRL), Key(VK_TAB), TabHasArrived(box), look,
                                    ClickOn(box, IDYES)}),
              IDYES);
    EXPECT_EQ(OnClipboard(), u"before");
}

TEST(MessageBoxCopy, LetsTheKeyGoOn) {
    BoxUnderTest box;
    const auto hold = Once([] { KeyDown(VK_CONTROL); });
    const auto press = Once([&] {
        MSG msg{box.Handle(), WM_KEYDOWN, 'C', 0, 0, {}};
        EXPECT_FALSE(box.PreTranslateMsg(&msg));
        KeyUp(VK_CONTROL);
    });
    box.Answer(MB_YESNO, {hold, press, Key(VK_ESCAPE)}, u"copied");
    EXPECT_EQ(OnClipboard(), u"copied");
}
