#include "toolkit/dialog_template.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<u8> Bytes(const DialogTemplate& made) {
    const auto* bytes = reinterpret_cast<const u8*>(made.Get());
    return {bytes, bytes + made.Size()};
}

// A header of 64 bytes with these styles and size in dialog units.
std::vector<u8> Header(u32 style, u16 count, u16 cx, u16 cy) {
    std::vector<u8> bytes;
    const auto word = [&bytes](unsigned value) {
        bytes.push_back(static_cast<u8>(value));
        bytes.push_back(static_cast<u8>(value >> 8));
    };
    word(style & 0xFFFF);
    word(style >> 16);
    word(0);
    word(0);
    word(count);
    word(0);
    word(0);
    word(cx);
    word(cy);
    word(0);
    for (const char unit : {'t', 'v', 'T', 'h', 'e', 'm', 'e', 'W', 'n', 'd', '\0'})
        word(static_cast<u8>(unit));
    word(0);
    word(9);
    for (const char unit : {'S', 'e', 'g', 'o', 'e', ' ', 'U', 'I', '\0'})
        word(static_cast<u8>(unit));
    return bytes;
}

TEST(DialogTemplate, OfAPopupIsAHeaderOfSixtyFourBytes) {
    DialogTemplate made;
    made.Begin(188, 106, DialogKind::Popup, 4);
    EXPECT_EQ(Bytes(made), Header(0x82C800C0, 0, 188, 106));
    EXPECT_EQ(made.Size(), 64U);
}

TEST(DialogTemplate, OfAPaneHasTheStyleOfAChild) {
    DialogTemplate made;
    made.Begin(10, 300, DialogKind::Child, 0);
    EXPECT_EQ(Bytes(made), Header(0x46000440, 0, 10, 300));
}

TEST(DialogTemplate, HasAnEntryOfTwentyEightBytesForEachControl) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 1);
    ASSERT_NE(made.AddControl(ATOM_EDIT, 0x1234, 7, -2, 0x102, 14), nullptr);
    std::vector<u8> expected = Header(0x82C800C0, 1, 100, 50);
    const u8 entry[] = {0x80, 0x00, 0x01, 0x56, 0x00, 0x02, 0x00, 0x00, 7, 0, 0xFE, 0xFF, 0x02, 0x01,
                        14,   0,    0x34, 0x12, 0xFF, 0xFF, 129,  0,    0, 0, 0,    0,    0,    0};
    expected.insert(expected.end(), std::begin(entry), std::end(entry));
    EXPECT_EQ(Bytes(made), expected);
}

TEST(DialogTemplate, GivesEachClassItsStyles) {
    const struct {
        u16 atom;
        u32 style, exStyle;
    } kClasses[] = {{128, 0x56010000, 0},     {129, 0x56010080, 0x200}, {130, 0x56000000, 0},
                    {131, 0x56210001, 0x200}, {132, 0x56000000, 0},     {133, 0x56210003, 0}};
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 6);
    for (const auto& known : kClasses) {
        const DialogControl* control = made.AddControl(known.atom, 1, 0, 0, 1, 1);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->style, known.style);
        EXPECT_EQ(control->exStyle, known.exStyle);
    }
}

TEST(DialogTemplate, RefusesOtherClasses) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 1);
    EXPECT_EQ(made.AddControl(127, 1, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(made.AddControl(134, 1, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(made.Header()->count, 0);
}

TEST(DialogTemplate, RefusesControlsBeforeItIsBegun) {
    DialogTemplate made;
    EXPECT_EQ(made.AddControl(ATOM_BUTTON, 1, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(made.Get(), nullptr);
    EXPECT_EQ(made.Item(0), nullptr);
}

TEST(DialogTemplate, GrowsByFourControlsAtATimeAndKeepsWhatIsThere) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 3);
    EXPECT_EQ(made.Capacity(), 64U + 4 * 28);
    for (u16 id = 1; id <= 5; ++id)
        made.AddControl(ATOM_BUTTON, id, id, 0, 1, 1);
    EXPECT_EQ(made.Capacity(), 64U + 8 * 28);
    EXPECT_EQ(made.Header()->count, 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(made.Item(i)->id, i + 1);
}

TEST(DialogTemplate, GivesAControlByItsPlaceOnly) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 4);
    made.AddControl(ATOM_BUTTON, 7, 0, 0, 1, 1);
    EXPECT_NE(made.Item(0), nullptr);
    EXPECT_EQ(made.Item(1), nullptr);
    EXPECT_EQ(made.Item(-1), nullptr);
}

TEST(DialogTemplate, LetsAStyleBePatched) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 1);
    made.AddControl(ATOM_BUTTON, 7, 0, 0, 1, 1)->style |= BS_DEFPUSHBUTTON;
    EXPECT_EQ(made.Item(0)->style, 0x56010001U);
}

TEST(DialogTemplate, BeginsAnew) {
    DialogTemplate made;
    made.Begin(100, 50, DialogKind::Popup, 1);
    made.AddControl(ATOM_BUTTON, 7, 0, 0, 1, 1);
    made.Begin(20, 30, DialogKind::Child, 1);
    EXPECT_EQ(Bytes(made), Header(0x46000440, 0, 20, 30));
}

}  // namespace
