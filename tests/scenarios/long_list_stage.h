// What tests of a long list share: a program with a database of ten thousand items, whose list has the
// keyboard.
#pragma once

#include "tests/scenarios/opened.h"

class LongList : public Scenario, public testing::WithParamInterface<const char16_t*> {
protected:
    static constexpr int kItems = 10000;
    static constexpr int kWithWord = 20;  // so many items have the word "needle" in their names

    void SetUp() override;

    static tvstring NameOf(int index);
    static bool HasWord(int index) { return index % (kItems / kWithWord) == 0; }

    // The file, once the program has let go of it, holds these of the items and no other ones.
    void ExpectFileWith(const std::function<bool(int)>& isThere) const;

    [[nodiscard]] bool HasRows(int rows) const;
    [[nodiscard]] bool HasSelected(int rows) const;
    [[nodiscard]] bool HasTop(int row) const;
    [[nodiscard]] bool IsChanged() const;

    [[nodiscard]] int RowHeight() const;
    // The top row when the last one stands at the bottom.
    [[nodiscard]] int LastTop() const;

    // Into the search box, from elsewhere: what stands in it is selected then.
    void SearchFor(std::u16string_view text) const;
    // By its first row that is seen, which is then the only one that is selected.
    void GoToList() const;
    // With the keyboard in the list.
    [[nodiscard]] bool SelectsAll(int rows) const;
    void Save() const;
    void Undo(int rowsAfter) const;
    // Removes what is selected, which is all.
    void RemoveAll() const;

    tvstring m_Path;
    Program m_Program;
    HWND m_List = nullptr;

private:
    void MakeLongDatabase() const;
};

std::string NameOfLongListTheme(const testing::TestParamInfo<const char16_t*>& theme);

inline constexpr const char16_t* kLongListThemes[] = {u"Light", u"System Default"};
