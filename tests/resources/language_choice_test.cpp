// Choosing the resource language and finding the resource library in the language
// folders: the names tried, their order, and what happens when nothing is there.
#include "ostrel_lts.h"
#include "platform/resources/language_choice.h"
#include "platform/resources/library_image.h"
#include "platform/resources/locale_names.h"
#include "platform/resources/resource_library_loader.h"
#include "platform/resources/resource_module.h"
#include "resource_test_support.h"

#include <gtest/gtest.h>

#include <vector>

using tabra::platform::chooseLanguageNames;
using tabra::platform::LanguageEnvironment;
using tabra::platform::LanguageNames;
using tabra::platform::loadResourceLibraryFrom;
using tabra::platform::ResourceLibraryLoad;
using tabra::test::scriptWithString;
using tabra::test::TemporaryDirectory;

namespace {

LanguageEnvironment zul(const char *value) { return {value, std::nullopt, std::nullopt, std::nullopt}; }
LanguageEnvironment posix(std::optional<std::string> lcAll, std::optional<std::string> lcMessages,
                          std::optional<std::string> lang) {
    return {std::nullopt, std::move(lcAll), std::move(lcMessages), std::move(lang)};
}

// The text of string 1 in a loaded library (which folder it came from).
std::u16string marker(HMODULE module) {
    char16_t text[64] = {};
    LoadStringW(module, 1, text, 64);
    return text;
}

// Loads from a tree, recording every missing-file report.
struct RecordedLoad {
    ResourceLibraryLoad load;
    std::vector<std::string> reports;
};

RecordedLoad loadFrom(const TemporaryDirectory &tree, const LanguageNames &names) {
    RecordedLoad recorded;
    recorded.load = loadResourceLibraryFrom(tree.directory(), names, "tabraRes.rc",
                                            [&](const std::string &path) { recorded.reports.push_back(path); });
    return recorded;
}

// Frees what a test loaded.
struct LoadedLibrary {
    explicit LoadedLibrary(HMODULE module) : module(module) {}
    ~LoadedLibrary() { Ostrel_FreeResourceLibrary(module); }
    HMODULE module;
};

} // namespace

TEST(LanguageChoice, NamesFromZulLanguageOrThePosixLocale) {
    struct Case {
        LanguageEnvironment environment;
        const char *localeName, *shortName;
    };
    const Case cases[] = {
        // ZUL_LANGUAGE names the folder as it stands; the language is canonical.
        {zul("de"), "de", "de"},
        {zul("DE-at"), "DE-at", "de"},
        {zul("pt_BR"), "pt_BR", "pt"},
        {zul("zh-Hant-TW"), "zh-Hant-TW", "zh"},
        // An unknown value goes straight to English with an empty short name.
        {zul("xx-YY"), "en", ""},
        {zul("de--DE"), "en", ""},
        {zul("de-DE.UTF-8"), "en", ""},
        {zul("de-verylongsubtag"), "en", ""}, // a subtag of more than 8 characters
        {zul("de-DE-abcd-efgh-ijk"), "de-DE-abcd-efgh-ijk", "de"}, // 19 characters fit the name buffers
        {zul("de-DE-abcd-efgh-ijkl"), "en", ""},                   // 20 do not
        // ZUL_LANGUAGE wins over the locale unless empty.
        {{"fr", "de_DE.UTF-8", std::nullopt, std::nullopt}, "fr", "fr"},
        {{"", "de_DE.UTF-8", std::nullopt, std::nullopt}, "de-DE", "de"},
        // The POSIX locale: LC_ALL, then LC_MESSAGES, then LANG; empty values do not count.
        {posix(std::nullopt, std::nullopt, "de_at.ISO-8859-1@euro"), "de-AT", "de"},
        {posix(std::nullopt, std::nullopt, "fr"), "fr", "fr"},
        {posix(std::nullopt, std::nullopt, "sr_RS@latin"), "sr-RS", "sr"},
        {posix("it_IT.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"), "it-IT", "it"},
        {posix(std::nullopt, "de_DE.UTF-8", "fr_FR.UTF-8"), "de-DE", "de"},
        {posix("", "", "fr_FR.UTF-8"), "fr-FR", "fr"},
        // C, POSIX and no locale at all are English; an unknown language tries English
        // and then the directory itself.
        {posix(std::nullopt, std::nullopt, std::nullopt), "en", "en"},
        {posix("C", std::nullopt, "de_DE.UTF-8"), "en", "en"},
        {posix("C.UTF-8", std::nullopt, std::nullopt), "en", "en"},
        {posix("POSIX", std::nullopt, std::nullopt), "en", "en"},
        {posix(std::nullopt, std::nullopt, "xx_YY.UTF-8"), "en", ""},
        {posix(std::nullopt, std::nullopt, "de_DE_"), "en", ""},
    };
    for (const Case &c : cases) {
        LanguageNames names = chooseLanguageNames(c.environment);
        EXPECT_EQ(names.localeName, c.localeName) << c.localeName << "/" << c.shortName;
        EXPECT_EQ(names.shortName, c.shortName) << c.localeName;
    }
}

TEST(LocaleNames, OnlyIso639LanguagesAreKnown) {
    EXPECT_TRUE(tabra::platform::isIso639Language("de"));
    EXPECT_TRUE(tabra::platform::isIso639Language("zu"));
    EXPECT_TRUE(tabra::platform::isIso639Language("aa"));
    EXPECT_FALSE(tabra::platform::isIso639Language("xx"));
    EXPECT_FALSE(tabra::platform::isIso639Language("DE")); // codes are lower case
    EXPECT_FALSE(tabra::platform::isIso639Language("deu")); // ISO 639-2 is not in the table
    EXPECT_FALSE(tabra::platform::isIso639Language("d "));
    EXPECT_FALSE(tabra::platform::isIso639Language(""));
    EXPECT_EQ(tabra::platform::languageOfLocaleName("EN-us"), "en");
    EXPECT_EQ(tabra::platform::languageOfLocaleName("en-"), "");
    EXPECT_EQ(tabra::platform::languageOfLocaleName(""), "");
}

TEST(ResourceLibraryCandidates, LocaleNameThenShortNameThenEnglish) {
    auto candidates = tabra::platform::resourceLibraryCandidates("/opt/tabra/lib/", {"de-DE", "de"}, "tabraRes.rc");
    EXPECT_EQ(candidates[0], "/opt/tabra/lib/de-DE/tabraRes.rc");
    EXPECT_EQ(candidates[1], "/opt/tabra/lib/de/tabraRes.rc");
    EXPECT_EQ(candidates[2], "/opt/tabra/lib/en/tabraRes.rc");
    // An empty short name names the directory itself.
    auto unknown = tabra::platform::resourceLibraryCandidates("/d/", {"en", ""}, "tabraRes.rc");
    EXPECT_EQ(unknown[0], "/d/en/tabraRes.rc");
    EXPECT_EQ(unknown[1], "/d//tabraRes.rc");
    EXPECT_EQ(unknown[2], "/d/en/tabraRes.rc");
}

TEST(ResourceLibraryCandidates, DirectoryOfTheModuleKeepsItsSlash) {
    EXPECT_EQ(tabra::platform::directoryOfModulePath("/usr/lib/x86_64-linux-gnu/libtabra.so.0"),
              "/usr/lib/x86_64-linux-gnu/");
    EXPECT_EQ(tabra::platform::directoryOfModulePath("/libtabra.so"), "/");
    EXPECT_EQ(tabra::platform::directoryOfModulePath("libtabra.so"), "libtabra.so");
}

TEST(ResourceLibraryLoader, TakesTheFirstFolderThatHoldsTheFile) {
    struct Case {
        LanguageEnvironment environment;
        std::vector<std::string> folders; // each holds a library whose string 1 is its name
        const char *loaded;
    };
    const Case cases[] = {
        {zul("de"), {"de", "en"}, "de"},
        {zul("fr-FR"), {"fr"}, "fr"}, // the short name after the locale name
        {posix(std::nullopt, std::nullopt, "fr_CA.UTF-8"), {"fr", "fr-CA", "en"}, "fr-CA"},
        {zul("xx-YY"), {"en", ""}, "en"}, // unknown: English, then the directory itself
        {zul("xx-YY"), {"", "de"}, ""},
    };
    for (const Case &c : cases) {
        TemporaryDirectory tree;
        for (const auto &folder : c.folders)
            tree.write(folder.empty() ? "tabraRes.rc" : folder + "/tabraRes.rc", scriptWithString(1, folder.empty() ? "directory" : folder));
        RecordedLoad recorded = loadFrom(tree, chooseLanguageNames(c.environment));
        LoadedLibrary library(recorded.load.module);
        std::string expected = *c.loaded ? c.loaded : "directory";
        EXPECT_EQ(marker(recorded.load.module), std::u16string(expected.begin(), expected.end()));
        EXPECT_EQ(recorded.load.path, tree.directory() + (*c.loaded ? expected + "/" : std::string("/")) + "tabraRes.rc");
        EXPECT_TRUE(recorded.reports.empty());
    }
}

TEST(ResourceLibraryLoader, NothingThereReportsTheEnglishPathOnceAndGivesNoLibrary) {
    TemporaryDirectory tree;
    tree.write("de/other.rc", scriptWithString(1, "de"));
    RecordedLoad recorded = loadFrom(tree, chooseLanguageNames(zul("de")));
    EXPECT_EQ(recorded.load.module, nullptr);
    EXPECT_TRUE(recorded.load.path.empty());
    ASSERT_EQ(recorded.reports.size(), 1u);
    EXPECT_EQ(recorded.reports[0], tree.directory() + "en/tabraRes.rc");
}

TEST(ResourceLibraryLoader, AFaultyFileIsNotPassedOverForTheNextFolder) {
    TemporaryDirectory tree;
    tree.write("de/tabraRes.rc", "STRINGTABLE\nBEGIN\n  1, \"x\", MB_MAYBE\nEND\n");
    tree.write("en/tabraRes.rc", scriptWithString(1, "en"));
    RecordedLoad recorded = loadFrom(tree, chooseLanguageNames(zul("de")));
    EXPECT_EQ(recorded.load.module, nullptr);
    EXPECT_EQ(recorded.load.path, tree.directory() + "de/tabraRes.rc");
    EXPECT_TRUE(recorded.reports.empty()) << "a faulty file is not reported as missing";
}

TEST(ResourceLibraryLoader, ProcessLoaderReadsTheEnvironmentAndTheDirectoryOverride) {
    TemporaryDirectory tree;
    tree.write("de/tabraRes.rc", scriptWithString(1, "de"));
    tree.write("en/tabraRes.rc", scriptWithString(1, "en"));
    tabra::test::ScopedEnvironmentVariable directory("TABRA_RESOURCE_DIR", tree.path().c_str()); // no trailing slash
    tabra::test::ScopedEnvironmentVariable all("LC_ALL", "C.UTF-8");
    for (const auto &[zul, loaded] : {std::pair{"de", u"de"}, std::pair{static_cast<const char *>(nullptr), u"en"}}) {
        tabra::test::ScopedEnvironmentVariable language("ZUL_LANGUAGE", zul);
        ResourceLibraryLoad load = tabra::platform::loadResourceLibrary("tabraRes.rc", tabra::platform::ownLibraryImage());
        LoadedLibrary library(load.module);
        EXPECT_EQ(marker(load.module), loaded) << (zul ? zul : "no ZUL_LANGUAGE");
    }
}

TEST(ResourceLibraryLoader, WithoutOverrideTheFoldersAreBesideTheLibrary) {
    tabra::test::ScopedEnvironmentVariable directory("TABRA_RESOURCE_DIR", nullptr);
    const tabra::platform::LibraryImage *image = tabra::platform::libraryImageOf(tabra::platform::ownLibraryImage());
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->path.front(), '/') << image->path;
    EXPECT_EQ(access(image->path.c_str(), F_OK), 0) << image->path;
    EXPECT_EQ(tabra::platform::resourceDirectoryFor(tabra::platform::ownLibraryImage()),
              tabra::platform::directoryOfModulePath(image->path));
    EXPECT_EQ(tabra::platform::libraryImageOf(nullptr), nullptr);
}
