// The import wizard played through the public script interface on every backend.
#include "import_test_support.h"

namespace tabra::test {
namespace {

class ImportWizardTest : public ImportTest {};

TEST_P(ImportWizardTest, TextFileSmoke) {
    auto file = writeFile("people.txt", utf16le(u"id;name;amount\r\n1;O'Neil;12,5\r\n2;Müller;-3\r\n"));
    std::u16string table;
    ScriptedRun run;
    int32_t result = play(fileSource(ids::kSourceKindPage.textFile, ids::kTextFilePage.id, file) +
                              std::vector<std::string>{check(ids::kTextFilePage.id, ids::kTextFilePage.separatorOwn),
                                                       set(ids::kTextFilePage.id, ids::kTextFilePage.ownSeparator, u";"),
                                                       next(ids::kTextFilePage.id)} +
                              columnType(2, "Number") + intoTable(u"people"),
                          run, &table);
    EXPECT_EQ(result, 1) << run.report();
    EXPECT_EQ(table, u"people");
    EXPECT_EQ(rows(u"SELECT id, name, amount FROM people ORDER BY id"),
              (std::vector<Row>{row({u"1", u"O'Neil", u"12.5"}), row({u"2", u"Müller", u"-3"})}));
}

TABRA_INSTANTIATE_BACKEND_TEST(ImportWizardTest);

} // namespace
} // namespace tabra::test
