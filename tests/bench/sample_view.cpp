#include "tests/bench/sample_view.h"

#include <algorithm>
#include <memory>

#include "tests/bench/sample_data.h"

namespace {

constexpr int kItems = 60'000;
constexpr const char16_t* kNeedle = u"needle";

VMRD_DB& Sample() {
    static const std::unique_ptr<VMRD_DB> database = [] {
        auto made = std::make_unique<VMRD_DB>();
        FillSample(*made, kItems);
        int number = 0;
        for (ItemElement* item = made->m_Head; item != nullptr; item = item->m_Next) {
            VMRD_Entry* userName = nullptr;
            GetBasicEntries(item, nullptr, &userName, nullptr);
            if (++number % 100 == 0) userName->m_Text += u" Needle.";
        }
        return made;
    }();
    return *database;
}

}  // namespace

void StartSampleView(ItemView& view, u32 mode, int sort) {
    const tvstring nothing;
    const tvstring needle = kNeedle;
    view.SetSource(&Sample());
    view.SetOptions(mode, SearchPasswords::No);
    view.Refresh();
    view.SetView(&sort, &nothing);
    view.SetView(nullptr, &needle);
}

std::vector<ViewRow> SampleRows() {
    std::vector<ViewRow> rows;
    for (ItemElement* item = Sample().m_Head; item != nullptr; item = item->m_Next)
        rows.push_back({item});
    return rows;
}

void SortPlainly(std::vector<ViewRow>& rows) {
    std::sort(rows.begin(), rows.end(),
              [](const ViewRow& a, const ViewRow& b) { return CompareRows(SortAZ, a, b); });
}
