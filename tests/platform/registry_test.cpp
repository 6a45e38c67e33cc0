// The registry calls against real store files in a temporary root: values of every
// kind, names without regard to case, deletion, damaged stores, and many processes
// writing at once.
#include "ostrel_registry.h"
#include "platform/registry/registry_file_format.h"
#include "platform/registry/registry_location.h"
#include "support/scoped_environment.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tabra::test;
namespace fs = std::filesystem;

namespace {

constexpr const char16_t *kRoot = u"Software\\Ostrel Software\\Tabra";

std::u16string readString(HKEY root, const char16_t *key, const char16_t *subKey, const char16_t *name,
                          const char16_t *defaultValue = u"<default>", int32_t capacity = 200,
                          int32_t maxLength = 0) {
    std::u16string buffer(static_cast<std::size_t>(capacity), u'#');
    Ostrel_ReadStringFromRegistry(root, key, 0, subKey, name, defaultValue, buffer.data(), capacity, maxLength);
    return buffer.c_str();
}

std::vector<fs::path> filesIn(const fs::path &directory, const std::string &prefix) {
    std::vector<fs::path> found;
    for (const auto &entry : fs::directory_iterator(directory))
        if (entry.path().filename().string().rfind(prefix, 0) == 0)
            found.push_back(entry.path());
    return found;
}

class Registry : public ::testing::Test {
protected:
    ScopedRegistryRoot root_;
};

TEST_F(Registry, AwkwardStringsReadBackExactly) {
    const char16_t loneSurrogate[] = {u'x', 0xD800, 0};
    for (const std::u16string &value :
         {std::u16string(u"C:\\Users\\ann\\export.txt"), std::u16string(u"two\nlines\r\nand\ttab"),
          std::u16string(u"\"double\" and 'single' quotes"), std::u16string(u"Grüße \U0001F600"),
          std::u16string(u""), std::u16string(loneSurrogate), std::u16string(5000, u'z')}) {
        ASSERT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", u"FileName", value.c_str()), 1);
        EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Export", u"FileName", u"<default>", 6000), value);
    }
}

TEST_F(Registry, UnicodeKeyAndValueNames) {
    ASSERT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, u"Software\\Größe", 0, u"Ünïcode 中文", u"Wert \"1\"",
                                           u"ok"),
              1);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, u"SOFTWARE\\GRÖßE", u"ünïcode 中文", u"WERT \"1\""), u"ok");
}

TEST_F(Registry, MissingValuesGiveTheDefault) {
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Export", u"FileName"), u"<default>"); // no store yet
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", u"Other", u"x");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Export", u"FileName"), u"<default>");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Import", u"Other"), u"<default>");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Export", u"FileName", nullptr), u"");
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", u"Type", 2104), 2104);
    EXPECT_EQ(Ostrel_ReadLongFromHKCU(kRoot, u"Nothing", -3), -3);
}

TEST_F(Registry, CapacityAndMaximumLengthBoundTheRead) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Name", u"abcdefgh");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Name", nullptr, 5), u"abcd");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Name", nullptr, 100, 3), u"abc");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Name", nullptr, 3, 6), u"ab");
    char16_t buffer[4];
    EXPECT_EQ(Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Name", nullptr, buffer, 4, 0), 3);
    EXPECT_EQ(Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Name", nullptr, buffer, 0, 0), -1);
    EXPECT_EQ(Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Name", nullptr, nullptr, 4, 0), -1);
    // A default is cut the same way.
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Missing", u"defaultvalue", 100, 7), u"default");
}

TEST_F(Registry, BadArgumentsFailWithoutTouchingAnyStore) {
    char16_t buffer[16];
    EXPECT_EQ(Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, nullptr, 0, nullptr, u"x", u"def", buffer, 16, 0), -1);
    EXPECT_EQ(std::u16string(buffer), u"def"); // the output still holds the default
    EXPECT_EQ(Ostrel_ReadStringFromRegistry(reinterpret_cast<HKEY>(0x1234), kRoot, 0, nullptr, u"x", u"d", buffer,
                                            16, 0),
              -1);
    EXPECT_EQ(Ostrel_WriteStringToRegistry(reinterpret_cast<HKEY>(0x1234), kRoot, 0, nullptr, u"x", u"v"), 0);
    EXPECT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, nullptr, 0, nullptr, u"x", u"v"), 0);
    EXPECT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, u"Bad\nKey", 0, nullptr, u"x", u"v"), 0);
    EXPECT_EQ(Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Tab\tKey", u"x", 1), 0);
    EXPECT_FALSE(fs::exists(root_.currentUserFile()));
}

TEST_F(Registry, NumbersIncludingNegativeOnesAndConversions) {
    for (int32_t value : {0, 1, 2104, -1, INT32_MIN, INT32_MAX}) {
        ASSERT_EQ(Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Type", value), 1);
        EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Type", 7), value);
    }
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Import", u"Type"), u"2147483647");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Text", u"42");
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Text", 7), 42);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Text", u"42 apples");
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Import", u"Text", 7), 7);
    ASSERT_EQ(Ostrel_WriteLongToHKCU(kRoot, u"DumpState", 3), 1);
    EXPECT_EQ(Ostrel_ReadLongFromHKCU(kRoot, u"dumpstate", 0), 3);
}

TEST_F(Registry, NamesIgnoreCaseAndKeepTheirFirstSpelling) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Export", u"FileName", u"one");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, u"SOFTWARE\\ostrel software\\TABRA", 0, u"EXPORT", u"FILENAME",
                                 u"two");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Export", u"filename"), u"two");
    const std::string file = readWholeFile(root_.currentUserFile());
    EXPECT_NE(file.find("[Software\\Ostrel Software\\Tabra\\Export]\n\"FileName\"=\"two\"\n"), std::string::npos)
        << file;
    EXPECT_EQ(file.find("FILENAME"), std::string::npos);
}

TEST_F(Registry, SubKeyAndEmptyKeyNamesMakeOnePath) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, u"\\Software\\\\Ostrel Software\\Tabra\\", 0, u"Export\\", u"A",
                                 u"x");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra\\Export", nullptr, u"A"), u"x");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, u"Software\\Ostrel Software", u"Tabra\\Export", u"A"), u"x");
}

TEST_F(Registry, NullOrEmptyValueNameIsTheDefaultValue) {
    ASSERT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, nullptr, u"default value"), 1);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u""), u"default value");
    EXPECT_NE(readWholeFile(root_.currentUserFile()).find("@=\"default value\""), std::string::npos);
}

TEST_F(Registry, RootsLiveInSeparateFiles) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Where", u"user");
    Ostrel_WriteStringToRegistry(HKEY_LOCAL_MACHINE, kRoot, 0, nullptr, u"Where", u"machine");
    Ostrel_WriteStringToRegistry(HKEY_USERS, u".Default\\Software", 0, nullptr, u"Where", u"users");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Where"), u"user");
    EXPECT_EQ(readString(HKEY_LOCAL_MACHINE, kRoot, nullptr, u"Where"), u"machine");
    EXPECT_EQ(readString(HKEY_USERS, u".Default\\Software", nullptr, u"Where"), u"users");
    EXPECT_TRUE(fs::exists(root_.path() / "local-machine.reg"));
    EXPECT_TRUE(fs::exists(root_.path() / "users.reg"));
    // The user's store is private.
    struct stat info {};
    ASSERT_EQ(stat(root_.currentUserFile().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST_F(Registry, CurrentUserFallsBackToLocalMachine) {
    char16_t buffer[32];
    Ostrel_WriteStringToRegistry(HKEY_LOCAL_MACHINE, kRoot, 0, u"DataSource", u"DataSourceName", u"machine-dsn");
    Ostrel_ReadStringFromHKCUorHKLM(kRoot, u"DataSource", u"DataSourceName", u"none", buffer, 32, 100);
    EXPECT_EQ(std::u16string(buffer), u"machine-dsn");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"DataSource", u"DataSourceName", u"");
    Ostrel_ReadStringFromHKCUorHKLM(kRoot, u"DataSource", u"DataSourceName", u"none", buffer, 32, 100);
    EXPECT_EQ(std::u16string(buffer), u""); // an empty user value still counts
    Ostrel_ReadStringFromHKCUorHKLM(kRoot, u"DataSource", u"UserId", u"none", buffer, 32, 100);
    EXPECT_EQ(std::u16string(buffer), u"none");
}

TEST_F(Registry, DeletesOneValueOrAWholeTree) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Sql", u"Total", u"2");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Sql", u"Sql0", u"a");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Sql\\Deeper\\Still", u"x", u"b");
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"SqlOther", u"x", u"keep"); // a sibling, no child

    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra\\Sql", u"sql0"), 1);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Sql", u"Sql0"), u"<default>");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Sql", u"Total"), u"2");
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra\\Sql", u"sql0"), 0);

    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"software\\ostrel software\\tabra\\SQL", nullptr), 1);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Sql", u"Total"), u"<default>");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Sql\\Deeper\\Still", u"x"), u"<default>");
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"SqlOther", u"x"), u"keep");
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra\\Sql", nullptr), 0);

    // Never the whole root.
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"", nullptr), 0);
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, u"\\", nullptr), 0);
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, nullptr, nullptr), 0);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"SqlOther", u"x"), u"keep");
}

TEST_F(Registry, DeletingTheDefaultKeyTreeBelowUsers) {
    const char16_t *orderBy = u".Default\\Software\\Ostrel Software\\Order By Clauses";
    Ostrel_WriteStringToRegistry(HKEY_USERS, orderBy, 0, u"Customers", u"Clause", u"Name ASC");
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_USERS, orderBy, nullptr), 1);
    EXPECT_EQ(readString(HKEY_USERS, orderBy, u"Customers", u"Clause"), u"<default>");
}

TEST_F(Registry, ADamagedStoreReadsAsDefaultsAndIsKeptAsideOnWrite) {
    const std::string garbage = "this is not\na registry \xFF file\n";
    writeWholeFile(root_.currentUserFile(), garbage);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Anything"), u"<default>");
    // Nothing to delete in a damaged store: the file stays exactly as it is.
    EXPECT_EQ(Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, kRoot, nullptr), 0);
    EXPECT_EQ(readWholeFile(root_.currentUserFile()), garbage);

    ASSERT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"Fresh", u"start"), 1);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"Fresh"), u"start");
    const auto aside = filesIn(root_.path(), "current-user.reg.damaged-");
    ASSERT_EQ(aside.size(), 1u);
    EXPECT_EQ(readWholeFile(aside[0]), garbage);

    // A second damage on the same second gets a name of its own.
    writeWholeFile(root_.currentUserFile(), garbage + "again");
    ASSERT_EQ(Ostrel_WriteLongToHKCU(kRoot, u"N", 1), 1);
    EXPECT_EQ(filesIn(root_.path(), "current-user.reg.damaged-").size(), 2u);
}

TEST_F(Registry, AnUnwritableStoreFailsTheWriteButNotTheRead) {
    // The root is a regular file, so no store can be made below it.
    const fs::path blocker = root_.path() / "blocker";
    writeWholeFile(blocker, "x");
    ScopedEnvironmentVariable moved("TABRA_REGISTRY_ROOT", blocker.c_str());
    EXPECT_EQ(Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"A", u"x"), 0);
    EXPECT_EQ(Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, kRoot, 0, nullptr, u"A", 1), 0);
    EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, nullptr, u"A"), u"<default>");
}

// The name process p gives its value v in the concurrency test.
std::u16string loadValueName(int p, int v) {
    return u"P" + std::u16string(1, char16_t(u'A' + p)) + u"V" + std::u16string(1, char16_t(u'0' + v / 10)) +
           std::u16string(1, char16_t(u'0' + v % 10));
}

TEST_F(Registry, ConcurrentWriterProcessesLoseNothing) {
    constexpr int kProcesses = 8;
    constexpr int kValuesEach = 50;
    std::vector<pid_t> children;
    for (int p = 0; p < kProcesses; ++p) {
        const pid_t pid = fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            int failures = 0;
            for (int v = 0; v < kValuesEach; ++v) {
                const std::u16string name = loadValueName(p, v);
                if (v % 2 == 0)
                    failures += Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Load", name.c_str(),
                                                           p * 1000 + v) != 1;
                else
                    failures += Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Load", name.c_str(),
                                                             (name + u"\nvalue").c_str()) != 1;
            }
            _exit(failures == 0 ? 0 : 1);
        }
        children.push_back(pid);
    }
    for (pid_t pid : children) {
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    for (int p = 0; p < kProcesses; ++p) {
        for (int v = 0; v < kValuesEach; ++v) {
            const std::u16string name = loadValueName(p, v);
            if (v % 2 == 0)
                EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kRoot, 0, u"Load", name.c_str(), -1),
                          p * 1000 + v);
            else
                EXPECT_EQ(readString(HKEY_CURRENT_USER, kRoot, u"Load", name.c_str()), name + u"\nvalue");
        }
    }
    // No temporary files are left behind.
    EXPECT_TRUE(filesIn(root_.path(), ".current-user.reg.tmp").empty());
}

TEST(RegistryLocation, FollowsTheXdgRules) {
    ScopedEnvironmentVariable noRoot("TABRA_REGISTRY_ROOT", nullptr);
    {
        ScopedEnvironmentVariable config("XDG_CONFIG_HOME", "/tmp/somewhere");
        EXPECT_EQ(tabra::platform::registryLocationOf(HKEY_CURRENT_USER)->file,
                  fs::path("/tmp/somewhere/tabra/registry/current-user.reg"));
        EXPECT_EQ(tabra::platform::registryLocationOf(HKEY_USERS)->file,
                  fs::path("/tmp/somewhere/tabra/registry/users.reg"));
    }
    ScopedEnvironmentVariable home("HOME", "/home/ann");
    for (const char *config : {static_cast<const char *>(nullptr), "", "relative/dir"}) {
        ScopedEnvironmentVariable variable("XDG_CONFIG_HOME", config);
        EXPECT_EQ(tabra::platform::registryLocationOf(HKEY_CURRENT_USER)->file,
                  fs::path("/home/ann/.config/tabra/registry/current-user.reg"));
    }
    EXPECT_EQ(tabra::platform::registryLocationOf(HKEY_LOCAL_MACHINE)->file,
              fs::path("/etc/tabra/registry/local-machine.reg"));
    EXPECT_FALSE(tabra::platform::registryLocationOf(nullptr).has_value());
}

} // namespace
