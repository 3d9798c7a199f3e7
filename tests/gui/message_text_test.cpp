#include "toolkit/message_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "toolkit/message_box.h"

namespace {

tvstring Numbered(int id) {
    return tvstring(u"button ") + tvstring(static_cast<std::size_t>(id), u'i');
}

tvstring Get(MessageTexts& texts, int id) {
    return texts.Get(id, nullptr, false);
}

}  // namespace

TEST(MessageTexts, AreTheSystemsWhereItHasAll) {
    MessageTexts texts(&Numbered);
    for (int id = 1; id <= kMessageButtons; ++id)
        EXPECT_EQ(Get(texts, id), Numbered(id)) << id;
}

TEST(MessageTexts, AreAskedForFromTheFirstToTheLast) {
    std::vector<int> asked;
    const MessageTexts texts([&](int id) {
        asked.push_back(id);
        return tvstring(u"text");
    });
    EXPECT_EQ(asked, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(MessageTexts, AreAllEnglishIfTheSystemLacksOne) {
    for (int missing = 1; missing <= kMessageButtons; ++missing) {
        MessageTexts texts([missing](int id) { return id == missing ? tvstring() : Numbered(id); });
        const std::vector<tvstring> english = {
            u"OK",  u"Cancel", u"&Abort", u"&Retry",     u"&Ignore",   u"&Yes",
            u"&No", u"&Close", u"Help",   u"&Try Again", u"&Continue",
        };
        for (int id = 1; id <= kMessageButtons; ++id)
            EXPECT_EQ(Get(texts, id), english[static_cast<std::size_t>(id - 1)]) << missing << " " << id;
    }
}

TEST(MessageTexts, TakeASystemTextOf63Units) {
    MessageTexts texts([](int) { return tvstring(63, u'x'); });
    EXPECT_EQ(Get(texts, MESSAGE_OK), tvstring(63, u'x'));
}

TEST(MessageTexts, AreEnglishIfOneIsLongerThan63Units) {
    MessageTexts texts([](int id) { return tvstring(id == MESSAGE_HELP ? 64 : 3, u'x'); });
    EXPECT_EQ(Get(texts, MESSAGE_OK), u"OK");
}

TEST(MessageTexts, GiveAnOwnTextOnceItIsSet) {
    MessageTexts texts(&Numbered);
    EXPECT_EQ(texts.Get(MESSAGE_YES, u"&Ja", false), u"&Ja");
    EXPECT_EQ(Get(texts, MESSAGE_YES), u"&Ja");
    EXPECT_EQ(Get(texts, MESSAGE_NO), Numbered(MESSAGE_NO));
}

TEST(MessageTexts, GiveTheSystemsTextAgainAfterAnEmptyOne) {
    MessageTexts texts(&Numbered);
    texts.Get(MESSAGE_YES, u"&Ja", false);
    EXPECT_EQ(texts.Get(MESSAGE_YES, u"", false), Numbered(MESSAGE_YES));
}

TEST(MessageTexts, GiveTheOwnTextAlsoWhenItIsEmptyIfForced) {
    MessageTexts texts(&Numbered);
    EXPECT_EQ(texts.Get(MESSAGE_YES, nullptr, true), u"");
    EXPECT_EQ(texts.Get(MESSAGE_YES, u"&Ja", true), u"&Ja");
}

TEST(MessageTexts, AreEmptyForWhatIsNoButton) {
    MessageTexts texts(&Numbered);
    for (const int id : {-1, 0, 12, 1001, 0x7FFFFFFF})
        EXPECT_EQ(texts.Get(id, u"text", true), u"") << id;
}

TEST(MessageTexts, OfTheSystemAreShortOrMissing) {
    for (int id = 1; id <= kMessageButtons; ++id)
        EXPECT_LE(LoadSystemButtonText(id).size(), 64U);
    EXPECT_EQ(LoadSystemButtonText(100000), u"");
}

TEST(MessageTexts, OfTheMessageBoxAreSetByTheLanguage) {
    const tvstring before = tvMessageBox::GetButtonText(MESSAGE_RETRY, nullptr, false);
    EXPECT_FALSE(before.empty());
    tvMessageBox::SetButtonText(MESSAGE_RETRY, u"&Noch einmal");
    EXPECT_EQ(tvMessageBox::GetButtonText(MESSAGE_RETRY, nullptr, false), u"&Noch einmal");
    tvMessageBox::SetButtonText(MESSAGE_RETRY, u"");
    EXPECT_EQ(tvMessageBox::GetButtonText(MESSAGE_RETRY, nullptr, false), before);
}
