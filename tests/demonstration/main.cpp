// demonstration DATABASE PASSWORD FOLDER THEME ...: goes through the program as somebody who shows it would,
// in each of the themes, and leaves pictures of its windows, FOLDER\WHAT-THEME.bmp. The file is not changed.
#include <string>
#include <vector>

#include "foundation/conversion.h"
#include "shell/app_settings.h"
#include "tests/scenarios/program.h"

namespace {

constexpr int kSearchBox = 2004;
constexpr int kList = 2005;
constexpr int kModifyButton = 2010;
constexpr int kGenerateButton = 2024;

struct Arguments {
    std::string database;
    std::string password;
    std::string folder;
    std::vector<std::string> themes;
};

Arguments& TheArguments() {
    static Arguments arguments;
    return arguments;
}

RECT ScreenPlace(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

class Demonstration : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        m_Theme = GetParam();
        LoadStoreThemeName(LoadStore::Store, FromUtf8(m_Theme));
        MoveMouseAway();
    }

    void TearDown() override {
        const std::string path = std::string(TheArguments().folder).append("\\failed.bmp");
        if (HasFailure()) Picture(GetDesktopWindow()).Save(path.c_str());
    }

    // The display's part where a window is, once it stays as it is: everything is painted then.
    static Picture StillPicture(HWND window) {
        const RECT place = ScreenPlace(window);
        Picture last;
        const auto stays = [&] {
            DWORD_PTR answer = 0;
            SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kWaitLimit, &answer);
            const Picture now = Picture(GetDesktopWindow()).Part(place);
            const bool same = now == last;
            last = now;
            return same;
        };
        EXPECT_TRUE(PumpUntil(stays));
        return last;
    }

    void TakePicture(HWND window, const char* what) const {
        std::string name = std::string(what).append("-").append(m_Theme).append(".bmp");
        for (char& unit : name)
            if (unit == ' ') unit = '-';
        ASSERT_TRUE(
            StillPicture(window).Save(std::string(TheArguments().folder).append("\\").append(name).c_str()));
    }

    void OpenDatabase() {
        constexpr int kWidth = 880;
        constexpr int kHeight = 600;
        ASSERT_NE(m_Program.StartAsking(FromUtf8(TheArguments().database)), nullptr);
        SetWindowPos(m_Program.Main(), nullptr, 20, 20, kWidth, kHeight, SWP_NOZORDER | SWP_NOACTIVATE);
        TypeText(FromUtf8(TheArguments().password));
        Type(VK_RETURN);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
        ASSERT_TRUE(PumpUntil([this] { return m_Program.Sees(kList); }));
    }

    // The details of an item have a list of their own.
    [[nodiscard]] bool ShowsAnItem() const {
        HWND list = tvWnd::FindDescendant(GetParent(m_Program.Control(kModifyButton)), kList);
        return list != nullptr && IsWindowVisible(list) != FALSE;
    }

    void ChooseAnItem() const {
        StillPicture(m_Program.Main());
        HWND list = m_Program.Control(kList);
        const auto height = static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
        Click(list, height, height * 3 / 2);
        ASSERT_TRUE(PumpUntil([this] { return ShowsAnItem(); })) << "no item is shown";
    }

    // Buttons that belong to a field stand beside it while the mouse is over it, and outside of the pane
    // else.
    [[nodiscard]] bool IsBesideAField(int id) const {
        HWND button = m_Program.Control(id);
        RECT place = ScreenPlace(button);
        const RECT pane = ScreenPlace(GetParent(button));
        return IntersectRect(&place, &place, &pane) != FALSE;
    }

    // Down over the details, until the mouse is over the field with the password.
    void PointAtThePassword() const {
        constexpr int kStep = 25;
        constexpr int kMoment = 200;  // milliseconds
        constexpr int kShowButton = 2013;
        HWND pane = GetParent(m_Program.Control(kShowButton));
        RECT rect{};
        GetClientRect(pane, &rect);
        for (int y = kStep; y < rect.bottom && !IsBesideAField(kShowButton); y += kStep) {
            MoveMouse(pane, rect.right / 4, y);
            PumpUntil([this] { return IsBesideAField(kShowButton); }, kMoment);
        }
        ASSERT_TRUE(IsBesideAField(kShowButton)) << "no field has a password";
    }

    void MakeAPassword() const {
        Click(m_Program.Control(kModifyButton));
        HWND dialog = m_Program.WaitForDialog();
        ASSERT_NE(dialog, nullptr);
        Click(tvWnd::FindDescendant(dialog, kGenerateButton));
        MoveMouseAway();
        TakePicture(dialog, "password");
        Type(VK_ESCAPE);
        ASSERT_TRUE(m_Program.WaitForNoDialog());
    }

    void Search() const {
        Click(m_Program.Control(kSearchBox));
        TypeText(u"example");
        MoveMouseAway();
        TakePicture(m_Program.Main(), "search");
    }

    Program m_Program;
    std::string m_Theme;
};

TEST_P(Demonstration, ShowsADatabase) {
    ASSERT_NO_FATAL_FAILURE(OpenDatabase());
    ASSERT_NO_FATAL_FAILURE(ChooseAnItem());
    ASSERT_NO_FATAL_FAILURE(PointAtThePassword());
    ASSERT_NO_FATAL_FAILURE(TakePicture(m_Program.Main(), "main"));
    ASSERT_NO_FATAL_FAILURE(MakeAPassword());
    ASSERT_NO_FATAL_FAILURE(Search());
    EXPECT_TRUE(m_Program.Quit());
}

INSTANTIATE_TEST_SUITE_P(Themes, Demonstration, testing::ValuesIn(TheArguments().themes));

}  // namespace

int main(int argc, char** argv) {
    constexpr int kFirstTheme = 4;
    if (argc <= kFirstTheme) return 2;
    TheArguments() = {argv[1], argv[2], argv[3], std::vector<std::string>(argv + kFirstTheme, argv + argc)};
    testing::InitGoogleTest(&argc, argv);  // asks for the themes
    return RUN_ALL_TESTS();
}
