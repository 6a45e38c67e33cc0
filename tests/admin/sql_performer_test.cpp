// The SQL performer and its SQL help, driven through the scripted driver: statements
// on every backend, the strict success rule, the history in the registry, and the
// record variant's connection per run.
#include "admin/sql_performer/resource_ids.h"
#include "catalog/catalog_test_support.h"
#include "ostrel.h"
#include "support/box_contents.h"
#include "support/data_source_record.h"
#include "support/scoped_environment.h"
#include "tabra_admin.h"

#include <cstdio>

namespace tabra::test {
namespace {

using admin::sql_performer::ids::kConnectionPerformerDialog;
using admin::sql_performer::ids::kRecordPerformerDialog;
using admin::sql_performer::ids::kSqlHelpDialog;
using core::ids::kErrorDialog;
constexpr auto &kPerformer = kConnectionPerformerDialog;
constexpr int32_t kNotice = admin::sql_performer::ids::kString.statementRun;
constexpr char16_t kHistoryKey[] = u"Software\\Ostrel Software\\Tabra\\SqlPerformer\\Recent";

std::u16string entryName(int number) {
    char name[16];
    std::snprintf(name, sizeof name, "E%03d", number);
    return toUtf16(name);
}

// The history as the registry holds it: "Total" entries "E001", ...
std::vector<std::u16string> storedHistory() {
    std::vector<std::u16string> entries;
    const int32_t total = Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr, u"Total", -1);
    for (int number = 1; number <= total; ++number) {
        entries.push_back(registryText(HKEY_CURRENT_USER, kHistoryKey, nullptr, entryName(number).c_str(), u"<none>"));
    }
    return entries;
}

// The script lines that type a statement into the performer and run it.
std::vector<std::string> runLines(std::u16string_view statement, int32_t dialog = kPerformer.id) {
    return {onDialog(dialog, "set", kPerformer.statement, test::quoted(statement)), click(dialog, kPerformer.run)};
}

void queueAll(const ScriptedRun &run, const std::vector<std::string> &lines) {
    for (const std::string &line : lines) run.queue(line);
}

class SqlPerformerTest : public BackendTest {
protected:
    ScopedRegistryRoot registry_;
};

TEST_P(SqlPerformerTest, RunsStatementsKeepsTheHistoryAndShowsFailures) {
    OdbcConnection connection = connect();
    const std::u16string create = u"CREATE TABLE perf_items (id INTEGER, name VARCHAR(20))";
    const std::u16string insert = u"INSERT INTO perf_items (id, name)\nVALUES (1, 'first')";
    const std::u16string failing = u"INSERT INTO perf_missing (id) VALUES (1)";
    ScriptedRun run;
    queueAll(run, runLines(create));
    queueAll(run, runLines(insert));
    queueAll(run, runLines(failing));
    run.queue(click(kErrorDialog.id, IDOK));
    // Picking an entry shows it decoded, line break included; running it again moves
    // it to the top.
    run.queue(onDialog(kPerformer.id, "select", kPerformer.history, "#1"));
    run.queue(onDialog(kPerformer.id, "expect", kPerformer.statement, test::quoted(insert)));
    run.queue(click(kPerformer.id, kPerformer.run));
    run.queue(click(kPerformer.id, IDCANCEL));
    EXPECT_EQ(Tabra_SqlPerformer(connection.handle()), IDCANCEL);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.pending(), 0);

    auto notices = run.records(TABRA_RECORD_NOTICE, kNotice);
    ASSERT_EQ(notices.size(), 3u);
    EXPECT_EQ(notices[0].style, module::kMessageWindowColour);
    EXPECT_EQ(notices[0].value, module::kMessageWindowTime);
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.statement), failing);
    EXPECT_EQ(queryValue(connection, u"SELECT COUNT(*) FROM perf_items"), u"2");
    const std::u16string encodedInsert = u"INSERT INTO perf_items (id, name)\\nVALUES (1, 'first')";
    EXPECT_EQ(storedHistory(), (std::vector<std::u16string>{encodedInsert, failing, create}));
}

TABRA_INSTANTIATE_BACKEND_TEST(SqlPerformerTest);

class SqlPerformerTestDriverTest : public TestDriverTest {
protected:
    ScopedRegistryRoot registry_;
};

// Only SQL_SUCCESS is confirmed by the notice; a warning, SQL_NO_DATA, a refused
// statement and a statement the user cancels at the statement hook are not.
TEST_F(SqlPerformerTestDriverTest, OnlyAPlainSuccessShowsTheNotice) {
    const std::u16string noData = addDataSource({{"NoRowsNoData", "1"}});
    const std::u16string refusing = addDataSource({{"FailPattern", "DROP"}});
    executeSql(connect(dsn::TestDriver), u"CREATE TABLE t (id INTEGER)");
    const struct {
        std::u16string_view dataSource, statement;
        bool notice, errorDialog, confirmed;
    } cases[] = {
        {dsn::TestDriver, u"INSERT INTO t VALUES (1)", true, false, false},
        {dsn::ExecInfo, u"INSERT INTO t VALUES (2)", false, true, false},
        // SQL_NO_DATA is a failure too; without a diagnostic record the error dialog has
        // nothing to show and closes at once.
        {noData, u"UPDATE t SET id = 3 WHERE id = 99", false, false, false},
        {noData, u"UPDATE t SET id = 3 WHERE id = 1", true, false, false},
        {refusing, u"DROP TABLE t", false, true, false},
        {dsn::TestDriver, u"DELETE FROM t", false, false, true}, // the user cancels it
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(toUtf8(c.statement));
        OdbcConnection connection = connect(c.dataSource);
        Ostrel_SetDumpState(c.confirmed ? OSTREL_DUMP_SHOW_STATEMENTS : 0);
        ScriptedRun run;
        queueAll(run, runLines(c.statement));
        if (c.confirmed) run.queue("message: answer cancel");
        if (c.errorDialog) run.queue(click(kErrorDialog.id, IDOK));
        // The template's one close button is Cancel; the command OK closes with 2 as well.
        run.queueCallback(kPerformer.id, [](HWND dialog, void *) { SendMessageW(dialog, WM_COMMAND, IDOK, 0); }, nullptr);
        EXPECT_EQ(Tabra_SqlPerformer(connection.handle()), IDCANCEL);
        Ostrel_SetDumpState(-1);
        EXPECT_EQ(run.records(TABRA_RECORD_NOTICE, kNotice).size(), c.notice ? 1u : 0u);
        EXPECT_EQ(run.records(TABRA_RECORD_DIALOG_OPENED, kErrorDialog.id).size(), c.errorDialog ? 1u : 0u);
        EXPECT_EQ(storedHistory().front(), c.statement); // in the history, whatever came of it
        EXPECT_EQ(testDriverStatementCounts().open(), 0);
    }
    EXPECT_EQ(queryValue(connect(dsn::TestDriver), u"SELECT COUNT(*) FROM t"), u"2");
}

TEST_F(SqlPerformerTestDriverTest, TheHistoryKeepsTheNewestTwentyAndClears) {
    OdbcConnection connection = connect(dsn::TestDriver);
    ScriptedRun run;
    for (int i = 1; i <= 21; ++i) queueAll(run, runLines(u"SELECT " + toUtf16(std::to_string(i))));
    queueAll(run, runLines(u" \n\t")); // blank: refused, the history unchanged
    run.queue(answer(core::ids::kMessage.noStatement, "ok"));
    run.queue(click(kPerformer.id, IDCANCEL));
    EXPECT_EQ(Tabra_SqlPerformer(connection.handle()), IDCANCEL);
    EXPECT_FALSE(run.failed());
    std::vector<std::u16string> history = storedHistory();
    ASSERT_EQ(history.size(), 20u);
    EXPECT_EQ(history.front(), u"SELECT 21");
    EXPECT_EQ(history.back(), u"SELECT 2");

    // A new dialog shows the stored history, newest selected, which Take puts into the
    // statement field with the focus; Clear empties the list and the registry.
    ScriptedRun again;
    again.queue(onDialog(kPerformer.id, "set", kPerformer.statement, "\"typed\""));
    again.queue(click(kPerformer.id, kPerformer.takeEntry));
    again.queue(onDialog(kPerformer.id, "expect", kPerformer.statement, "\"SELECT 21\""));
    again.queueCallback(kPerformer.id, [](HWND dialog, void *) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kPerformer.statement));
    }, nullptr);
    again.queue(click(kPerformer.id, kPerformer.clearHistory));
    again.queueCallback(kPerformer.id, [](HWND dialog, void *) {
        EXPECT_EQ(Ostrel_GetBoxCount(GetDlgItem(dialog, kPerformer.history)), 0);
    }, nullptr);
    again.queue(click(kPerformer.id, IDCANCEL));
    EXPECT_EQ(Tabra_SqlPerformer(connection.handle()), IDCANCEL);
    EXPECT_FALSE(again.failed());
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr, u"Total", -1), 0);
    EXPECT_TRUE(storedHistory().empty());
    EXPECT_EQ(registryText(HKEY_CURRENT_USER, kHistoryKey, nullptr, u"E001", u"<none>"), u"<none>");
}

// What a stored history loads as, also when it was written by hand or damaged.
TEST_F(SqlPerformerTestDriverTest, AStoredHistoryLoadsItsNonBlankEntries) {
    const struct {
        const char16_t *total; // a number, a text, or null for none
        std::vector<std::u16string> stored;
        std::vector<std::u16string> loaded;
    } cases[] = {
        {u"3", {u"a", u"", u"c"}, {u"a", u"c"}},
        {u"2", {u"a", u"b", u"c"}, {u"a", u"b"}},
        {u"2147483647", {u"a", u"b"}, {u"a", u"b"}},
        {u"-4", {u"a"}, {}},
        {u"many", {u"a"}, {}},
        {nullptr, {u"a"}, {}},
        {u"2", {u" \t", u"b"}, {u"b"}},
    };
    OdbcConnection connection = connect(dsn::TestDriver);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.total ? toUtf8(c.total) : "no Total");
        Ostrel_DeleteRegistryKey(HKEY_CURRENT_USER, kHistoryKey, nullptr);
        if (c.total) Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr, u"Total", c.total);
        for (size_t i = 0; i < c.stored.size(); ++i)
            Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, kHistoryKey, 0, nullptr,
                                         entryName(static_cast<int>(i) + 1).c_str(), c.stored[i].c_str());
        struct {
            std::vector<std::u16string> texts;
            int32_t selected = -2;
        } seen;
        ScriptedRun run;
        run.queueCallback(kPerformer.id, [](HWND dialog, void *context) {
            auto &into = *static_cast<decltype(seen) *>(context);
            for (const auto &[text, data] : boxEntries(GetDlgItem(dialog, kPerformer.history))) into.texts.push_back(text);
            into.selected = Ostrel_GetBoxIndex(GetDlgItem(dialog, kPerformer.history));
        }, &seen);
        run.queue(click(kPerformer.id, IDCANCEL));
        Tabra_SqlPerformer(connection.handle());
        EXPECT_EQ(seen.texts, c.loaded);
        EXPECT_EQ(seen.selected, c.loaded.empty() ? -1 : 0);
    }
}

// The record variant connects for each run and closes the connection after it; its
// button changes the record through the data source dialog.
TEST_F(SqlPerformerTestDriverTest, TheRecordVariantConnectsForEachRun) {
    DataSourceInfo record = dataSourceRecord(dsn::TestDriver);
    const int32_t dialog = kRecordPerformerDialog.id;
    ScriptedRun run;
    run.queue(onDialog(dialog, "expect", kRecordPerformerDialog.dataSource, test::quoted(dsn::TestDriver)));
    queueAll(run, runLines(u"CREATE TABLE r (id INTEGER)", dialog));
    run.queueCallback(dialog, [](HWND, void *) { EXPECT_EQ(testDriverConnectionCounts().open(), 0); }, nullptr);
    queueAll(run, runLines(u"INSERT INTO r VALUES (1)", dialog));
    run.queue(click(dialog, kRecordPerformerDialog.chooseDataSource));
    run.queue(onDialog(core::ids::kDataSourceDialog.id, "select", core::ids::kDataSourceDialog.dataSources,
                       test::quoted(dsn::Access)));
    run.queue(click(core::ids::kDataSourceDialog.id, IDOK));
    run.queue(onDialog(dialog, "expect", kRecordPerformerDialog.dataSource, test::quoted(dsn::Access)));
    queueAll(run, runLines(u"INSERT INTO r VALUES (2)", dialog));
    run.queue(click(dialog, IDCANCEL));
    EXPECT_EQ(Tabra_DialogSqlPerformer(&record), IDCANCEL);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.records(TABRA_RECORD_NOTICE, kNotice).size(), 3u);
    // Three runs and the data source dialog's trial login, each closed again.
    EXPECT_EQ(testDriverConnectionCounts().opened, 4);
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);
    EXPECT_EQ(std::u16string(record.DataSourceName), dsn::Access);

    // A data source that cannot be connected: its error is shown, the statement kept.
    DataSourceInfo broken = dataSourceRecord(addDataSource({{"Database", "/nonexistent/folder/db.sqlite"}}));
    ScriptedRun failing;
    queueAll(failing, runLines(u"DELETE FROM r", dialog));
    failing.queue(click(kErrorDialog.id, IDOK));
    failing.queue(click(dialog, IDCANCEL));
    EXPECT_EQ(Tabra_DialogSqlPerformer(&broken), IDCANCEL);
    EXPECT_FALSE(failing.failed());
    EXPECT_TRUE(failing.records(TABRA_RECORD_NOTICE).empty());
    EXPECT_EQ(storedHistory().front(), u"DELETE FROM r");
    EXPECT_EQ(queryValue(connect(dsn::TestDriver), u"SELECT COUNT(*) FROM r"), u"2");
}

// The SQL help puts an example into the statement field: a double click takes it and
// closes the help, Cancel leaves the statement as it was. A host's command 99 fills
// the statement from the library's setting.
TEST_F(SqlPerformerTestDriverTest, TheHelpAndTheSettingFillTheStatement) {
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"Parameters", u"Sql",
                                 u"SELECT name\nFROM host");
    OdbcConnection connection = connect(dsn::TestDriver);
    ScriptedRun run;
    run.queue(click(kPerformer.id, kPerformer.help));
    run.queueCallback(kSqlHelpDialog.id, [](HWND help, void *) {
        EXPECT_EQ(Ostrel_GetBoxCount(GetDlgItem(help, kSqlHelpDialog.examples)), 18);
    }, nullptr);
    run.queue(onDialog(kSqlHelpDialog.id, "doubleclick", kSqlHelpDialog.examples, "#1"));
    run.queue(onDialog(kPerformer.id, "expect", kPerformer.statement, "\"DROP TABLE tablename\""));
    run.queue(click(kPerformer.id, kPerformer.help));
    run.queue(onDialog(kSqlHelpDialog.id, "select", kSqlHelpDialog.examples, "#0"));
    run.queue(click(kSqlHelpDialog.id, IDCANCEL));
    run.queue(onDialog(kPerformer.id, "expect", kPerformer.statement, "\"DROP TABLE tablename\""));
    run.queueCallback(kPerformer.id, [](HWND dialog, void *) {
        SendMessageW(dialog, WM_COMMAND, admin::sql_performer::ids::kCommand.fillStatementFromSettings, 0);
    }, nullptr);
    run.queue(onDialog(kPerformer.id, "expect", kPerformer.statement, "\"SELECT name\\nFROM host\""));
    run.queue(click(kPerformer.id, IDCANCEL));
    EXPECT_EQ(Tabra_SqlPerformer(connection.handle()), IDCANCEL);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.pending(), 0);
    auto helpClosed = run.records(TABRA_RECORD_DIALOG_CLOSED, kSqlHelpDialog.id);
    ASSERT_EQ(helpClosed.size(), 2u);
    EXPECT_EQ(helpClosed[0].value, IDOK);
    EXPECT_EQ(helpClosed[1].value, IDCANCEL);
    EXPECT_TRUE(storedHistory().empty()); // examples enter the history only when run
    EXPECT_EQ(Tabra_SqlPerformer(SQL_NULL_HDBC), IDCANCEL);
    EXPECT_EQ(Tabra_DialogSqlPerformer(nullptr), IDCANCEL);
}

} // namespace
} // namespace tabra::test
