// The export wizard played through the public script interface on every backend:
// every page with its refusals, the field dialog and the context menu, the registry's
// file name, and the file it writes, byte for byte.
#include "export_test_support.h"
#include "support/scoped_environment.h"
#include "tabra_wizards.h"
#include "wizards/resource_ids.h"

#include <cstring>

namespace tabra::test {
namespace {

using exportIds::kConditionPage;
using exportIds::kFieldDialog;
using exportIds::kFieldMenu;
using exportIds::kFieldsPage;
using exportIds::kFilePage;
using exportIds::kSummaryPage;
using exportIds::kTablePage;
namespace shared = tabra::wizards::ids;

class ExportWizardTest : public ExportBackendTest {
protected:
    std::u16string registeredFileName() const {
        return registryText(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra", u"Export", u"FileName");
    }
    int32_t runWizard(DbObjectInfo &object) { return Tabra_ExportWizzard(connection_->handle(), &object, 7); }

    ScopedRegistryRoot registry_;
};

DbObjectInfo tablesAndViews(std::u16string_view table = u"") {
    DbObjectInfo object{};
    table.copy(object.DbObjectName, table.size());
    object.DbObjectType = TABRA_OBJECT_TABLE | TABRA_OBJECT_VIEW;
    std::fill(std::begin(object.Reserved), std::end(object.Reserved), 0x5A);
    return object;
}

// A text as the script writes it.
std::string inQuotes(const std::u16string &text) { return tabra::test::quoted(std::u16string_view(text)); }

std::size_t shown(const ScriptedRun &run, int32_t message) {
    return run.records(TABRA_RECORD_MESSAGE, message).size();
}

TEST_P(ExportWizardTest, EveryPageWithItsRefusalsAndTheFileByteForByte) {
    const std::string file = toUtf8(scratch_.file("out.txt"));
    ScriptedRun run;
    for (const std::string &line : std::vector<std::string>{
             onDialog(kTablePage.id, "select", kTablePage.tables, "\"people\""), next(kTablePage.id),
             // The note is not written; the name gets a heading with a blank, after an
             // empty one was refused.
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#2"), chooseMenu(kFieldMenu.notExported),
             onDialog(kFieldsPage.id, "doubleclick", kFieldsPage.fields, "#1"),
             onDialog(kFieldDialog.id, "set", kFieldDialog.heading, "\"\""), click(kFieldDialog.id, IDOK),
             answer(exportIds::kMessage.emptyHeading, "ok"),
             onDialog(kFieldDialog.id, "set", kFieldDialog.heading, "\"Full name\""), click(kFieldDialog.id, IDOK),
             // Nothing written at all is refused; then all but the note are written again
             // (a right click keeps a selection it falls into).
             onDialog(kFieldsPage.id, "select", kFieldsPage.fields, "#0 #1 #2 #3 #4"),
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#0"), chooseMenu(kFieldMenu.notExported),
             next(kFieldsPage.id), answer(exportIds::kMessage.noFieldChosen, "ok"),
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#4"), chooseMenu(kFieldMenu.exported),
             onDialog(kFieldsPage.id, "select", kFieldsPage.fields, "#2"),
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#2"), chooseMenu(kFieldMenu.notExported),
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#3"), chooseMenu(kFieldMenu.edit),
             click(kFieldDialog.id, IDOK), next(kFieldsPage.id),
             // A condition that selects nothing is refused.
             onDialog(kConditionPage.id, "select", kConditionPage.column1, "\"id\""),
             onDialog(kConditionPage.id, "select", kConditionPage.operator1, "\"is greater than\""),
             onDialog(kConditionPage.id, "set", kConditionPage.value1, "\"100\""), next(kConditionPage.id),
             answer(shared::kMessage.noMatchingRows, "ok"),
             onDialog(kConditionPage.id, "set", kConditionPage.value1, "\"0\""), next(kConditionPage.id),
             // An empty file name is refused; then the format.
             onDialog(kFilePage.id, "set", kFilePage.fileName, "\"\""), next(kFilePage.id),
             answer(exportIds::kMessage.noFileName, "ok"),
             onDialog(kFilePage.id, "set", kFilePage.fileName, "\"draft.txt\""), click(kFilePage.id, kFilePage.browse),
             "file: choose " + inQuotes(toUtf16(file)),
             onDialog(kFilePage.id, "check", kFilePage.separatorOwn),
             onDialog(kFilePage.id, "set", kFilePage.ownSeparator, "\"|\""),
             onDialog(kFilePage.id, "check", kFilePage.decimalOwn),
             onDialog(kFilePage.id, "set", kFilePage.ownDecimal, "\"_\""),
             onDialog(kFilePage.id, "set", kFilePage.leadingDelimiter, "\"\\\"\""),
             onDialog(kFilePage.id, "set", kFilePage.trailingDelimiter, "\"\\\"\""), next(kFilePage.id),
             onDialog(kSummaryPage.id, "expect", kSummaryPage.text,
                      "\"3 records will be exported.\\n\\nClick Finish to write the file. You may stop the export "
                      "while it runs; the records written so far are kept.\""),
             finish(kSummaryPage.id)})
        run.queue(line);
    DbObjectInfo object = tablesAndViews();
    DbObjectInfo before = object;
    EXPECT_EQ(runWizard(object), 1);
    expectPlayed(run);
    for (int32_t message : {exportIds::kMessage.emptyHeading, exportIds::kMessage.noFieldChosen,
                            shared::kMessage.noMatchingRows, exportIds::kMessage.noFileName})
        EXPECT_EQ(shown(run, message), 1u) << message;
    auto browsed = run.records(TABRA_RECORD_FILE_DIALOG);
    ASSERT_EQ(browsed.size(), 1u);
    EXPECT_EQ(browsed[0].text, u"draft.txt") << "the typed name is proposed";
    EXPECT_EQ(std::u16string(object.DbObjectName), u"people") << "the chosen table comes back";
    EXPECT_EQ(object.DbObjectType, before.DbObjectType);
    EXPECT_TRUE(std::equal(std::begin(object.Reserved), std::end(object.Reserved), std::begin(before.Reserved)));
    EXPECT_EQ(fileBytes(toUtf16(file)),
              utf16le(u"\"id\"|\"Full name\"|\"amount\"|\"born\"\r\n"
                      u"\"1\"|\"M\u00fcller; \"Ann\"\"|\"12_5\"|\"1999-12-31\"\r\n"
                      u"\"2\"|||\r\n"
                      u"\"3\"|\"" + wideText() + u"\"|\"-3_25\"|\"2024-02-29\"\r\n"));
    EXPECT_EQ(registeredFileName(), toUtf16(file));
    auto progress = run.records(TABRA_RECORD_PROGRESS);
    ASSERT_EQ(progress.size(), 1u);
    EXPECT_EQ(progress[0].value, 3) << "the indicator ends at the last row";
}

// The table page refuses an empty choice; cancelling leaves the record untouched and
// writes nothing.
TEST_P(ExportWizardTest, NoTableToChooseAndCancel) {
    ScriptedRun run;
    run.queue(next(kTablePage.id));
    run.queue(answer(shared::kMessage.nothingChosen, "ok"));
    run.queue(click(kTablePage.id, IDCANCEL));
    DbObjectInfo object = tablesAndViews(u"people");
    object.DbObjectType = TABRA_OBJECT_VIEW; // there are no views
    DbObjectInfo before = object;
    EXPECT_EQ(runWizard(object), 2);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(shown(run, shared::kMessage.nothingChosen), 1u);
    EXPECT_EQ(std::memcmp(&object, &before, sizeof object), 0);
    EXPECT_TRUE(scratch_.entries().empty());
    EXPECT_EQ(Tabra_ExportWizzard(connection_->handle(), nullptr, 0), 2) << "the record must be given";
}

// Choosing the same table again (in another letter case where the database tells the
// names apart) keeps the edited headings and choices; the file name comes from the
// registry with the table's name in the folder of the last file.
TEST_P(ExportWizardTest, TheSameTableAgainKeepsTheFieldsAndTheFolderIsRemembered) {
    // Only PostgreSQL keeps two tables whose names differ in case apart in its column
    // catalog (SQLite refuses the second, MariaDB lists both tables' columns for either
    // name): elsewhere the same name is chosen again.
    const std::u16string again = backend() == Backend::PostgreSQL ? u"PEOPLE" : u"people";
    // The second table holds the same rows: which of the two a name reaches in the
    // SELECT is the identifier rules' business, not the wizard's.
    if (again != u"people")
        executeAll(*connection_, {u"CREATE TABLE " + quoted(backend(), again) + u" AS SELECT * FROM people"});
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, u"Software\\Ostrel Software\\Tabra", 0, u"Export", u"FileName",
                                 scratch_.file("old.txt").c_str());
    const std::string expectedFile = toUtf8(scratch_.file(toUtf8(again) + ".txt"));
    ScriptedRun run;
    for (const std::string &line : std::vector<std::string>{
             onDialog(kTablePage.id, "select", kTablePage.tables, "\"people\""), next(kTablePage.id),
             onDialog(kFieldsPage.id, "select", kFieldsPage.fields, "#1"), click(kFieldsPage.id, kFieldsPage.edit),
             onDialog(kFieldDialog.id, "set", kFieldDialog.heading, "\"Kept heading\""), click(kFieldDialog.id, IDOK),
             onDialog(kFieldsPage.id, "rightclick", kFieldsPage.fields, "#2"), chooseMenu(kFieldMenu.notExported),
             back(kFieldsPage.id), onDialog(kTablePage.id, "select", kTablePage.tables, inQuotes(again)),
             next(kTablePage.id), next(kFieldsPage.id), next(kConditionPage.id),
             onDialog(kFilePage.id, "expect", kFilePage.fileName, inQuotes(toUtf16(expectedFile))),
             onDialog(kFilePage.id, "uncheck", kFilePage.headerLine), next(kFilePage.id), back(kSummaryPage.id),
             onDialog(kFilePage.id, "check", kFilePage.headerLine), next(kFilePage.id), finish(kSummaryPage.id)})
        run.queue(line);
    DbObjectInfo object = tablesAndViews();
    EXPECT_EQ(runWizard(object), 1);
    EXPECT_FALSE(run.failed());
    std::u16string rows = u"1\tM\u00fcller; \"Ann\"\t12,5\t1999-12-31\r\n2\t\t\t\r\n3\t" + wideText() +
                          u"\t-3,25\t2024-02-29\r\n";
    EXPECT_EQ(fileBytes(toUtf16(expectedFile)), utf16le(u"id\tKept heading\tamount\tborn\r\n" + rows));
    EXPECT_EQ(std::u16string(object.DbObjectName), again);
}

TABRA_INSTANTIATE_BACKEND_TEST(ExportWizardTest);

} // namespace
} // namespace tabra::test
