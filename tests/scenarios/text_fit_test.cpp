// Windows and fonts of all sizes: a text for which there is no room ends in dots, and is not cut.
#include <algorithm>
#include <array>

#include "tests/gui/sizes.h"
#include "tests/scenarios/file_content.h"
#include "tests/scenarios/size_stage.h"

namespace {

using namespace opened;

constexpr std::size_t kLong = 900;
constexpr unsigned long long kDate = 130000000000000000;

// A letter that has ink over all of its height, and is drawn no wider than it is measured: in the sizes of
// these tests Wine draws other letters wider, and cuts texts of them that fit by its own measure.
tvstring LongText() {
    return tvstring(kLong, u'l');
}

// The place of a line of text: all rows one below the other that have ink.
using Line = RECT;

class Ink {
public:
    // On the display, on the ground that its corner has.
    explicit Ink(const RECT& room)
        : m_Room(room), m_Ground(At(static_cast<int>(room.right) - 1, static_cast<int>(room.top))) {}

    [[nodiscard]] std::vector<Line> Lines() const {
        std::vector<Line> lines;
        for (int y = m_Room.top; y < m_Room.bottom; ++y) {
            RECT row{};
            for (int x = m_Room.left; x < m_Room.right; ++x) {
                const RECT pixel{x, y, x + 1, y + 1};
                if (Has(x, y)) UnionRect(&row, &row, &pixel);
            }
            if (IsRectEmpty(&row) != FALSE) continue;
            if (lines.empty() || lines.back().bottom != y) lines.push_back(row);
            UnionRect(&lines.back(), &lines.back(), &row);
        }
        return lines;
    }

    // Its last two signs have ink at the foot of the line alone.
    [[nodiscard]] bool EndsInDots(const Line& line) const {
        const int height = static_cast<int>(line.bottom - line.top);
        const int foot = static_cast<int>(line.bottom) - std::max(3, height / 4);
        int x = line.right;
        for (int dots = 0; dots < 2; ++dots) {
            while (x > line.left && TopIn(x - 1, line) == line.bottom)
                --x;
            for (; x > line.left && TopIn(x - 1, line) < line.bottom; --x)
                if (TopIn(x - 1, line) < foot) return false;
        }
        return x > line.left;
    }

private:
    [[nodiscard]] COLORREF At(int x, int y) const { return m_Display.At(x, y); }
    [[nodiscard]] bool Has(int x, int y) const { return At(x, y) != m_Ground; }
    [[nodiscard]] int TopIn(int x, const Line& line) const {
        int y = line.top;
        while (y < line.bottom && !Has(x, y))
            ++y;
        return y;
    }

    RECT m_Room;
    Picture m_Display{GetDesktopWindow()};
    COLORREF m_Ground;
};

bool IsButton(HWND control) {
    wchar_t name[16] = {};
    GetClassNameW(control, name, static_cast<int>(std::size(name)));
    return lstrcmpiW(name, L"Button") == 0 && !TextOf(control).empty();
}

class TextFit : public SizeStage {
protected:
    // The second item has long texts, the first one short ones at the same places.
    void OpenShortAndLong() {
        const tvstring path = InFolder(u"a.VMR");
        WriteContent(
            path, u"secret",
            {{u"H", u"", u"H", u"", {u"H"}, kDate}, {LongText(), u"", LongText(), u"", {LongText()}, kDate}});
        Open(path);
    }

    // One of the two. By the keyboard: over the row of a long text stands its tip, and Wine takes a click on
    // that for lost.
    void SelectItem(int row) const {
        HWND list = ItemListOf(m_Program);
        const int height = Ask(list, LB_GETITEMHEIGHT);
        Click(list, height / 2, height / 2);
        ASSERT_TRUE(PumpUntil([&] { return FocusOf(m_Program) == list && !HoldsMouse(m_Program); }));
        MoveMouseAway();
        const auto isSelected = [&] { return Ask(list, LB_GETSEL, static_cast<WPARAM>(row)) > 0; };
        Type(row == 0 ? VK_HOME : VK_END);
        ASSERT_TRUE(PumpUntil(isSelected));
        ASSERT_TRUE(Stays());
    }

    // The row of a list, without its frame.
    static RECT RowOf(HWND list, int row) {
        const int height = Ask(list, LB_GETITEMHEIGHT);
        RECT room = RoomOf(list);
        room.top += row * height;
        room.bottom = room.top + height;
        InflateRect(&room, -1, -1);
        return room;
    }

    static void ExpectDotsIn(const RECT& room, const std::string& what) {
        const Ink ink(room);
        const std::vector<Line> lines = ink.Lines();
        ASSERT_FALSE(lines.empty()) << what;
        EXPECT_TRUE(ink.EndsInDots(lines[0])) << what << ' ' << testing::PrintToString(lines[0]);
    }

    // Above the list of entries.
    [[nodiscard]] RECT Fields() const {
        HWND pane = DetailPaneOf(m_Program);
        RECT room = RoomOf(pane);
        room.bottom = std::min(room.bottom, PlaceOf(tvWnd::FindDescendant(pane, kList)).top - 4);
        return room;
    }

    void ExpectDotsInFields(const std::string& when) const {
        SelectItem(0);
        const std::vector<Line> before = Ink(Fields()).Lines();
        SelectItem(1);
        const Ink ink(Fields());
        int longer = 0;
        for (const Line& line : ink.Lines()) {
            const bool isSame = std::any_of(before.begin(), before.end(), [&](const Line& other) {
                return line.top == other.top && line.right == other.right;
            });
            if (isSame) continue;
            ++longer;
            EXPECT_TRUE(ink.EndsInDots(line)) << when << testing::PrintToString(line);
        }
        EXPECT_EQ(longer, 2) << when << "name and user name";
    }

    void ExpectDotsInLists(const std::string& when) const {
        SelectItem(0);
        ExpectDotsIn(RowOf(ItemListOf(m_Program), 1), when + "item");
        SelectItem(1);
        HWND pane = DetailPaneOf(m_Program);
        const RECT entry = RowOf(tvWnd::FindDescendant(pane, kList), 0);
        if (entry.bottom <= RoomOf(pane).bottom) ExpectDotsIn(entry, when + "entry");
    }

    // What is painted just inside of a button's edges is the same on both sides: its text reaches neither.
    void ExpectTextsInsideOfButtons(HWND pane, const std::string& when) {
        constexpr int kFrame = 3;
        const Picture display(GetDesktopWindow());
        for (HWND child = GetWindow(pane, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            const RECT place = PlaceOf(child);
            if (!IsSeen(child) || !IsButton(child) || !IsWithin(place, RoomOf(pane))) continue;
            ++m_Buttons;
            int differences = 0;
            for (int y = static_cast<int>(place.top) + kFrame; y < place.bottom - kFrame; ++y)
                if (display.At(place.left + kFrame, y) != display.At(place.right - kFrame - 1, y))
                    ++differences;
            EXPECT_EQ(differences, 0) << when << GetDlgCtrlID(child);
        }
    }

    void AtAllSizes(const std::function<void(const std::string&)>& check) {
        constexpr std::array<POINT, 3> kCorners = {{{20, 20}, {900, 650}, {1270, 890}}};
        for (const POINT& corner : kCorners) {
            DragCornerTo(corner);
            check(testing::PrintToString(PlaceOf(m_Program.Main())).append(": "));
        }
    }

    int m_Buttons = 0;  // that have been looked at
};

TEST_P(TextFit, LongTextsOfAnItemEndInDots) {
    OpenShortAndLong();
    AtAllSizes([this](const std::string& when) {
        ExpectDotsInFields(when);
        ExpectDotsInLists(when);
    });
}

TEST_P(TextFit, ALongNameOfADatabaseEndsInDots) {
    const tvstring path = InFolder(u"a.VMR");
    MakeDatabase(path, LongText(), u"secret");
    Open(path);
    AtAllSizes([this](const std::string& when) {
        RECT room = RoomOf(TopPane());
        for (HWND child = GetWindow(TopPane(), GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            if (IsSeen(child)) room.right = std::min(room.right, PlaceOf(child).left);
        ExpectDotsIn(room, when);
    });
}

TEST_P(TextFit, ButtonsHaveRoomForTheirTexts) {
    OpenDatabase();
    AtAllSizes([this](const std::string& when) {
        for (HWND pane : {TopPane(), LeftPane(), DetailPaneOf(m_Program)})
            ExpectTextsInsideOfButtons(pane, when);
    });
    EXPECT_GT(m_Buttons, 10);
}

TEST_P(TextFit, ButtonsOfTheStartPageHaveRoomForTheirTexts) {
    ASSERT_TRUE(m_Program.Start());
    GoToTheEdge();
    AtAllSizes([this](const std::string& when) { ExpectTextsInsideOfButtons(StartPane(), when); });
    EXPECT_GE(m_Buttons, 4);
}

INSTANTIATE_TEST_SUITE_P(Themes, TextFit, testing::ValuesIn(kSizeCases), NameOfSizeCase);

}  // namespace
