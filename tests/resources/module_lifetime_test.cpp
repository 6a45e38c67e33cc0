// The module's own state: what loading the library set up, the exported module
// queries, and detach and attach through the entry point.
//
// The test environment loads the library with TABRA_RESOURCE_DIR pointing at the
// build tree (which holds the shipped language folders) and LC_ALL=C.UTF-8.
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "query/resource_ids.h"
#include "ostrel_lts.h"
#include "ostrel_text.h"
#include "platform/resources/resource_module.h"
#include "resource_test_support.h"
#include "tabra_connection.h"

#include <gtest/gtest.h>

#include <regex>

namespace module = tabra::module;

namespace {

std::u16string loaded(HMODULE library, int32_t id) {
    char16_t buffer[512];
    int32_t length = module::LoadTranslatedString(library, id, buffer, 512);
    return std::u16string(buffer, static_cast<size_t>(length));
}

} // namespace

TEST(ModuleLifetime, LoadingTheLibrarySetUpTheModuleState) {
    HMODULE instance = Tabra_GetInstance();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance, module::instance());
    EXPECT_NE(instance, module::resourceLibrary());
    EXPECT_FALSE(module::profileName().empty());
    EXPECT_LT(module::profileName().size(), static_cast<size_t>(module::kProfileNameCapacity));
    // Thread notifications and unknown reasons change nothing.
    HMODULE before = module::resourceLibrary();
    for (int32_t reason : {static_cast<int32_t>(module::ThreadAttach), static_cast<int32_t>(module::ThreadDetach), 7}) EXPECT_EQ(module::moduleEntryPoint(reason), 0);
    EXPECT_EQ(module::resourceLibrary(), before);
    if (std::getenv("ZUL_LANGUAGE") != nullptr) GTEST_SKIP() << "the test expects the English folder";
    ASSERT_NE(before, nullptr) << "no tabraRes.rc below " << tabra::test::shippedResourceDirectory();
    EXPECT_EQ(loaded(before, tabra::core::ids::kString.caption), u"Tabra");
    EXPECT_FALSE(loaded(before, tabra::core::ids::kMessage.noDataSource).empty());
    EXPECT_EQ(loaded(before, tabra::query::ids::kString.ascending), u"ascending") << "family scripts are read too";
}

TEST(ModuleLifetime, DetachFreesTheResourceLibraryAndAttachLoadsItAgain) {
    HMODULE before = module::resourceLibrary();
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(module::moduleEntryPoint(module::ProcessDetach), 1);
    EXPECT_EQ(module::resourceLibrary(), nullptr);
    EXPECT_EQ(tabra::platform::resourceTablesOf(before), nullptr) << "the old handle is dead";
    EXPECT_TRUE(loaded(module::resourceLibrary(), tabra::core::ids::kString.caption).empty())
        << "no texts without a resource library";
    EXPECT_EQ(module::moduleEntryPoint(module::ProcessDetach), 1) << "a second detach is harmless";

    EXPECT_EQ(module::moduleEntryPoint(module::ProcessAttach), 1);
    ASSERT_NE(module::resourceLibrary(), nullptr);
    EXPECT_FALSE(loaded(module::resourceLibrary(), tabra::core::ids::kString.caption).empty());
}

TEST(ModuleQueries, LtsModuleNameIsCutLikeEveryBoundedCopy) {
    char16_t name[16];
    EXPECT_EQ(Tabra_GetLtsModuleName(name, 16), 8);
    EXPECT_EQ(std::u16string(name), u"TABRADLL");
    EXPECT_EQ(Tabra_GetLtsModuleName(name, 4), 3);
    EXPECT_EQ(std::u16string(name), u"TAB");
    EXPECT_EQ(Tabra_GetLtsModuleName(name, 9), 8) << "exact fit";
    EXPECT_EQ(Tabra_GetLtsModuleName(name, 1), 0);
    EXPECT_EQ(name[0], u'\0');
    EXPECT_EQ(Tabra_GetLtsModuleName(nullptr, 16), -1);
    EXPECT_EQ(Tabra_GetLtsModuleName(name, 0), -1);
}

TEST(ModuleQueries, VersionIsTheBuildVersionOfTheLibraryItself) {
    char16_t version[32];
    int32_t length = Tabra_GetVersion(version, 32);
    ASSERT_GT(length, 0);
    std::string text = tabra::test::narrow(std::u16string(version, static_cast<size_t>(length)));
    EXPECT_TRUE(std::regex_match(text, std::regex(R"(\d+\.\d+\.\d+)"))) << text;
    EXPECT_EQ(Tabra_GetVersion(version, 2), 1);
    EXPECT_EQ(Tabra_GetVersion(nullptr, 32), -1);

    // Other modules and other version kinds have no version.
    char16_t other[32] = u"junk";
    EXPECT_EQ(Ostrel_GetResourceFileVersion(module::resourceLibrary(), 1, other, 32, 0), 0);
    EXPECT_EQ(other[0], u'\0');
    EXPECT_EQ(Ostrel_GetResourceFileVersion(Tabra_GetInstance(), 3, other, 32, 0), 0);
    EXPECT_EQ(Ostrel_GetResourceFileVersion(Tabra_GetInstance(), 2, other, 32, 0), length);
}

TEST(ModuleQueries, ProfileNameComesFromTheUserAndCountsBytes) {
    char16_t name[8];
    {
        tabra::test::ScopedEnvironmentVariable user("USER", "margarethe");
        EXPECT_EQ(Ostrel_GetProfileName(Tabra_GetInstance(), name, sizeof name), 7);
        EXPECT_EQ(std::u16string(name), u"margare");
        EXPECT_EQ(Ostrel_GetProfileName(Tabra_GetInstance(), name, 8), 3) << "8 bytes hold 3 characters";
        EXPECT_EQ(Ostrel_GetProfileName(Tabra_GetInstance(), name, 1), -1);
        EXPECT_EQ(Ostrel_GetProfileName(Tabra_GetInstance(), nullptr, 16), -1);
    }
    {
        tabra::test::ScopedEnvironmentVariable user("USER", nullptr);
        EXPECT_GT(Ostrel_GetProfileName(Tabra_GetInstance(), name, sizeof name), 0) << "the password entry";
    }
}
