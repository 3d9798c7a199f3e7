#include <gtest/gtest.h>

#include "tests/gui/message_box_harness.h"

namespace {

using Texts = std::vector<tvstring>;

// A step that notes each new text of a button until the box has its result.
BoxUnderTest::Step Watch(const BoxUnderTest& box, int id, Texts& seen) {
    return [&box, id, &seen] {
        const tvstring text = box.ItemText(id);
        if (seen.empty() || seen.back() != text) seen.push_back(text);
        return false;
    };
}

// Runs a box that ends by itself, with a look at it again and again. The last look is not "done".
int RunWatching(BoxUnderTest& box, u32 style, int id, Texts& seen) {
    struct Looking {
        BoxUnderTest* box;
        int id;
        Texts* seen;
    };
    static Looking looking;
    looking = {&box, id, &seen};
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, [](HWND, UINT, UINT_PTR, DWORD) {
        if (looking.box->Handle() != nullptr) Watch(*looking.box, looking.id, *looking.seen)();
    });
    const int result = box.Run(nullptr, u"Text", style, u"Title");
    KillTimer(nullptr, timer);
    return result;
}

}  // namespace

TEST(MessageBoxCountDown, ShowsTheSecondsAndAnswersAtTheLastTick) {
    BoxUnderTest box;
    box.SetCountDown(3, IDNO, false);
    Texts seen;
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(RunWatching(box, MB_YESNO, IDNO, seen), IDNO);
    const auto took = static_cast<double>(GetTickCount64() - start);
    EXPECT_EQ(seen, (Texts{u"&No (3)", u"&No (2)", u"&No (1)"}));
    EXPECT_NEAR(took, 3000, 900);
}

TEST(MessageBoxCountDown, LeavesTheOtherButtonsTexts) {
    BoxUnderTest box;
    box.SetCountDown(1, IDYES, false);
    Texts seen;
    EXPECT_EQ(RunWatching(box, MB_YESNO, IDNO, seen), IDYES);
    EXPECT_EQ(seen, (Texts{u"&No"}));
}

TEST(MessageBoxCountDown, SetsTheCheckBoxAtItsEnd) {
    for (const bool checkResult : {true, false}) {
        BoxUnderTest box;
        box.SetCheck(u"Check", checkResult ? 0 : 1);
        box.SetCountDown(1, IDOK, checkResult);
        Texts seen;
        EXPECT_EQ(RunWatching(box, MB_OK, IDOK, seen), IDOK);
        EXPECT_EQ(box.m_checkValue, checkResult ? 1U : 0U);
    }
}

TEST(MessageBoxCountDown, IsOverWhenTheUserAnswers) {
    BoxUnderTest box;
    box.SetCheck(u"Check", 0);
    box.SetCountDown(60, IDNO, true);
    EXPECT_EQ(box.Answer(MB_YESNO, {ClickOn(box, IDYES)}), IDYES);
    EXPECT_EQ(box.m_checkValue, 0U) << "the count-down's own value is for its own answer";
    EXPECT_EQ(box.m_countDown.m_id, 0U) << "the timer is stopped";
}

TEST(MessageBoxCountDown, AnswersEarlyByAClickOnItsButton) {
    BoxUnderTest box;
    box.SetCountDown(60, IDNO, true);
    EXPECT_EQ(box.Answer(MB_YESNO, {ClickOn(box, IDNO)}), IDNO);
}

TEST(MessageBoxCountDown, OnAButtonNotInTheSetNeverStarts) {
    for (const u32 button : {u32{IDCANCEL}, 99U, 1001U, 1004U}) {
        BoxUnderTest box;
        box.SetCheck(u"Check", 0);
        box.SetCountDown(1, button, false);
        const auto look = Once([&] {
            EXPECT_EQ(box.m_countDown.m_id, 0U) << button;
            EXPECT_EQ(box.ItemText(IDYES), u"&Yes");
            EXPECT_EQ(box.ItemText(IDNO), u"&No");
            EXPECT_EQ(box.ItemText(1004), u"Check");
        });
        EXPECT_EQ(box.Answer(MB_YESNO, {look, ClickOn(box, IDYES)}), IDYES);
    }
}

TEST(MessageBoxCountDown, OfNoSecondsIsNone) {
    BoxUnderTest box;
    box.SetCountDown(0, IDYES, false);
    EXPECT_EQ(
        box.Answer(MB_YESNO, {Once([&] { EXPECT_EQ(box.ItemText(IDYES), u"&Yes"); }), ClickOn(box, IDNO)}),
        IDNO);
}

TEST(MessageBoxCountDown, StartsAnewInTheSameBox) {
    BoxUnderTest box;
    for (int i = 0; i < 2; ++i) {
        box.SetCountDown(1, IDOK, false);
        Texts seen;
        EXPECT_EQ(RunWatching(box, MB_OK, IDOK, seen), IDOK);
        EXPECT_EQ(seen, (Texts{u"OK (1)"}));
    }
}

// --- Answers without a box ---

namespace {

// Fails if a box is shown, and closes it.
int RunUnseen(BoxUnderTest& box, u32 style) {
    bool shown = false;
    box.m_onInit = [&] {
        shown = true;
        box.EndDialog(99);
    };
    const int result = box.Run(nullptr, u"Text", style, u"Title");
    EXPECT_FALSE(shown);
    return result;
}

}  // namespace

TEST(MessageBoxAutoAnswer, ShowsNothingAndSetsTheCheckValue) {
    for (const bool checkResult : {true, false}) {
        BoxUnderTest box;
        box.SetCheck(u"Check", checkResult ? 0 : 1);
        box.SetCountDown(-1, IDNO, checkResult);
        EXPECT_EQ(RunUnseen(box, MB_YESNO), IDNO);
        EXPECT_EQ(box.m_checkValue, checkResult ? 1U : 0U);
    }
}

TEST(MessageBoxAutoAnswer, WorksForEveryButtonOfASet) {
    for (const u32 button : {3U, 4U, 5U}) {
        BoxUnderTest box;
        box.SetCountDown(-5, button, false);
        EXPECT_EQ(RunUnseen(box, MB_ABORTRETRYIGNORE), static_cast<int>(button));
    }
}

TEST(MessageBoxAutoAnswer, NeedsAButtonOfTheSet) {
    for (const u32 button : {0U, u32{IDCANCEL}, 99U}) {
        BoxUnderTest box;
        box.SetCountDown(-1, button, false);
        EXPECT_EQ(
            box.Answer(MB_YESNO, {Once([&] { EXPECT_EQ(box.m_countDown.m_id, 0U); }), ClickOn(box, IDYES)}),
            IDYES);
    }
}
