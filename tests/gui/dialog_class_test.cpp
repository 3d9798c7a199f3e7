#include "toolkit/dialog_class.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/types.h"
#include "toolkit/dialog.h"

namespace {

// What follows the header of a template.
using Words = std::vector<u16>;

tvstring ClassOfPlain(const Words& menuAndClass) {
    Words words(9);
    words[0] = 0x00C0;
    words[1] = 0x82C8;
    words.insert(words.end(), menuAndClass.begin(), menuAndClass.end());
    return ClassOfTemplate(words.data());
}

tvstring ClassOfExtended(const Words& menuAndClass) {
    Words words(13);
    words[0] = 1;
    words[1] = 0xFFFF;
    words.insert(words.end(), menuAndClass.begin(), menuAndClass.end());
    return ClassOfTemplate(words.data());
}

TEST(DialogClass, IsReadFromBothFormsOfTemplates) {
    const Words name = {0, 'M', 'i', 'n', 'e', 0, 'T', 0};
    EXPECT_EQ(ClassOfPlain(name), u"Mine");
    EXPECT_EQ(ClassOfExtended(name), u"Mine");
}

TEST(DialogClass, StandsBehindAMenuThatIsANumberOrAName) {
    EXPECT_EQ(ClassOfPlain({0xFFFF, 77, 'A', 0, 0}), u"A");
    EXPECT_EQ(ClassOfExtended({0xFFFF, 77, 'A', 0, 0}), u"A");
    EXPECT_EQ(ClassOfPlain({'m', 'e', 0, 'B', 0, 0}), u"B");
    EXPECT_EQ(ClassOfExtended({'m', 'e', 0, 'B', 0, 0}), u"B");
}

TEST(DialogClass, IsNoneIfItIsEmptyOrANumber) {
    EXPECT_EQ(ClassOfPlain({0, 0, 'T', 0}), u"");
    EXPECT_EQ(ClassOfPlain({0, 0xFFFF, 0x8002, 'T', 0}), u"");
    EXPECT_EQ(ClassOfExtended({0, 0xFFFF, 0x8002, 'T', 0}), u"");
    EXPECT_TRUE(RegisterDialogClass(u"", GetModuleHandleW(nullptr)));
}

TEST(DialogClass, IsTheSystemsOwnUnderAnotherNameAndRegisteredOnce) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    ASSERT_TRUE(RegisterDialogClass(u"tvClassTest", module));
    EXPECT_TRUE(RegisterDialogClass(u"tvClassTest", module));
    WNDCLASSW stock{};
    WNDCLASSW ours{};
    ASSERT_TRUE(GetClassInfoW(nullptr, MAKEINTRESOURCEW(32770), &stock));
    ASSERT_TRUE(GetClassInfoW(module, L"tvClassTest", &ours));
    EXPECT_EQ(ours.lpfnWndProc, stock.lpfnWndProc);
    EXPECT_EQ(ours.cbWndExtra, stock.cbWndExtra);
    EXPECT_EQ(ours.hInstance, module);
}

WNDCLASSW ClassNamed(const wchar_t* name) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    return windowClass;
}

TEST(RegisterClassOnce, GivesTheSameAtomForTheSameName) {
    const ATOM first = RegisterClassOnce(ClassNamed(L"tvOnceTest"));
    EXPECT_NE(first, 0);
    EXPECT_EQ(RegisterClassOnce(ClassNamed(L"tvOnceTest")), first);
}

TEST(RegisterClassOnce, IsZeroForAClassThatTheSystemRefuses) {
    const WNDCLASSW taken = ClassNamed(L"tvTakenTst");
    ASSERT_NE(RegisterClassW(&taken), 0);
    EXPECT_EQ(RegisterClassOnce(taken), 0);
    EXPECT_FALSE(RegisterDialogClass(u"tvTakenTst", taken.hInstance));
}

TEST(RegisterClassOnce, ADialogOfAClassThatTheSystemRefusesCannotBeMade) {
    const WNDCLASSW taken = ClassNamed(L"tvTakenDlg");
    ASSERT_NE(RegisterClassW(&taken), 0);
    tvDialog dialog;
    dialog.m_builder.m_className = u"tvTakenDlg";
    dialog.TemplateBegin(100, 50, DialogKind::Popup, 0);
    EXPECT_FALSE(dialog.Create(nullptr));
    EXPECT_EQ(dialog.DoModal(), -1);
}

}  // namespace
