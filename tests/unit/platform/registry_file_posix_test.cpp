#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "tests/unit/environment.h"
#include "tests/unit/registry_fixture.h"

namespace {

using platform::FormatRegistry;
using platform::kErrorAccessDenied;
using platform::kErrorDiskFull;
using platform::kErrorFileNotFound;
using platform::kErrorFileTooLarge;
using platform::kErrorNone;
using platform::kErrorPathNotFound;
using platform::KeyAccess;
using platform::NativeKey;
using platform::ParseRegistry;
using platform::RegistryKeys;

// --- The document ---

// The document that a document comes to when it is read and written.
std::string Cleaned(const std::string& text) {
    return FormatRegistry(ParseRegistry(text));
}

TEST(RegistryFile, IsEmptyWithoutKeys) {
    EXPECT_EQ(FormatRegistry({}), "");
    EXPECT_TRUE(ParseRegistry("").empty());
}

TEST(RegistryFile, HasALineForEachKeyAndValue) {
    RegistryKeys keys;
    keys[u"b\\c"][u"name"] = {4, {0, 1, 0xAB}};
    keys[u"b\\c"][u""] = {4'294'967'295, {}};
    keys[u"a"];
    EXPECT_EQ(FormatRegistry(keys), "[a]\n[b\\c]\n=4294967295:\nname=4:0001ab\n");
}

TEST(RegistryFile, WritesNamesInPrintableAscii) {
    RegistryKeys keys;
    keys[u"[k]=%\n"][u"\x1F ~\x7F\x80\u6771\xD800"] = {1, {}};
    EXPECT_EQ(FormatRegistry(keys), "[%005bk%005d%003d%0025%000a]\n%001f ~%007f%0080%6771%d800=1:\n");
}

TEST(RegistryFile, IsReadAsItWasWritten) {
    const std::string text = "[a\\b]\n=0:\na%003db=3:00ff7f\n%6771=4294967295:01\n[%005bk%005d]\n";
    const RegistryKeys keys = ParseRegistry(text);
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_TRUE(keys.contains(u"[k]"));
    const auto& values = keys.at(u"A\\B");
    ASSERT_EQ(values.size(), 3U);
    EXPECT_EQ(values.at(u"").type, 0U);
    EXPECT_EQ(values.at(u"A=B").bytes, (std::vector<u8>{0, 0xFF, 0x7F}));
    EXPECT_EQ(values.at(u"\u6771").type, 4'294'967'295U);
    EXPECT_EQ(FormatRegistry(keys), text);
}

TEST(RegistryFile, TakesDigitsInCapitals) {
    EXPECT_EQ(Cleaned("[a%005B]\nv=3:AbCD\n"), "[a%005b]\nv=3:abcd\n");
}

TEST(RegistryFile, PutsKeysAndValuesOfOneNameTogether) {
    EXPECT_EQ(Cleaned("[a]\nx=1:01\n[b]\n[A]\nX=1:02\ny=1:\n"), "[a]\nx=1:02\ny=1:\n[b]\n");
}

TEST(RegistryFile, NeedsNoLineEndAtItsEnd) {
    EXPECT_EQ(Cleaned("[a]\nx=1:01"), "[a]\nx=1:01\n");
}

TEST(RegistryFile, PassesOverDamagedValues) {
    const std::string good = "[a]\nx=3:01\n";
    for (const char* line : {"",           "x",        "x3:02",   "x=",       "x=:02",     "x=3",
                             "x=302",      "x=3:0",    "x=3:022", "x=3:0g",   "x=3: 2",    "x=3:-2",
                             "x=-3:02",    "x=+3:02",  "x= 3:02", "x=3 :02",  "x=0x3:02",  "x=4294967296:02",
                             "x=3:02 ",    "x=3:02\r", "%=3:02",  "%00=3:02", "%007=3:02", "%00g1=3:02",
                             "%-001=3:02", "=",        "="}) {
        EXPECT_EQ(Cleaned(good + line + "\n"), good) << line;
    }
}

TEST(RegistryFile, PassesOverValuesWithoutAKey) {
    EXPECT_EQ(Cleaned("x=3:01\n[a]\ny=3:01\n"), "[a]\ny=3:01\n");
}

TEST(RegistryFile, PassesOverTheValuesOfADamagedKey) {
    for (const char* line : {"[", "[b", "[b%]", "[b%004]", "[%00zz]", "[b]\r", "[b] ", "[b]="}) {
        const std::string damaged = std::string("[a]\nx=3:01\n").append(line);
        EXPECT_EQ(Cleaned(damaged + "\nx=3:02\n[c]\nx=3:03\n"), "[a]\nx=3:01\n[c]\nx=3:03\n") << line;
    }
}

TEST(RegistryFile, GivesAnythingBack) {
    std::mt19937 random(1);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    const auto name = [&below] {
        std::u16string text(below(4), u'\0');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(below(2) == 0 ? below(0x80) : below(0x10000));
        return text;
    };
    for (int round = 0; round < 200; ++round) {
        RegistryKeys keys;
        for (unsigned key = below(4); key-- > 0;) {
            auto& values = keys[name()];
            for (unsigned value = below(4); value-- > 0;) {
                std::vector<u8> bytes(below(5));
                for (u8& byte : bytes)
                    byte = static_cast<u8>(below(256));
                values[name()] = {static_cast<u32>(random()), bytes};
            }
        }
        const RegistryKeys again = ParseRegistry(FormatRegistry(keys));
        ASSERT_EQ(again.size(), keys.size());
        for (const auto& [path, values] : keys) {
            const auto& valuesAgain = again.at(path);
            ASSERT_EQ(valuesAgain.size(), values.size());
            for (const auto& [valueName, value] : values) {
                ASSERT_EQ(valuesAgain.at(valueName).type, value.type);
                ASSERT_EQ(valuesAgain.at(valueName).bytes, value.bytes);
            }
        }
    }
}

// --- The file ---

class RegistryFileOnDisk : public RegistryTest {
protected:
    static u32 StatusOf(KeyAccess access) {
        NativeKey key = 0;
        const u32 status = platform::OpenUserKey(kTestKey, access, key);
        platform::CloseKey(key);
        return status;
    }

    std::string Content() {
        const std::vector<u8> bytes = ReadBytes(m_File);
        return {bytes.begin(), bytes.end()};
    }

    static bool IsThere(const tvstring& path) {
        return std::filesystem::exists(test_files::SystemPath(path));
    }

    static unsigned Rights(const tvstring& path) {
        struct stat status {};
        EXPECT_EQ(::stat(test_files::SystemPath(path).c_str(), &status), 0);
        return status.st_mode & 0777U;
    }

    tvstring m_File = m_Folder.Path(u"registry");
};

TEST_F(RegistryFileOnDisk, HoldsTheStore) {
    Put(kTestKey, u"v", 3, {1, 2});
    EXPECT_EQ(Content(), "[Software]\n[Software\\Tolvane]\n[Software\\Tolvane\\Test]\nv=3:0102\n");
    Delete(kTestKey, u"v");
    platform::DeleteUserTree(kTestKey);
    EXPECT_EQ(Content(), "[Software]\n[Software\\Tolvane]\n");
}

TEST_F(RegistryFileOnDisk, MayHaveBeenWrittenByHand) {
    WriteBytes(m_File, "[software\\tolvane\\test]\nV=4:01000000\n");
    EXPECT_EQ(Stored(kTestKey, u"v"), "4:01000000");
}

TEST_F(RegistryFileOnDisk, IsForItsUserAlone) {
    platform::UseRegistryFile(m_Folder.Path(u"new/deep/registry").c_str());
    Put(kTestKey, u"v", 3, {1});
    EXPECT_EQ(Rights(m_Folder.Path(u"new/deep/registry")), 0600U);
    EXPECT_EQ(Rights(m_Folder.Path(u"new/deep")), 0700U);
    EXPECT_EQ(Rights(m_Folder.Path(u"new")), 0700U);
}

TEST_F(RegistryFileOnDisk, IsNotMadeByReadingAndDeleting) {
    platform::UseRegistryFile(m_Folder.Path(u"new/registry").c_str());
    EXPECT_EQ(StatusOf(KeyAccess::Read), kErrorFileNotFound);
    EXPECT_EQ(platform::DeleteUserTree(kTestKey), kErrorFileNotFound);
    EXPECT_FALSE(IsThere(m_Folder.Path(u"new")));
}

TEST_F(RegistryFileOnDisk, StandsInTheUsersConfigurationFolder) {
    const EnvironmentVariable config("XDG_CONFIG_HOME", test_files::SystemPath(m_Folder.Path()).string());
    platform::UseRegistryFile(u"");
    Put(kTestKey, u"v", 3, {1});
    EXPECT_TRUE(IsThere(m_Folder.Path(u"vaultmere/registry")));
    EXPECT_EQ(Stored(kTestKey, u"v"), "3:01");
}

class Home {
public:
    explicit Home(const std::string& folder) { ::setenv("HOME", folder.c_str(), 1); }
    ~Home() { ::setenv("HOME", m_Before.c_str(), 1); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

private:
    const char* m_Present = std::getenv("HOME");
    std::string m_Before = m_Present == nullptr ? "" : m_Present;
};

TEST_F(RegistryFileOnDisk, StandsInTheUsersHomeUnlessAConfigurationFolderIsNamedInFull) {
    platform::UseRegistryFile(u"");
    const Home home(test_files::SystemPath(m_Folder.Path()).string());
    for (const char* config : {"", "relative"}) {
        const EnvironmentVariable variable("XDG_CONFIG_HOME", config);
        Put(kTestKey, u"v", 3, {1});
        EXPECT_TRUE(IsThere(m_Folder.Path(u".config/vaultmere/registry"))) << config;
        std::filesystem::remove_all(test_files::SystemPath(m_Folder.Path(u".config")));
    }
}

TEST_F(RegistryFileOnDisk, IsNowhereForAUserWithoutAHome) {
    platform::UseRegistryFile(u"");
    const EnvironmentVariable config("XDG_CONFIG_HOME", "");
    const Home home("");
    EXPECT_EQ(StatusOf(KeyAccess::Read), kErrorFileNotFound);
    EXPECT_EQ(StatusOf(KeyAccess::Write), kErrorFileNotFound);
}

TEST_F(RegistryFileOnDisk, CannotStandBelowAFile) {
    WriteBytes(m_Folder.Path(u"file"), "");
    platform::UseRegistryFile(m_Folder.Path(u"file/registry").c_str());
    EXPECT_EQ(StatusOf(KeyAccess::Read), kErrorPathNotFound);
    EXPECT_EQ(StatusOf(KeyAccess::Write), kErrorPathNotFound);
    EXPECT_EQ(platform::DeleteUserTree(kTestKey), kErrorPathNotFound);
}

TEST_F(RegistryFileOnDisk, CannotBeAFolder) {
    platform::UseRegistryFile(m_Folder.Path().c_str());
    EXPECT_EQ(StatusOf(KeyAccess::Read), kErrorAccessDenied);
    EXPECT_EQ(StatusOf(KeyAccess::Write), kErrorAccessDenied);
}

TEST_F(RegistryFileOnDisk, MayGoAwayWhileAKeyIsOpen) {
    Put(kTestKey, u"v", 3, {1});
    const RegKey reader(kTestKey, RegKey::For::Reading);
    const RegKey writer(kTestKey, RegKey::For::Writing);
    std::filesystem::remove(test_files::SystemPath(m_File));
    u32 size = 0;
    EXPECT_EQ(platform::QueryValue(reader.Get(), u"v", nullptr, nullptr, size), kErrorFileNotFound);
    EXPECT_EQ(platform::DeleteValue(writer.Get(), u"v"), platform::kErrorKeyDeleted);
}

// Files of this process can grow no further than this until the end of the block.
class LongestFile {
public:
    explicit LongestFile(rlim_t size) {
        ::getrlimit(RLIMIT_FSIZE, &m_Before);
        const rlimit limit{size, m_Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~LongestFile() {
        ::setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_Handler);
    }
    LongestFile(const LongestFile&) = delete;
    LongestFile& operator=(const LongestFile&) = delete;

private:
    void (*m_Handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
    rlimit m_Before{};
};

TEST_F(RegistryFileOnDisk, CannotBeMadeWithoutSpace) {
    u32 status = kErrorNone;
    {
        const LongestFile limit(0);
        status = StatusOf(KeyAccess::Write);
    }
    EXPECT_EQ(status, kErrorFileTooLarge);
}

TEST_F(RegistryFileOnDisk, TellsThatItWasWrittenInPart) {
    const RegKey key(kTestKey, RegKey::For::Writing);
    const std::size_t size = Content().size();
    const u8 byte = 1;
    u32 status = kErrorNone;
    {
        const LongestFile limit(size + 1);
        status = platform::WriteValue(key.Get(), u"v", 3, &byte, 1);
    }
    EXPECT_EQ(status, kErrorDiskFull);
    EXPECT_EQ(Stored(kTestKey, u"v"), "absent");
}

}  // namespace
