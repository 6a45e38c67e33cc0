// The table administration on the classic databases, told by the test driver's DBMS
// names: the statements each one gets (the hook declines them, so they only have to be
// right) and the refusals before anything runs.
#include "admin/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "admin_test_support.h"
#include "catalog/column_types.h"
#include "tabra.h"

namespace tabra::test {
namespace {

namespace ids = admin::table_admin::ids;
using ids::kAddAutoIncrementDialog;
using ids::kAddColumnDialog;
using ids::kTableAdminDialog;

// The type box entry of a row of the column type table.
std::string typeEntry(int32_t tabraDataType) {
    return "#" + std::to_string(catalog::findColumnType(tabraDataType) - catalog::kColumnTypes.data());
}

// Add column dialog lines: name, length (while the first type shows it), type, OK.
std::vector<std::string> addColumn(const char *name, int32_t type, const char *length) {
    return {click(kTableAdminDialog.id, kTableAdminDialog.addColumn),
            onDialog(kAddColumnDialog.id, "set", kAddColumnDialog.name, std::string("\"") + name + "\""),
            onDialog(kAddColumnDialog.id, "set", kAddColumnDialog.length, std::string("\"") + length + "\""),
            onDialog(kAddColumnDialog.id, "select", kAddColumnDialog.type, typeEntry(type)),
            click(kAddColumnDialog.id, IDOK)};
}

const std::vector<std::string> kAddAutoIncrement = {
    click(kTableAdminDialog.id, kTableAdminDialog.addAutoIncrement),
    onDialog(kAddAutoIncrementDialog.id, "set", kAddAutoIncrementDialog.name, "\"Nr\""),
    click(kAddAutoIncrementDialog.id, IDOK)};
const std::vector<std::string> kDropKey = {click(kTableAdminDialog.id, kTableAdminDialog.dropPrimaryKey),
                                           answer(admin::ids::kMessage.confirmDropPrimaryKey, "yes")};

struct Case {
    const char *what;
    Attributes source;
    std::vector<std::string> script;
    const char16_t *statement; // the change statement, without quotes; null: none
    int32_t message = 0;       // the refusal shown (answered OK)
    int32_t cancelled = 0;     // the sub-dialog that stays open after it, then cancelled
};

const std::string kSqlServer = "Microsoft SQL Server", kAccess = "ACCESS";

const std::vector<Case> kCases = {
    {"SQL Server: a text column with the suffix", {{"DBMSName", kSqlServer}}, addColumn("Notes", TdtVarText, "80"),
     u"ALTER TABLE t ADD Notes VARCHAR (80) NOT NULL DEFAULT ''"},
    {"Access: the same column without a suffix", {{"DBMSName", kAccess}}, addColumn("Notes", TdtVarText, "80"),
     u"ALTER TABLE t ADD Notes VARCHAR (80)"},
    {"a date column ignores the length", {{"DBMSName", kSqlServer}}, addColumn("Seen", TdtDateTime, "0"),
     u"ALTER TABLE t ADD Seen DATETIME NOT NULL DEFAULT ''"},
    {"a CHAR column of length 0", {{"DBMSName", kSqlServer}}, addColumn("Code", TdtText, "0"), nullptr,
     ids::kMessage.lengthMissing, kAddColumnDialog.id},
    {"a column that exists", {{"DBMSName", kSqlServer}}, addColumn("NAME", TdtInteger, "0"), nullptr,
     ids::kMessage.columnExists, kAddColumnDialog.id},
    {"SQL Server: an identity column", {{"DBMSName", kSqlServer}}, kAddAutoIncrement,
     u"ALTER TABLE t ADD Nr INTEGER NOT NULL IDENTITY PRIMARY KEY"},
    {"Excel: no auto-increment column", {{"DBMSName", "EXCEL"}}, {kAddAutoIncrement[0]}, nullptr,
     core::ids::kMessage.notPossibleHere},
    {"an unknown database: no auto-increment column", {{"DBMSName", "Some Base"}}, {kAddAutoIncrement[0]}, nullptr,
     core::ids::kMessage.notPossibleHere},
    {"SQL Server: the key dropped by its constraint's name", {{"DBMSName", kSqlServer}, {"PrimaryKeyName", "PK_t"}},
     kDropKey, u"ALTER TABLE t DROP PK_t"},
    {"Access: the key cannot be dropped", {{"DBMSName", kAccess}}, {click(kTableAdminDialog.id, kTableAdminDialog.dropPrimaryKey)},
     nullptr, ids::kMessage.keyCannotBeDropped},
};

class TableAdminTestDriverTest : public TestDriverTest {};

TEST_F(TableAdminTestDriverTest, EachClassicDatabaseGetsItsStatementOrItsRefusal) {
    for (const Case &c : kCases) {
        SCOPED_TRACE(c.what);
        PrivateDataSources::instance().freshSqliteDatabase();
        auto connection = connect(addDataSource(c.source));
        executeAll(connection, {u"CREATE TABLE t (id INTEGER PRIMARY KEY, name VARCHAR(20))"});
        ScriptedRun run;
        for (const std::string &line : c.script) run.queue(line);
        if (c.message != 0) run.queue(answer(c.message, "ok"));
        if (c.cancelled != 0) run.queue(click(c.cancelled, IDCANCEL));
        run.queue(click(kTableAdminDialog.id, IDOK));
        RecordingHook hook(false);
        EXPECT_EQ(Tabra_TableAdmin(connection.handle(), u"t", 0), 0);
        expectPlayed(run);

        std::vector<std::u16string> changes;
        for (const std::u16string &statement : hook.statements)
            if (statement.starts_with(u"ALTER")) changes.push_back(unquoted(statement));
        EXPECT_EQ(changes, c.statement ? std::vector<std::u16string>{c.statement} : std::vector<std::u16string>{});
        EXPECT_EQ(queryValue(connection, u"SELECT Count(*) FROM pragma_table_info('t')"), u"2") << "nothing ran";
    }
}

} // namespace
} // namespace tabra::test
