// Database files that other programs made, in tests/data/database; cases.json tells what is in each.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/error.h"
#include "platform/text.h"
#include "tests/unit/database/tree.h"
#include "tests/unit/test_files.h"

namespace {

using Json = nlohmann::json;

struct Case {
    std::string file;
    tvstring password;
    bool opens = false;
    Json database;
};

tvstring Text(const Json& value) {
    return FromUtf8(value.get<std::string>());
}

tvstring CasePath(const std::string& file) {
    return DataPath(tvstring(u"database/") + FromUtf8(file));
}

std::vector<Case> ReadCases() {
    const std::vector<u8> bytes = ReadBytes(CasePath("cases.json"));
    std::vector<Case> cases;
    for (const Json& value : Json::parse(bytes.begin(), bytes.end())) {
        cases.push_back(
            {value.at("file"), Text(value.at("password")), value.at("opens"), value.at("database")});
    }
    return cases;
}

// When the file was last written: the date of each item in a file of the old format.
u64 WriteTime(const std::string& file) {
    const tvhandle handle(platform::OpenNativeFile(CasePath(file).c_str(), platform::FileAccess::Read,
                                                   platform::FileSharing::ReadWrite));
    u64 time = 0;
    EXPECT_TRUE(platform::NativeFileWriteTime(handle.Get(), time));
    return time;
}

Tree ExpectedTree(const Case& expected) {
    Tree tree{std::u16string(Text(expected.database.at("name")).view()), {}};
    for (const Json& item : expected.database.at("items")) {
        const Json& date = item.at("date");
        ItemValues& values = tree.items.emplace_back();
        values.name = Text(item.at("name")).view();
        values.date = date == -1 ? WriteTime(expected.file) : date.get<u64>();
        for (const Json& entry : item.at("entries")) {
            values.entries.push_back({entry.at("type"), std::u16string(Text(entry.at("text")).view())});
        }
    }
    return tree;
}

bool IsOld(const Case& file) {
    return file.file.starts_with("old-");
}

class Vectors : public testing::Test {
protected:
    Vectors() { platform::UseAnsiCodePage(1252); }
    ~Vectors() override { platform::UseAnsiCodePage(0); }

    const std::vector<Case> m_Cases = ReadCases();
};

TEST_F(Vectors, CoverEachFileOfTheFolder) {
    const auto folder = test_files::SystemPath(DataPath(u"database"));
    std::vector<std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() == ".vmr") files.push_back(file.path().filename().string());
    }
    std::vector<std::string> named;
    for (const Case& expected : m_Cases)
        named.push_back(expected.file);
    std::ranges::sort(files);
    std::ranges::sort(named);
    EXPECT_EQ(named, files);
}

TEST_F(Vectors, OpenWithExactlyWhatIsInThem) {
    for (const Case& expected : m_Cases) {
        if (!expected.opens) continue;
        SCOPED_TRACE(expected.file);
        VMRD_DB database;
        ASSERT_TRUE(database.Open(CasePath(expected.file), expected.password));
        EXPECT_TRUE(database.m_Opened);
        EXPECT_EQ(database.m_Changed, IsOld(expected));
        EXPECT_EQ(TreeOf(database), ExpectedTree(expected));
        EXPECT_EQ(database.m_Count, static_cast<i32>(expected.database.at("items").size()));
    }
}

TEST_F(Vectors, AreRefusedWhereTheyAreBroken) {
    for (const Case& expected : m_Cases) {
        if (expected.opens) continue;
        SCOPED_TRACE(expected.file);
        VMRD_DB database;
        const bool knownForADatabase =
            expected.file != "wrong-magic.vmr" && expected.file != "eleven-bytes.vmr";
        platform::SetLastError(77);
        EXPECT_FALSE(database.Open(CasePath(expected.file), expected.password));
        EXPECT_EQ(platform::LastError(), knownForADatabase ? 0U : 13U);
        EXPECT_FALSE(database.m_Opened);
        EXPECT_FALSE(database.m_File);
        EXPECT_EQ(TreeOf(database), Tree());
    }
}

TEST_F(Vectors, SurviveBeingWrittenAndReadAgain) {
    const TempFolder folder;
    const tvstring path = folder.Path(u"copy.vmr");
    for (const Case& expected : m_Cases) {
        if (!expected.opens || expected.file == "zero-plain.vmr") continue;
        SCOPED_TRACE(expected.file);
        VMRD_DB database;
        ASSERT_TRUE(database.Open(CasePath(expected.file), expected.password));
        database.SetPath(path);
        database.SetMasterPassword(expected.password);
        ASSERT_TRUE(database.Save());
        database.Close();
        ASSERT_TRUE(database.Open(path, expected.password));
        EXPECT_EQ(TreeOf(database), ExpectedTree(expected));
    }
}

}  // namespace
