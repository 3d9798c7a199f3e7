// How long the detail pane takes to show another item, and what it keeps. The limit is far above what is
// needed, for machines that are busy; the figures themselves are printed.
#include "tests/app/detail_stage.h"
#include "tests/gui/growth.h"
#include "tests/gui/timing.h"

namespace {

constexpr double kLimit = 300;  // milliseconds for one item
constexpr int kEntries = 50;
constexpr std::size_t kLongest = 65535;

class DetailSpeed : public DetailTest {
protected:
    DetailSpeed() {
        TheDatabase().AddNewItem(&TheDatabase());
        for (int i = 0; i < kEntries; ++i)
            AddEntryCopy(*Item().m_Next, VMRD_Entry(kAddition, u"another"), nullptr);
        AddEntries(kEntries);
    }

    // The time until an item is shown and all of the pane painted; the middle one of many.
    [[nodiscard]] double TimeOfShowing() const {
        constexpr int kTimes = 31;
        std::vector<double> times;
        for (int i = 0; i < kTimes; ++i) {
            VMRD_Element* item = i % 2 == 0 ? Item().m_Next : &Item();
            const double start = ClockTime();
            Main().OnAppNotify(APPN_SHOWITEM, AsArgument(item), 0, 0);
            RedrawWindow(PaneWindow(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            times.push_back(ClockTime() - start);
            PumpQueue();
        }
        std::sort(times.begin(), times.end());
        return times[kTimes / 2];
    }
};

TEST_F(DetailSpeed, ShowsAnotherItemAtOnce) {
    OpenPane();
    const double time = TimeOfShowing();
    std::printf("a switch of item: %.1f ms\n", time);
    EXPECT_LT(time, kLimit);
}

TEST_F(DetailSpeed, ShowsTheLongestTextsInTime) {
    for (const u16 type : {kProgram, kUser, kPassword})
        Set(type, tvstring(kLongest, u'W'));
    TheAppData().bShowPassword = 1;
    OpenPane();
    const double time = TimeOfShowing();
    std::printf("a switch of item with the longest texts: %.1f ms\n", time);
    EXPECT_LT(time, 10 * kLimit);
}

TEST_F(DetailSpeed, KeepsNothingOfItemsThatWereShown) {
    OpenPane();
    const Growth growth = GrowthOver(100, [this] {
        Show(Item().m_Next);
        Show(&Item());
        Do(CMD_DETAIL_SHOW_PASSWORD, kPassword);
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_LE(growth.heapBytes, 0);
}

}  // namespace
