#include "platform/posix/path_bytes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "foundation/tvhandle.h"
#include "platform/file.h"
#include "tests/unit/test_files.h"

namespace {

using platform::PathBytes;
using platform::PathUnits;

TEST(PathBytes, AreTheUtf8OfTheUnits) {
    EXPECT_EQ(PathBytes(u"/a\u00E9\u20AC\U0001F511"), "/a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x91");
    EXPECT_EQ(PathUnits("/a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x91"), u"/a\u00E9\u20AC\U0001F511");
    EXPECT_EQ(PathBytes(u""), "");
    EXPECT_EQ(PathUnits(""), u"");
}

TEST(PathBytes, CarryBytesThatAreNotUtf8AsLoneUnits) {
    const char16_t units[] = {u'a', 0xDCFF, u'b', 0xDC80};
    EXPECT_EQ(PathUnits("a\xFF"
                        "b\x80"),
              std::u16string(units, 4));
    EXPECT_EQ(PathBytes(std::u16string_view(units, 4)),
              "a\xFF"
              "b\x80");
}

TEST(PathBytes, HaveAQuestionMarkForOtherLoneSurrogates) {
    const char16_t units[] = {0xD800, u'a', 0xDC00, 0xDC7F, 0xDD00};
    EXPECT_EQ(PathBytes(std::u16string_view(units, 5)), "?a???");
}

TEST(PathBytes, ComeBackForAnyBytes) {
    const std::string cases[] = {"\xC3",
                                 "\xE2\x82",
                                 "\xF0\x9F\x94",
                                 "\xC0\xAF",
                                 "\xED\xA0\x80\xED\xB2\x80",
                                 "\xF4\x90\x80\x80",
                                 "\xED\xB3\xBF",
                                 "\xFE\xFF"};
    for (const std::string& bytes : cases)
        EXPECT_EQ(PathBytes(PathUnits(bytes)), bytes);
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string bytes(random() % 12, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 2 == 0 ? random() % 256 : 0x80 + random() % 0x80);
        ASSERT_EQ(PathBytes(PathUnits(bytes)), bytes);
    }
}

TEST(OpenNativeFile, OpensNamesThatAreNotUtf8) {
    const TempFolder folder;
    const std::string path = PathBytes(folder.Path().view()) + "/na\xEFve \xFF";
    const std::u16string units = PathUnits(path);
    {
        const tvhandle file(platform::OpenNativeFile(units.c_str(), platform::FileAccess::CreateNew,
                                                     platform::FileSharing::None));
        EXPECT_TRUE(file);
    }
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(path)));
    EXPECT_TRUE(platform::PathExists(units.c_str()));
}

TEST(ListNames, GivesNamesThatAreNotUtf8) {
    const TempFolder folder;
    std::ofstream(std::filesystem::path(PathBytes(folder.Path().view()) + "/\xFF.ini")).close();
    const auto names = platform::ListNames(folder.Path().c_str(), u"ini");
    ASSERT_TRUE(names.has_value());
    ASSERT_EQ(names->size(), 1U);
    EXPECT_EQ(PathBytes(names->front()), "\xFF.ini");
}

}  // namespace
