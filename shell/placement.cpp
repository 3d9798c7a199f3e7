#include "shell/placement.h"

#include <algorithm>
#include <cstring>

#include "foundation/product.h"

namespace {

using i64 = std::int64_t;

constexpr const char16_t* kWindowPos = u"WindowPos";
constexpr const char16_t* kWindowMax = u"WindowMax";
constexpr const char16_t* kSpPercent = u"SpPercent";

static_assert(sizeof(ScreenRect) == 16 && sizeof(ScreenSize) == 8);

// A value of exactly the size of `out`.
template <typename Value>
bool ReadExactly(const RegKey& key, const char16_t* name, Value& out) {
    const tvdata data = RegReadValue(key.Get(), name, nullptr);
    if (data.Size() != sizeof out) return false;
    std::memcpy(&out, data.Data(), sizeof out);
    return true;
}

// Larger than any screen, and far from where numbers wrap around.
constexpr float kLongestEdge = 1'000'000.0F;

i32 Truncated(i64 number) {
    return static_cast<i32>(static_cast<u32>(static_cast<u64>(number)));
}

// One direction of IntoWorkArea: the far edge is pulled in first, then the near one.
void MoveInto(i32& nearEdge, i32& farEdge, i32 areaNear, i32 areaFar) {
    const i64 size = i64{farEdge} - nearEdge;
    const i64 moved = std::max<i64>(std::min(farEdge, areaFar) - size, areaNear);
    nearEdge = Truncated(moved);
    farEdge = Truncated(moved + size);
}

}  // namespace

bool IsSplitterFraction(float fraction) noexcept {
    return double{fraction} > double{0.1F} && double{fraction} < double{0.99F};
}

void LoadPlacement(StoredPlacement& placement) {
    const RegKey key(kSettingsKey, RegKey::For::Reading);
    placement.position = {};
    placement.maximised = false;
    if (!ReadExactly(key, kWindowPos, placement.position) || placement.position.IsEmpty()) {
        placement.position = {};
        return;
    }
    u32 word = 0;
    placement.maximised = RegReadWord(key.Get(), kWindowMax, word) && word != 0;
    float fraction = 0;
    if (ReadExactly(key, kSpPercent, fraction) && IsSplitterFraction(fraction)) {
        placement.spPercent = fraction;
    }
}

void StorePlacement(const StoredPlacement& placement) {
    const RegKey key(kSettingsKey, RegKey::For::Writing);
    if (!key) return;
    RegWriteValue(key.Get(), kWindowPos, &placement.position, sizeof placement.position, kRegBinary);
    RegWriteWord(key.Get(), kWindowMax, placement.maximised ? 1 : 0);
    RegWriteValue(key.Get(), kSpPercent, &placement.spPercent, sizeof placement.spPercent, kRegBinary);
}

ScreenRect FirstRunRect(const ScreenRect& workArea, const ScreenRect& present) {
    if (present.Width() <= 0 || present.Height() <= 0) return present;
    const float proportion = static_cast<float>(present.Height()) / static_cast<float>(present.Width());
    const auto width = static_cast<i32>(static_cast<float>(workArea.Width()) * 2.0F / 3.0F);
    const float exactHeight = proportion * static_cast<float>(width);
    if (present.Width() >= width || exactHeight > kLongestEdge) return present;
    const auto height = static_cast<i32>(exactHeight);
    if (present.Height() >= height) return present;
    const i32 left = workArea.left + (workArea.Width() - width) / 2;
    const i32 top = workArea.top + (workArea.Height() - height) / 2;
    return {left, top, left + width, top + height};
}

ScreenRect IntoWorkArea(ScreenRect rect, const ScreenRect& workArea) {
    MoveInto(rect.left, rect.right, workArea.left, workArea.right);
    MoveInto(rect.top, rect.bottom, workArea.top, workArea.bottom);
    return rect;
}

ScreenRect Shifted(ScreenRect rect, i32 distance) {
    const auto shift = [distance](i32& edge) { edge = Truncated(i64{edge} + distance); };
    shift(rect.left);
    shift(rect.top);
    shift(rect.right);
    shift(rect.bottom);
    return rect;
}

bool LoadStoreInputDlgSize(LoadStore direction, ScreenSize& size) {
    constexpr const char16_t* kName = u"InputDlgSize";
    if (direction == LoadStore::Store) {
        return size.width >= 1 && size.height >= 1 && LoadStoreBytes(direction, kName, &size, sizeof size);
    }
    ScreenSize stored;
    if (!LoadStoreBytes(direction, kName, &stored, sizeof stored)) return false;
    const ScreenSize grown{std::max(size.width, stored.width), std::max(size.height, stored.height)};
    if (grown.width < 1 || grown.height < 1) return false;
    size = grown;
    return true;
}
