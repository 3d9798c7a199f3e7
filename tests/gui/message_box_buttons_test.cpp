#include "toolkit/message_box_buttons.h"

#include <gtest/gtest.h>

#include <vector>

#include "toolkit/message_text.h"
#include "toolkit/win32.h"

namespace {

std::vector<int> ButtonsOf(u32 style) {
    const MessageButtonSet set(style);
    return {set.Buttons().begin(), set.Buttons().end()};
}

}  // namespace

TEST(MessageButtonSet, HasItsButtonsFromRightToLeft) {
    EXPECT_EQ(ButtonsOf(MB_OK), (std::vector<int>{MESSAGE_OK}));
    EXPECT_EQ(ButtonsOf(MB_OKCANCEL), (std::vector<int>{MESSAGE_CANCEL, MESSAGE_OK}));
    EXPECT_EQ(ButtonsOf(MB_ABORTRETRYIGNORE),
              (std::vector<int>{MESSAGE_IGNORE, MESSAGE_RETRY, MESSAGE_ABORT}));
    EXPECT_EQ(ButtonsOf(MB_YESNOCANCEL), (std::vector<int>{MESSAGE_CANCEL, MESSAGE_NO, MESSAGE_YES}));
    EXPECT_EQ(ButtonsOf(MB_YESNO), (std::vector<int>{MESSAGE_NO, MESSAGE_YES}));
    EXPECT_EQ(ButtonsOf(MB_RETRYCANCEL), (std::vector<int>{MESSAGE_CANCEL, MESSAGE_RETRY}));
    EXPECT_EQ(ButtonsOf(MB_CANCELTRYCONTINUE),
              (std::vector<int>{MESSAGE_CONTINUE, MESSAGE_TRY_AGAIN, MESSAGE_CANCEL}));
    EXPECT_EQ(ButtonsOf(9), (std::vector<int>{MESSAGE_CONTINUE}));
}

TEST(MessageButtonSet, IsEmptyForStylesThatNameNone) {
    for (const u32 style : {7U, 8U, 10U, 15U})
        EXPECT_TRUE(ButtonsOf(style).empty()) << style;
}

TEST(MessageButtonSet, IsNamedByTheLowFourBitsAlone) {
    EXPECT_EQ(ButtonsOf(MB_YESNO | MB_ICONERROR | MB_DEFBUTTON2 | MB_TOPMOST), ButtonsOf(MB_YESNO));
}

TEST(MessageButtonSet, SaysWhatClosingMeans) {
    const std::vector<int> results = {1, 0, 3, 0, 7, 0, 0, 0, 0, 11, 0, 0, 0, 0, 0, 0};
    for (u32 style = 0; style < 16; ++style)
        EXPECT_EQ(MessageButtonSet(style).ClosedResult(), results[style]) << style;
}

TEST(MessageButtonSet, HasAnUsualIcon) {
    const std::vector<u32> icons = {0x40, 0x30, 0, 0x20, 0x20, 0, 0, 0, 0, 0x40, 0, 0, 0, 0, 0, 0};
    for (u32 style = 0; style < 16; ++style)
        EXPECT_EQ(MessageButtonSet(style).UsualIcon(), icons[style]) << style;
}

TEST(MessageButtonSet, FirstDefaultButtonIsTheLeftmost) {
    EXPECT_EQ(MessageButtonSet(MB_YESNOCANCEL).DefaultIndex(MB_YESNOCANCEL), 2);
    EXPECT_EQ(MessageButtonSet(MB_YESNO).DefaultIndex(MB_YESNO), 1);
    EXPECT_EQ(MessageButtonSet(MB_OK).DefaultIndex(MB_OK), 0);
}

TEST(MessageButtonSet, LaterDefaultButtonsStandFurtherRight) {
    const MessageButtonSet set(MB_YESNOCANCEL);
    EXPECT_EQ(set.DefaultIndex(MB_DEFBUTTON2), 1);
    EXPECT_EQ(set.DefaultIndex(MB_DEFBUTTON3), 0);
}

TEST(MessageButtonSet, DefaultButtonOutOfRangeIsTheLeftmost) {
    EXPECT_EQ(MessageButtonSet(MB_YESNO).DefaultIndex(MB_DEFBUTTON3), 1);
    EXPECT_EQ(MessageButtonSet(MB_OK).DefaultIndex(0xF00), 0);
}

TEST(MessageButtonSet, WithoutButtonsHasNoDefault) {
    EXPECT_EQ(MessageButtonSet(8).DefaultIndex(0), -1);
}
