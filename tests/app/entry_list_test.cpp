// The list of an item's additional entries, where it differs from that of items.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/app/entry_stage.h"
#include "tests/app/menu_stage.h"
#include "toolkit/tool_tip.h"

using testing::ElementsAre;

namespace {

class ListOfEntries : public EntryTest {
protected:
    [[nodiscard]] RECT EntryRow(int row) {
        RECT rect{};
        EXPECT_GE(Entries().GetItemRect(row, rect), 0);
        return rect;
    }
};

// --- Rows ---

TEST_F(ListOfEntries, ShowsTheAdditionalEntriesAlone) {
    OpenEntries({u"e", u"f"});
    EXPECT_EQ(EntryRows(), "[e][f]");
    EXPECT_EQ(AllEntries(), "[][][][e][f]");
    EXPECT_EQ(Entries().m_Kind, LIST_ENTRIES);
}

TEST_F(ListOfEntries, ARefreshTellsNoCounts) {
    OpenEntries({u"e"});
    EXPECT_EQ(Doing([this] { EXPECT_TRUE(Entries().Refresh()); }), "");
}

TEST_F(ListOfEntries, GivesRowsAndElementsOfTheSelection) {
    OpenEntries({u"e", u"f", u"g"});
    SelectEntries({0, 2});
    std::vector<int> rows;
    ElementArray elements;
    EXPECT_EQ(Entries().GetSelection(&rows, &elements), 2);
    EXPECT_THAT(rows, ElementsAre(0, 2));
    EXPECT_THAT(elements, ElementsAre(Entries().ElementOf(0), Entries().ElementOf(2)));
    EXPECT_EQ(Entries().GetSelection(nullptr, nullptr), 2);
    VMRD_Entry* entry = nullptr;
    EXPECT_EQ(Entries().GetFirstSelected(&entry, false), 0);
    EXPECT_EQ(entry, Entries().ElementOf(0));
}

// --- Commands on the elements ---

TEST_F(ListOfEntries, AddAppendsTheTextAndSelectsItAlone) {
    OpenEntries({u"e"});
    SelectEntries({0});
    EXPECT_EQ(Doing([this] { Entries().AddNew(u"new"); }), "TOPBAR; REPAINT");
    EXPECT_EQ(EntryRows(), "[e][new*]");
    EXPECT_EQ(AllEntries(), "[][][][e][new]");
}

TEST_F(ListOfEntries, AddOfAnEmptyTextDoesNothing) {
    OpenEntries({u"e"});
    EXPECT_EQ(Doing([this] { Entries().AddNew(u""); }), "");
    EXPECT_EQ(EntryRows(), "[e]");
}

TEST_F(ListOfEntries, RemoveTellsThatTheDatabaseMayHaveChanged) {
    OpenEntries({u"e", u"f", u"g"});
    SelectEntries({0, 1});
    EXPECT_EQ(Doing([this] { Entries().RemoveSelected(); }), "TOPBAR; REPAINT");
    EXPECT_EQ(EntryRows(), "[g]");
    EXPECT_EQ(AllEntries(), "[][][][g]");
    EXPECT_NE(m_Item->m_Date, 0U);
}

TEST_F(ListOfEntries, TheFirstRowMovesThoughOtherEntriesStandBeforeIt) {
    OpenEntries({u"e", u"f"});
    SelectEntries({0});
    EXPECT_EQ(Doing([this] { Entries().MoveSelected(false); }), "TOPBAR; REPAINT");
    EXPECT_EQ(EntryRows(), "[f][e*]");
    EXPECT_EQ(AllEntries(), "[][][][f][e]");
    Entries().MoveSelected(true);
    EXPECT_EQ(AllEntries(), "[][][][e][f]");
}

TEST_F(ListOfEntries, NothingMovesAcrossAnEntryThatHasNoRow) {
    OpenEntries({u"e", u"f"});
    AddEntryCopy(*m_Item, VMRD_Entry(VMRD_T_USERNAME, u"between"), m_Item->m_Tail);
    SelectEntries({1});
    EXPECT_EQ(Doing([this] { Entries().MoveSelected(true); }), "");
    EXPECT_EQ(AllEntries(), "[][][][e][between][f]");
}

TEST_F(ListOfEntries, CopyAndPasteKeepTheOrder) {
    OpenEntries({u"e", u"f", u"g"});
    SelectEntries({0, 2});
    EXPECT_TRUE(Entries().CopySelection());
    EXPECT_THAT(FormatsOnClipboard(), ElementsAre(EntriesClipboardFormat()));
    SelectEntries({});
    EXPECT_EQ(Doing([this] { EXPECT_TRUE(Entries().PasteFromClipboard()); }), "TOPBAR; REPAINT");
    EXPECT_EQ(EntryRows(), "[e][f][g][e*][g*]");
    SelectEntries({1});
    EXPECT_TRUE(Entries().PasteFromClipboard());
    EXPECT_EQ(EntryRows(), "[e][e*][g*][f][g][e][g]");
    EXPECT_EQ(AllEntries(), "[][][][e][e][g][f][g][e][g]");
}

TEST_F(ListOfEntries, PasteOfItemsDoesNothing) {
    OpenEntries({u"e"});
    ASSERT_TRUE(CopyItems(Window(), {m_Item}));
    EXPECT_EQ(Doing([this] { EXPECT_FALSE(Entries().PasteFromClipboard()); }), "");
    EXPECT_EQ(EntryRows(), "[e]");
}

// The container of a carrier with items, under the format of entries.
void PutItemsAsEntries(HWND window, const ElementArray& items) {
    ASSERT_TRUE(CopyItems(window, items));
    ASSERT_TRUE(platform::OpenClipboard(nullptr));
    std::vector<u8> bytes;
    {
        const platform::ClipboardView view(ItemsClipboardFormat());
        bytes.assign(view.Bytes().begin(), view.Bytes().end());
    }
    platform::EmptyClipboard();
    EXPECT_TRUE(platform::ClipboardBlock(bytes.size(), bytes).Put(EntriesClipboardFormat()));
    platform::CloseClipboard();
}

TEST_F(ListOfEntries, PastesTheEntriesOfExactlyOneItem) {
    OpenEntries({u"e"});
    ItemElement* other = Put(u"y");
    AddEntryCopy(*other, VMRD_Entry(VMRD_T_ADDITION, u"of y"), nullptr);
    PutItemsAsEntries(Window(), {other, m_Item});
    EXPECT_FALSE(Entries().PasteFromClipboard());
    PutItemsAsEntries(Window(), {other});
    EXPECT_TRUE(Entries().PasteFromClipboard());
    EXPECT_EQ(EntryRows(), "[e][of y*]");
}

TEST_F(ListOfEntries, PasteLeavesOutWhatTheListWouldNotShow) {
    OpenEntries({u"e"});
    VMRD_Entry password(VMRD_T_PASSWORD, u"secret");
    VMRD_Entry addition(VMRD_T_ADDITION, u"f");
    ASSERT_TRUE(CopyEntries(Window(), {&password}));
    EXPECT_FALSE(Entries().PasteFromClipboard());
    ASSERT_TRUE(CopyEntries(Window(), {&password, &addition}));
    EXPECT_TRUE(Entries().PasteFromClipboard());
    EXPECT_EQ(AllEntries(), "[][][][e][f]");
}

// --- What the pane does ---

TEST_F(ListOfEntries, ASelectionUpdatesThePaneAndTellsNobody) {
    OpenEntries({u"e", u"f"});
    m_Pane.m_updates = 0;
    EXPECT_EQ(Doing([this] { EntryCommand(kItemListId, LBN_SELCHANGE); }), "");
    EXPECT_EQ(m_Pane.m_updates, 1);
}

TEST_F(ListOfEntries, ADoubleClickIsTheCommandModify) {
    OpenEntries({u"e"});
    EXPECT_EQ(Doing([this] { EntryCommand(kItemListId, LBN_DBLCLK); }), "");
    PumpQueue();
    EXPECT_THAT(m_Pane.m_commands, ElementsAre(kItemListId, CMD_RENAME));
}

TEST_F(ListOfEntries, AddAndModifyAreThePanesOwn) {
    OpenEntries({u"e"});
    EXPECT_EQ(Doing([this] {
                  EntryCommand(CMD_ADD);
                  EntryCommand(CMD_RENAME);
              }),
              "");
    EXPECT_EQ(EntryRows(), "[e]");
}

TEST_F(ListOfEntries, RemoveCutAndPasteRepaintThePane) {
    OpenEntries({u"e", u"f", u"g"});
    const auto paintsFor = [this](u16 id) {
        SelectEntries({0});
        Settle(m_Pane.Handle());
        m_Pane.m_paints = 0;
        EntryCommand(id);
        Settle(m_Pane.Handle());
        return m_Pane.m_paints;
    };
    EXPECT_EQ(paintsFor(CMD_COPY), 0);
    EXPECT_EQ(paintsFor(CMD_CUT), 1);
    EXPECT_EQ(EntryRows(), "[f][g]");
    EXPECT_EQ(paintsFor(CMD_REMOVE), 1);
    EXPECT_EQ(EntryRows(), "[g]");
    EXPECT_EQ(paintsFor(CMD_PASTE), 1);
    EXPECT_EQ(EntryRows(), "[e*][g]");
}

TEST_F(ListOfEntries, PasteGivesTheListTheKeyboard) {
    OpenEntries({u"e"});
    SelectEntries({0});
    EntryCommand(CMD_COPY);
    SetFocus(m_Pane.Handle());
    EntryCommand(CMD_PASTE);
    EXPECT_EQ(GetFocus(), EntryWindow());
}

TEST_F(ListOfEntries, MovesAndSelectsByCommand) {
    OpenEntries({u"e", u"f"});
    SelectEntries({0});
    EntryCommand(CMD_MOVE_DOWN);
    EXPECT_EQ(EntryRows(), "[f][e*]");
    EntryCommand(CMD_MOVE_UP);
    EXPECT_EQ(EntryRows(), "[e*][f]");
    EntryCommand(CMD_INVERT_SELECTION);
    EXPECT_EQ(EntryRows(), "[e][f*]");
    EntryCommand(CMD_SELECT_ALL);
    EXPECT_EQ(EntryRows(), "[e*][f*]");
    EntryCommand(CMD_DESELECT_ALL);
    EXPECT_EQ(EntryRows(), "[e][f]");
}

// --- The menu ---

TEST_F(ListOfEntries, MergesAnyNumberOfEntriesFromTwoOn) {
    OpenEntries({u"e", u"f", u"g"});
    const auto offersMerge = [this](const std::vector<int>& rows) {
        SelectEntries(rows);
        EXPECT_TRUE(UpdateItemMenu(&Entries(), true));
        return IsEnabled(TheAppData().itemMenu, CMD_MERGE);
    };
    EXPECT_FALSE(offersMerge({0}));
    EXPECT_TRUE(offersMerge({0, 1}));
    EXPECT_TRUE(offersMerge({0, 1, 2}));
}

TEST_F(ListOfEntries, TheKeyboardOpensTheMenuWhereTheMouseIsOverTheList) {
    OpenEntries({u"e"});
    MoveMouse(EntryWindow(), 30, 40);
    POINT at{};
    GetCursorPos(&at);
    WithItemMenu(
        [&](const RECT& place) {
            EXPECT_EQ(place.left, at.x);
            EXPECT_EQ(place.top, at.y);
        },
        [this] { m_Pane.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(EntryWindow()), -1); });
}

TEST_F(ListOfEntries, TheKeyboardOpensTheMenuAtTheListsCornerWhereTheMouseIsElsewhere) {
    OpenEntries({u"e"});
    MoveMouseAway();
    const RECT list = OuterScreenPlace(EntryWindow());
    WithItemMenu(
        [&](const RECT& place) {
            EXPECT_EQ(place.left, list.left);
            EXPECT_EQ(place.top, list.top);
        },
        [this] { m_Pane.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(EntryWindow()), -1); });
}

// --- Keys ---

TEST_F(ListOfEntries, AKeyIsForwardedWithTheListItCameFrom) {
    OpenEntries({u"e"});
    SelectEntries({0});
    EXPECT_EQ(Doing([this] { Entries().Send(WM_KEYDOWN, VK_DELETE, 0); }), "FORWARD 2009");
    PumpQueue();
    EXPECT_EQ(EntryRows(), "[e*]") << "the item pane is not the owner";
}

// --- Painting ---

TEST_F(ListOfEntries, ShowsAnEntryOfSeveralLinesOnOne) {
    OpenEntries({u"first\r\nsecond", u"first second"});
    const Picture picture(EntryWindow());
    const RECT first = EntryRow(0);
    const RECT second = EntryRow(1);
    EXPECT_EQ(Height(first), Height(second));
    for (int y = 0; y < Height(first); ++y) {
        for (int x = 0; x < Width(first); ++x)
            ASSERT_EQ(picture.At(x, first.top + y), picture.At(x, second.top + y)) << x << ", " << y;
    }
}

TEST_F(ListOfEntries, TheTipShowsAnEntryOfSeveralLinesOnOne) {
    tvstring text(60, u'W');
    text.append(u"\r\n").append(tvstring(60, u'M'));
    OpenEntries({text.c_str()});
    MoveMouse(EntryWindow(), 30, 5);
    ASSERT_TRUE(PumpUntil([] { return IsWindowVisible(TheToolTip().Handle()) != FALSE; }));
    const std::u16string_view tip = Entries().ItemOfRow(0)->m_note.view();
    EXPECT_EQ(tip.substr(0, 62), tvstring(60, u'W').append(u" M").view());
    EXPECT_EQ(tip.find(u'\r'), std::u16string_view::npos);
    MoveMouseAway();
}

TEST_F(ListOfEntries, NeverSaysThatNothingMatches) {
    OpenEntries({});
    SetFocus(Pane().m_filterEdit.Handle());
    const tvstring search(u"x");
    Entries().SetView(nullptr, &search);
    RedrawWindow(EntryWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const Picture picture(EntryWindow());
    const RECT client = ClientOf(EntryWindow());
    EXPECT_EQ(picture.Count(Entries().GetBackColor()), client.right * client.bottom);
}

}  // namespace
