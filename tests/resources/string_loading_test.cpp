// Strings out of resource libraries: LoadStringW's bounds, the translated loader
// every part of the library uses, and translation tables.
#include "core/module/module_state.h"
#include "ostrel_lts.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_file.h"
#include "platform/resources/translation_table.h"
#include "resource_test_support.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

#include <memory>

using tabra::module::LoadTranslatedString;
using tabra::test::ScopedTranslation;
using tabra::test::TemporaryDirectory;

namespace {

// A resource library of strings made in memory.
class MemoryLibrary : public tabra::test::ScopedResourceLibrary {
public:
    explicit MemoryLibrary(std::initializer_list<std::pair<const int32_t, std::u16string>> strings)
        : ScopedResourceLibrary(tablesOf(strings)) {}

private:
    static tabra::platform::ResourceTables tablesOf(std::initializer_list<std::pair<const int32_t, std::u16string>> strings) {
        tabra::platform::ResourceTables tables;
        for (const auto &[id, text] : strings) tables.strings[id].text = text;
        return tables;
    }
};

} // namespace

TEST(LoadStringW, CopiesWithinTheBufferAndAnswersTheLength) {
    MemoryLibrary library({{1600, u"Hello"}, {1601, u"ab\U0001F600"}});
    char16_t buffer[16];
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, 16), 5);
    EXPECT_EQ(std::u16string(buffer), u"Hello");
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, 6), 5) << "exact fit";
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, 4), 3);
    EXPECT_EQ(std::u16string(buffer), u"Hel");
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, 1), 0);
    EXPECT_EQ(buffer[0], u'\0');
    // A cut never leaves half of a surrogate pair.
    EXPECT_EQ(LoadStringW(library.handle(), 1601, buffer, 4), 2);
    EXPECT_EQ(std::u16string(buffer), u"ab");
}

TEST(LoadStringW, MissingStringsModulesAndBuffersGiveZero) {
    MemoryLibrary library({{1600, u"Hello"}});
    char16_t buffer[8] = u"junk";
    EXPECT_EQ(LoadStringW(library.handle(), 1601, buffer, 8), 0);
    EXPECT_EQ(buffer[0], u'\0');
    EXPECT_EQ(LoadStringW(nullptr, 1600, buffer, 8), 0);
    EXPECT_EQ(LoadStringW(library.handle(), 1600, nullptr, 8), 0);
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, 0), 0);
    EXPECT_EQ(LoadStringW(library.handle(), 1600, buffer, -3), 0);
    int anything = 0;
    EXPECT_EQ(LoadStringW(&anything, 1600, buffer, 8), 0) << "a handle that is no resource library";
}

TEST(LoadStringW, FreedLibrariesAreNoLongerRead) {
    auto module = std::make_unique<tabra::platform::ResourceModule>();
    module->tables.strings.emplace(1, tabra::platform::StringEntry{std::u16string(1, u'x'), 0});
    HMODULE handle = tabra::platform::adoptResourceModule(std::move(module));
    EXPECT_EQ(Ostrel_FreeResourceLibrary(handle), 1);
    char16_t buffer[8];
    EXPECT_EQ(LoadStringW(handle, 1, buffer, 8), 0);
    EXPECT_EQ(Ostrel_FreeResourceLibrary(handle), 0) << "freed twice";
    EXPECT_EQ(Ostrel_FreeResourceLibrary(nullptr), 0);
}

TEST(LoadTranslatedString, RefusesBadBuffersAndMissingOrEmptyStrings) {
    MemoryLibrary library({{1600, u"Not enough memory"}, {1601, u""}});
    char16_t buffer[32];
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1600, nullptr, 32), 0);
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1600, buffer, 0), 0);
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1600, buffer, -1), 0);
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1699, buffer, 32), 0);
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1601, buffer, 32), 0);
    EXPECT_EQ(LoadTranslatedString(nullptr, 1600, buffer, 32), 0) << "no resource library loaded";
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1600, buffer, 32), 17);
    EXPECT_EQ(std::u16string(buffer), u"Not enough memory");
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1600, buffer, 4), 3);
}

TEST(LoadTranslatedString, TheTranslationTableReplacesTheLoadedText) {
    MemoryLibrary library({{2900, u"Tabra"}, {1607, u"No data source is chosen."}, {1, u"Yes"}});
    ScopedTranslation translation(tabra::module::kTranslationModuleName,
                                  "// house style\n\"No data source is chosen.\" = \"Bitte zuerst eine Datenquelle wählen.\"\n"
                                  "\"Yes\" = \"Jawohl, sofort\"\n");
    ASSERT_TRUE(translation.registered());
    char16_t buffer[64];
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1607, buffer, 64), 37);
    EXPECT_EQ(std::u16string(buffer), u"Bitte zuerst eine Datenquelle wählen.");
    // A replacement longer than the buffer is cut like any text.
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1, buffer, 8), 7);
    EXPECT_EQ(std::u16string(buffer), u"Jawohl,");
    // The table sees the text as loaded: one cut short by the buffer is not found.
    EXPECT_EQ(LoadTranslatedString(library.handle(), 1607, buffer, 7), 6);
    EXPECT_EQ(std::u16string(buffer), u"No dat");
    // Texts the table does not know stay.
    EXPECT_EQ(LoadTranslatedString(library.handle(), 2900, buffer, 64), 5);
    EXPECT_EQ(std::u16string(buffer), u"Tabra");
}

TEST(LtsTranslateString, LeavesTextsWithoutTableAndRefusesBadBuffers) {
    char16_t text[16] = u"Cancel";
    EXPECT_EQ(LTS_TranslateString(u"NOSUCHMODULE", 0, text, 16), 6);
    EXPECT_EQ(std::u16string(text), u"Cancel");
    EXPECT_EQ(LTS_TranslateString(nullptr, 0, text, 16), 6);
    EXPECT_EQ(LTS_TranslateString(u"TABRADLL", 0, nullptr, 16), -1);
    EXPECT_EQ(LTS_TranslateString(u"TABRADLL", 0, text, 0), -1);
    // A buffer without a terminator counts up to its capacity - 1.
    char16_t unterminated[3] = {u'a', u'b', u'c'};
    EXPECT_EQ(LTS_TranslateString(u"NOSUCHMODULE", 0, unterminated, 3), 2);
}

TEST(LtsTranslateString, TranslatesForTheNamedModuleOnly) {
    ScopedTranslation translation(u"WIZZARD", "\"Cancel\" = \"Abbrechen\"\n\"Line\\none\" = \"Zeile\\neins\"\n");
    ASSERT_TRUE(translation.registered());
    char16_t text[16] = u"Cancel";
    EXPECT_EQ(LTS_TranslateString(u"TABRADLL", 0, text, 16), 6);
    EXPECT_EQ(LTS_TranslateString(u"WIZZARD", 0, text, 16), 9);
    EXPECT_EQ(std::u16string(text), u"Abbrechen");
    char16_t lines[16] = u"Line\none";
    EXPECT_EQ(LTS_TranslateString(u"WIZZARD", 0, lines, 16), 10);
    EXPECT_EQ(std::u16string(lines), u"Zeile\neins");
    char16_t partial[16] = u"Cancel it";
    EXPECT_EQ(LTS_TranslateString(u"WIZZARD", 0, partial, 16), 9) << "only whole texts match";
}

TEST(TranslationTable, FaultyTablesAreRefusedWithFileAndLine) {
    struct Case {
        const char *table;
        const char *where;
        const char *message;
    };
    for (const Case &c : {Case{"\"a\" = \"b\"\n\"c\" \"d\"\n", "t.lts:2: ", "expected \"=\""},
                          Case{"\"a\" = \"b\"\n\n\"a\" = \"c\"\n", "t.lts:3: ", "translated twice"},
                          Case{"\"\" = \"b\"\n", "t.lts:1: ", "empty text"},
                          Case{"Cancel = \"b\"\n", "t.lts:1: ", "expected the original text"},
                          Case{"\"a\" = b\n", "t.lts:1: ", "expected the replacement"},
                          Case{"\"a\" = \"b\n", "t.lts:1: ", "string is not closed"},
                          Case{"\"a\" =\n", "t.lts:2: ", "expected the replacement"}}) {
        auto parsed = tabra::platform::parseTranslationTable(c.table, "t.lts");
        EXPECT_FALSE(parsed.table.has_value()) << c.table;
        EXPECT_EQ(parsed.error.rfind(c.where, 0), 0u) << parsed.error;
        EXPECT_NE(parsed.error.find(c.message), std::string::npos) << parsed.error;
    }
    auto empty = tabra::platform::parseTranslationTable("// nothing yet\n", "t.lts");
    ASSERT_TRUE(empty.table.has_value());
    EXPECT_TRUE(empty.table->empty());
}

TEST(TranslationTable, AFaultyFileLeavesTheModuleUntranslated) {
    ScopedTranslation translation(u"BROKEN", "\"Cancel\" = \"Abbrechen\"\n\"OK\" = \n");
    EXPECT_FALSE(translation.registered());
    char16_t text[16] = u"Cancel";
    EXPECT_EQ(LTS_TranslateString(u"BROKEN", 0, text, 16), 6);
    EXPECT_EQ(std::u16string(text), u"Cancel");
}

TEST(ResourceLibraryFiles, LoadFromAPathAndRefuseFaultyOrMissingFiles) {
    TemporaryDirectory tree;
    auto good = tree.write("good.rc", tabra::test::scriptWithString(7, "seven"));
    auto bad = tree.write("bad.rc", "STRINGTABLE\nBEGIN\n  7, \"seven\"\n");
    std::string goodName = good.string(), badName = bad.string();
    std::u16string goodPath(goodName.begin(), goodName.end()), badPath(badName.begin(), badName.end());

    HMODULE module = Ostrel_LoadResourceLibrary(goodPath.c_str());
    ASSERT_NE(module, nullptr);
    char16_t buffer[16];
    EXPECT_EQ(LoadStringW(module, 7, buffer, 16), 5);
    EXPECT_EQ(Ostrel_FreeResourceLibrary(module), 1);

    EXPECT_EQ(Ostrel_LoadResourceLibrary(badPath.c_str()), nullptr);
    EXPECT_EQ(Ostrel_LoadResourceLibrary(u"/nonexistent/tabraRes.rc"), nullptr);
    EXPECT_EQ(Ostrel_LoadResourceLibrary(nullptr), nullptr);
    EXPECT_EQ(Ostrel_LoadResourceLibrary(u""), nullptr);
}

// A library is its main script with the family scripts beside it ("<stem>-*.rc"), read
// in name order; other files beside it are not part of it.
TEST(ResourceLibraryFiles, FamilyScriptsBesideTheMainOneBelongToIt) {
    TemporaryDirectory tree;
    auto main = tree.write("de/tabraRes.rc", tabra::test::scriptWithString(1, "main"));
    tree.write("de/tabraRes-query.rc", tabra::test::scriptWithString(2, "query"));
    tree.write("de/tabraRes-catalog.rc", tabra::test::scriptWithString(3, "catalog"));
    for (const char *stranger : {"de/other.rc", "de/tabraResX.rc", "de/tabraRes-.rc", "de/tabraRes-old.rc.bak", "tabraRes-up.rc"})
        tree.write(stranger, tabra::test::scriptWithString(1, "stranger"));
    std::string folder = main.parent_path().string() + "/";
    EXPECT_EQ(tabra::platform::resourceScriptsOf(main.string()),
              (std::vector<std::string>{main.string(), folder + "tabraRes-catalog.rc", folder + "tabraRes-query.rc"}));
    HMODULE module = Ostrel_LoadResourceLibrary(tabra::test::toUtf16(main.string()).c_str());
    ASSERT_NE(module, nullptr) << "strangers would define string 1 again";
    char16_t buffer[16];
    for (auto [id, text] : {std::pair{1, u"main"}, {2, u"query"}, {3, u"catalog"}}) {
        LoadStringW(module, static_cast<uint32_t>(id), buffer, 16);
        EXPECT_EQ(std::u16string(buffer), text);
    }
    Ostrel_FreeResourceLibrary(module);
}

TEST(ResourceLibraryFiles, AnIdDefinedInTwoScriptsNamesBothPlaces) {
    using tabra::test::scriptWithString;
    TemporaryDirectory tree;
    tree.write("tabraRes.rc", "10 DIALOG 0, 0, 9, 9\nBEGIN\nEND\n" + scriptWithString(5, "a"));
    tree.write("tabraRes-a.rc", "\n" + scriptWithString(6, "b"));
    struct Case {
        std::string script, error;
    };
    const Case cases[] = {
        {"\n\n" + scriptWithString(5, "c"), "tabraRes-b.rc:5: duplicate string id 5, already defined at tabraRes.rc:6"},
        {"10 DIALOGEX 0, 0, 9, 9\nBEGIN\nEND\n", "tabraRes-b.rc:1: duplicate dialog id 10, already defined at tabraRes.rc:1"},
        {"\n" + scriptWithString(6, "c"), "tabraRes-b.rc:4: duplicate string id 6, already defined at tabraRes-a.rc:4"},
    };
    for (const Case &c : cases) {
        tree.write("tabraRes-b.rc", c.script);
        std::string error;
        EXPECT_EQ(tabra::platform::readResourceLibrary(tree.directory() + "tabraRes.rc", error), nullptr);
        std::string expected = c.error;
        expected.insert(expected.find("already defined at ") + 19, tree.directory());
        EXPECT_EQ(error, tree.directory() + expected);
    }
}
