// How high the rows of a list box are.
#include "tests/gui/list_box_harness.h"

namespace {

const tvstring kLong =
    u"A text of many words that takes several lines in the width that the list has in this dialog";

class ListHeight : public ListTest {
protected:
    [[nodiscard]] static int Line() { return TheTheme().TextHeight(TheTheme().Font(), nullptr); }
    [[nodiscard]] static int Even(int height) { return height + height % 2; }
    [[nodiscard]] static int OneLine() { return Even(Line() + 4); }

    // Of a text in lines of this width, as the system breaks it.
    [[nodiscard]] int Broken(const tvstring& text, int width) const {
        const tvClientDC dc(Window());
        const tvSelected font(dc.Get(), TheTheme().Font());
        RECT rect{0, 0, width, 0};
        return DrawTextW(dc.Get(), Wide(text.c_str()), -1, &rect,
                         DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL);
    }
    [[nodiscard]] int NoteWidth(const tvstring& note) const {
        const tvClientDC dc(Window());
        const tvSelected font(dc.Get(), TheTheme().Font());
        RECT rect{};
        DrawTextW(dc.Get(), Wide(note.c_str()), -1, &rect, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
        return Width(rect);
    }
    [[nodiscard]] int ClientWidth() const {
        RECT rect{};
        GetClientRect(Window(), &rect);
        return rect.right;
    }
    int HeightOf(const tvstring& text) {
        const int row = m_List.AddItem(text);
        EXPECT_EQ(RowHeight(row), m_List.ItemOfRow(row)->m_height);
        return RowHeight(row);
    }
};

TEST_F(ListHeight, IsALineAndTwoBordersAndEven) {
    EXPECT_EQ(HeightOf(u"Short"), OneLine());
    EXPECT_EQ(HeightOf(u""), OneLine());
    EXPECT_EQ(HeightOf(u"\tonly a note"), OneLine());
    EXPECT_EQ(HeightOf(u"\t\t\t"), OneLine()) << "an indent and nothing behind it";
    EXPECT_EQ(m_List.CalcItemHeight(-1), OneLine()) << "of no item";
    EXPECT_EQ(RowHeight(0) % 2, 0);
}

TEST_F(ListHeight, IsThatOfTheBrokenText) {
    const int height = HeightOf(kLong);
    EXPECT_EQ(height, Even(Broken(kLong, ClientWidth() - 4) + 4));
    EXPECT_GT(height, OneLine());
}

TEST_F(ListHeight, ATextOfTwoLinesIsNeverOne) {
    EXPECT_EQ(HeightOf(u"a\r\nb"), Even(2 * Line() + 4));
}

TEST_F(ListHeight, ANoteTakesItsWidthAndAGapFromTheText) {
    const tvstring note = u"A note";
    tvstring text = kLong;
    text += u"\t";
    text += note.view();
    const int width = ClientWidth() - 4 - NoteWidth(note) - TheTheme().m_halfMarginX;
    EXPECT_EQ(HeightOf(text), Even(Broken(kLong, width) + 4));
}

TEST_F(ListHeight, ALongNoteTakesHalfTheWidth) {
    tvstring text = kLong;
    text += u"\t";
    text += kLong.view();
    const int width = ClientWidth() - 4;
    const int gap = TheTheme().m_halfMarginX;
    EXPECT_EQ(HeightOf(text), Even(Broken(kLong, width - (width / 2 - gap / 2) - gap) + 4));
}

TEST_F(ListHeight, AnIconTakesItsColumnFromTheText) {
    m_List.m_iconWidth = 40;
    EXPECT_EQ(HeightOf(kLong), Even(Broken(kLong, ClientWidth() - 4 - 2 - 40) + 4));
}

TEST_F(ListHeight, EachTabInFrontIsAStepOfALine) {
    tvstring text = u"\t\t\t";
    text += kLong.view();
    text += u"\t";
    EXPECT_EQ(HeightOf(text), Even(Broken(kLong, ClientWidth() - 4 - 3 * (Line() + 4)) + 4));
}

TEST_F(ListHeight, OneLongWordIsBrokenAndNeverHigherThan254) {
    const tvstring word(100, u'w');
    const int height = HeightOf(word);
    EXPECT_GT(height, OneLine());
    EXPECT_LE(height, 254);
    EXPECT_EQ(HeightOf(tvstring(5000, u'w')), 254);
}

TEST_F(ListHeight, IsMeasuredAgainForAnotherWidth) {
    HeightOf(kLong);
    const int before = HeightOf(u"Short");
    EXPECT_EQ(before, OneLine());
    const int wrapped = RowHeight(0);
    RECT rect{};
    GetClientRect(Window(), &rect);
    SetWindowPos(Window(), nullptr, 0, 0, rect.right / 2, rect.bottom, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_GT(RowHeight(0), wrapped);
    EXPECT_EQ(RowHeight(0), m_List.ItemOfRow(0)->m_height);
    EXPECT_EQ(RowHeight(1), OneLine());
    EXPECT_EQ(m_List.m_lastWidth, ClientWidth());
    SetWindowPos(Window(), nullptr, 0, 0, 1, rect.bottom, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_LE(RowHeight(0), 254) << "there is no width left";
}

TEST_F(ListHeight, IsMeasuredAgainForAnotherFont) {
    HeightOf(u"Short");
    HeightOf(u"Another");
    m_List.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    const int line = TheTheme().TextHeight(TheTheme().m_fontLarge.Get(), nullptr);
    EXPECT_EQ(RowHeight(0), Even(line + 4));
    EXPECT_EQ(RowHeight(1), Even(line + 4));
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 0);
}

TEST_F(ListHeight, AScrollBarThatAppearsIsReckonedWith) {
    for (int i = 0; i < 30; ++i)
        m_List.AddItem(kLong);
    Settle(Window());
    const int expected = Even(Broken(kLong, ClientWidth() - 4) + 4);
    for (const int row : {0, 15, 29})
        EXPECT_EQ(RowHeight(row), expected) << row;
}

}  // namespace
