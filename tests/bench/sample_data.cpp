#include "tests/bench/sample_data.h"

#include <random>
#include <string_view>

namespace {

constexpr std::u16string_view kPlain = u"abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::u16string_view kForeign = u"äöüßéèñçøåαβγδεжзийклмн東京漢字";
constexpr std::u16string_view kPassword =
    u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!#$%&()*+,-./:;<=>?@[]^_{|}~";
constexpr u64 kFirstDate = 0x01db'0000'0000'0000;

class Maker {
public:
    tvstring Text(std::size_t length, std::u16string_view set) {
        tvstring text;
        text.reserve(length);
        for (std::size_t i = 0; i < length; ++i)
            text += set[Below(set.size())];
        return text;
    }
    std::size_t Below(std::size_t limit) { return m_Random() % limit; }

private:
    std::mt19937 m_Random{20'241'120};
};

void FillItem(VMRD_Item& item, int number, Maker& make) {
    item.m_Name = make.Text(16 + make.Below(9), number % 10 == 0 ? kForeign : kPlain);
    item.m_Date = kFirstDate + static_cast<u64>(number) * 10'000'000;
    const auto add = [&](u16 type, std::size_t length, std::u16string_view set) {
        AddEntryCopy(item, VMRD_Entry(type, make.Text(length, set)), nullptr);
    };
    add(VMRD_T_PROGRAM, 40, kPlain);
    add(VMRD_T_USERNAME, 15, kPlain);
    add(VMRD_T_PASSWORD, 16, kPassword);
    if (number % 10 < 3) add(VMRD_T_ADDITION, 120, kPlain);
}

}  // namespace

void FillSample(VMRD_DB& database, int items) {
    Maker make;
    database.Reset();
    database.m_Name = u"Sample";
    database.m_Opened = true;
    for (int i = 0; i < items; ++i) {
        auto* item = new ItemElement;
        FillItem(*item, i, make);
        database.Insert(item, nullptr);
    }
    database.SetMasterPassword(kSamplePassword);
    database.m_Undo.Clear();
}
