// What tests of sizes share: a program under a theme and with a font, whose window is pulled by its corner,
// and the check that controls stand apart and within their panes.
#pragma once

#include "tests/scenarios/opened.h"

RECT PlaceOf(HWND window);
// The client area, on the display.
RECT RoomOf(HWND window);
bool IsWithin(const RECT& inner, const RECT& outer);

inline constexpr int kSmallFont = -9;
inline constexpr int kLargeFont = -26;

struct SizeCase {
    const char16_t* theme;
    int font;  // 0: the system's own
    const char* name;
};

class SizeStage : public Scenario, public testing::WithParamInterface<SizeCase> {
protected:
    void SetUp() override;

    // Opens the file, and waits until an item is shown.
    void Open(const tvstring& path);
    void OpenDatabase();

    // Takes the window by its corner, moves the corner to where the mouse has that point of the display, or
    // as far as it follows, and lets it go.
    void DragCornerTo(POINT point);
    void HoldCorner();
    void MoveCornerTo(POINT point) const;
    void LetGo() const;
    // The window, to the display's upper left corner.
    void GoToTheEdge();
    // The window keeps its size and is painted.
    [[nodiscard]] bool Stays() const;

    // What stands one below the other without a height that gives way is cut at the bottom of a pane that is
    // too low for it: the details with their column of buttons, and under a large font the start page.
    enum class Below { Nothing, WhatIsCut };

    static void ExpectInOrder(HWND pane, Below below, const std::string& when);
    void ExpectAllInOrder(HWND pane, Below below) const;
    // All panes of an open database.
    void ExpectAllPanesInOrder() const;
    // From the smallest size up, and from narrow and high to wide and low.
    void ExpectInOrderAtAllSizes(HWND pane, Below below = Below::Nothing);

    [[nodiscard]] HWND TopPane() const { return GetParent(m_Program.Control(opened::kSaveButton)); }
    [[nodiscard]] HWND LeftPane() const {
        HWND pane = m_Program.Control(opened::kSearchBox);
        while (GetParent(pane) != m_Program.Main())
            pane = GetParent(pane);
        return pane;
    }
    [[nodiscard]] HWND StartPane() const { return GetParent(m_Program.Control(opened::kCreateButton)); }

    Program m_Program;

private:
    POINT m_Least{};   // where the corner is when the window is as small as can be
    POINT m_Beyond{};  // from the mouse to the corner
};

inline constexpr SizeCase kSizeCases[] = {{u"Light", 0, "Light"},
                                          {u"Light", kSmallFont, "LightSmall"},
                                          {u"Light", kLargeFont, "LightLarge"},
                                          {u"Dark", kLargeFont, "DarkLarge"},
                                          {u"System Default", 0, "SystemDefault"},
                                          {u"System Default", kSmallFont, "SystemDefaultSmall"},
                                          {u"System Default", kLargeFont, "SystemDefaultLarge"}};

inline void PrintTo(const SizeCase& one, std::ostream* out) {
    *out << one.name;
}
std::string NameOfSizeCase(const testing::TestParamInfo<SizeCase>& one);
