// The add records wizard played through the public script interface, rows moving between
// two different databases (SQLite into PostgreSQL, PostgreSQL into MariaDB, MariaDB into
// SQLite): every value arrives, matching by ids updates every record of the id and
// inserts the others, a failing statement or an abort keeps the rows before, and the
// refusals keep the user on the page (the empty id field only warns).
#include "catalog/catalog_test_support.h"
#include "support/scoped_environment.h"
#include "support/test_driver_control.h"
#include "tabra_wizards.h"
#include "wizards/add_records/resource_ids.h"
#include "wizards/resource_ids.h"

#include <memory>

namespace tabra::test {
namespace {

namespace ids = tabra::wizards::add_records::ids;
constexpr auto &kDestination = ids::kDestinationTablePage;
constexpr auto &kSources = ids::kDataSourcePage;
constexpr auto &kTables = ids::kSourceTablePage;
constexpr auto &kMapping = ids::kMappingPage;
constexpr auto &kIds = ids::kIdPage;

using Lines = std::vector<std::string>;
Lines operator+(Lines first, const Lines &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
std::string next(int32_t page) { return click(page, WIZZARD_ID_NEXT); }
std::string select(int32_t page, int32_t control, std::u16string_view entry) {
    return onDialog(page, "select", control, quoted(entry));
}
Row row(std::initializer_list<std::optional<std::u16string>> values) { return Row(values); }

// Where the rows of each destination come from (the test runs once per destination).
Backend sourceOf(Backend destination) {
    switch (destination) {
    case Backend::PostgreSQL: return Backend::SQLite;
    case Backend::MariaDB: return Backend::PostgreSQL;
    default: return Backend::MariaDB;
    }
}

class AddRecordsWizardTest : public BackendTest {
protected:
    void SetUp() override {
        BackendTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        source_ = configuredDataSource(sourceOf(backend()));
        if (!source_) GTEST_SKIP() << backendName(sourceOf(backend())) << " not configured";
        destination_ = std::make_unique<OdbcConnection>(dataSource());
        OdbcConnection source(*source_);
        executeSql(source, u"DROP TABLE IF EXISTS ar_source");
        executeSql(source, u"CREATE TABLE ar_source (id INTEGER, code VARCHAR(10), name VARCHAR(40), "
                           u"amount DECIMAL(10,2), born DATE)");
        executeSql(source, u"INSERT INTO ar_source VALUES (1, '7', 'O''Neil', 12.25, '1999-12-31'), "
                           u"(2, '8', 'Müller \"Ä\"', NULL, NULL), (3, '9', NULL, -3.75, '2024-02-29')");
    }

    // The pages up to the mapping: destination table, source data source, source table.
    Lines toMapping(std::u16string_view destination, std::u16string_view sourceTable) const {
        return {select(kDestination.id, kDestination.tables, destination), next(kDestination.id),
                select(kSources.id, kSources.dataSources, source_->name),
                onDialog(kSources.id, "set", kSources.user, tabra::test::quoted(source_->user)),
                onDialog(kSources.id, "set", kSources.password, tabra::test::quoted(source_->password)), next(kSources.id),
                select(kTables.id, kTables.tables, sourceTable), next(kTables.id)};
    }
    // The id page matching by the two columns (none: every row added).
    static Lines idPage(std::u16string_view column) {
        if (column.empty()) return {next(kIds.id)};
        return {onDialog(kIds.id, "check", kIds.matchIds), select(kIds.id, kIds.sourceFields, column),
                select(kIds.id, kIds.destinationFields, column), next(kIds.id)};
    }

    int32_t play(const Lines &lines, ScriptedRun &run) {
        for (const std::string &line : lines) run.queue(line);
        DbObjectInfo object{};
        object.DbObjectType = TABRA_OBJECT_TABLE;
        return Tabra_AddRecordsWizzard(destination_->handle(), &object);
    }
    std::vector<Row> sortedRows(std::u16string sql) const {
        if (backend() == Backend::MariaDB) std::replace(sql.begin(), sql.end(), u'"', u'`');
        auto rows = queryRows(*destination_, sql);
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    // A date as the destination gives it back: SQLite keeps the timestamp text written.
    std::u16string date(std::u16string day) const {
        return backend() == Backend::SQLite ? day + u" 00:00:00" : day;
    }

    ScopedRegistryRoot registry_;
    std::optional<DataSource> source_;
    std::unique_ptr<OdbcConnection> destination_;
};

// Plain and matched by an integer id or a character id; a constant with a quote.
TEST_P(AddRecordsWizardTest, CopiesAndMatchesRowsBetweenDatabases) {
    const std::vector<Row> before{row({u"1", u"7", u"old", {}, {}, u"kept"}), row({u"2", u"8", u"two a", {}, {}, u"a"}),
                                  row({u"2", u"8", u"two b", {}, {}, u"b"}), row({u"5", u"5", u"other", {}, {}, u"o"})};
    const Row oneil{u"1", u"7", u"O'Neil", u"12.25", date(u"1999-12-31")};
    const Row mueller{u"2", u"8", u"Müller \"Ä\"", {}, {}};
    const Row third{u"3", u"9", {}, u"-3.75", date(u"2024-02-29")};
    auto with = [](Row values, std::optional<std::u16string> note) {
        values.push_back(std::move(note));
        return values;
    };
    const std::vector<Row> matched{with(oneil, u"kept"), with(mueller, u"a"), with(mueller, u"b"), with(third, {}),
                                   before[3]};
    std::vector<Row> added = before;
    added.insert(added.end(), {with(oneil, {}), with(mueller, {}), with(third, {})});
    struct Case {
        const char *name;
        Lines mapping;     // lines on the mapping page
        std::u16string id; // the id column, empty for none
        std::vector<Row> expected;
        std::vector<std::u16string> statements; // parts of statements the hook saw
        Lines after;       // lines after Finish
    };
    const Case cases[] = {
        {"Plain", {}, u"", added, {u"'O''Neil'", u"'Müller \"Ä\"'"}, {}},
        {"IntegerId", {}, u"id", matched, {u" WHERE id=1", u" WHERE id=2", u"INSERT"}, {}},
        {"CharacterId", {}, u"code", matched, {u" WHERE code='7'", u" WHERE code='8'", u"INSERT"}, {}},
        {"ConstantQuoteNotDoubled",
         {onDialog(kMapping.id, "doubleclick", kMapping.fields, "#5"), onDialog(ids::kFieldDialog.id, "check", ids::kFieldDialog.constant),
          onDialog(ids::kFieldDialog.id, "set", ids::kFieldDialog.constantText, quoted(u"O'Neil")),
          click(ids::kFieldDialog.id, IDOK)},
         u"", before, {u",'O'Neil')"}, {click(core::ids::kErrorDialog.id, IDOK)}},
    };
    RecordingHook hook;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        executeSql(*destination_, u"DROP TABLE IF EXISTS ar_dest");
        executeSql(*destination_, u"CREATE TABLE ar_dest (id INTEGER, code VARCHAR(10), name VARCHAR(40), "
                                  u"amount DECIMAL(10,2), born DATE, note VARCHAR(20))");
        executeSql(*destination_, u"INSERT INTO ar_dest VALUES (1, '7', 'old', NULL, NULL, 'kept'), "
                                  u"(2, '8', 'two a', NULL, NULL, 'a'), (2, '8', 'two b', NULL, NULL, 'b'), "
                                  u"(5, '5', 'other', NULL, NULL, 'o')");
        hook.statements.clear();
        ScriptedRun run;
        Lines lines = toMapping(u"ar_dest", u"ar_source") + c.mapping + Lines{next(kMapping.id)} + idPage(c.id) +
                      Lines{click(ids::kSummaryPage.id, WIZZARD_ID_FINISH)} + c.after;
        EXPECT_EQ(play(lines, run), 1) << run.report();
        expectPlayed(run);
        std::vector<Row> expected = c.expected;
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(sortedRows(u"SELECT id, code, name, amount, born, note FROM ar_dest"), expected);
        for (const std::u16string &part : c.statements)
            EXPECT_TRUE(std::any_of(hook.statements.begin(), hook.statements.end(),
                                    [&](const std::u16string &s) { return s.find(part) != std::u16string::npos; }))
                << toUtf8(part);
    }
}

// A failing statement stops the copy with its diagnostics shown; an abort stops it too.
// The rows before are in the table either way.
TEST_P(AddRecordsWizardTest, FailureAndAbortKeepTheRowsBefore) {
    struct Stop {
        const char *name;
        Lines lines;
    };
    const Stop stops[] = {{"FailingRow", {click(core::ids::kErrorDialog.id, IDOK)}}, {"Abort", {"progress: abort at 2"}}};
    for (const Stop &stop : stops) {
        SCOPED_TRACE(stop.name);
        executeSql(*destination_, u"DROP TABLE IF EXISTS ar_unique");
        executeSql(*destination_, u"CREATE TABLE ar_unique (id INTEGER UNIQUE, name VARCHAR(40))");
        executeSql(*destination_, u"INSERT INTO ar_unique VALUES (3, 'there')");
        ScriptedRun run;
        EXPECT_EQ(play(toMapping(u"ar_unique", u"ar_source") + Lines{next(kMapping.id)} + idPage(u"") +
                           Lines{click(ids::kSummaryPage.id, WIZZARD_ID_FINISH)} + stop.lines,
                       run),
                  1)
            << run.report();
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(sortedRows(u"SELECT id, name FROM ar_unique"),
                  (std::vector<Row>{row({u"1", u"O'Neil"}), row({u"2", u"Müller \"Ä\""}), row({u"3", u"there"})}));
    }
}

void clearSelection(HWND page, void *control) {
    SendMessageW(GetDlgItem(page, static_cast<int32_t>(reinterpret_cast<intptr_t>(control))), LB_SETCURSEL,
                 static_cast<WPARAM>(-1), 0);
}
void dropDestination(HWND, void *connection) {
    executeSql(*static_cast<OdbcConnection *>(connection), u"DROP TABLE ar_dest");
}

// Every refusal keeps the user on its page; the empty id field only warns.
TEST_P(AddRecordsWizardTest, RefusalsKeepTheUserOnThePage) {
    {
        OdbcConnection source(*source_);
        executeSql(source, u"DROP TABLE IF EXISTS ar_other");
        executeSql(source, u"CREATE TABLE ar_other (born DATE, other VARCHAR(5))");
    }
    struct Refusal {
        const char *name;
        int32_t page, message;
        std::u16string destination, columns, sourceTable;
        TabraScriptCallback before = nullptr; // runs on the page before Next
        intptr_t context = 0;
    };
    const Refusal refusals[] = {
        {"NoDestinationTable", kDestination.id, wizards::ids::kMessage.nothingChosen, u"ar_dest", u"id INTEGER",
         u"ar_source", clearSelection, kDestination.tables},
        {"NoDataSource", kSources.id, core::ids::kMessage.emptyDataSourceName, u"ar_dest", u"id INTEGER", u"ar_source",
         clearSelection, kSources.dataSources},
        {"NoSourceTable", kTables.id, wizards::ids::kMessage.nothingChosen, u"ar_dest", u"id INTEGER", u"ar_source",
         clearSelection, kTables.tables},
        {"DestinationWithoutColumns", kTables.id, wizards::ids::kMessage.tableWithoutColumns, u"ar_dest",
         u"id INTEGER", u"ar_source", dropDestination},
        {"NoSourceColumnTaken", kMapping.id, ids::kMessage.noSourceColumn, u"ar_dest", u"x INTEGER, y INTEGER",
         u"ar_source"},
        // A date cannot become an integer; the last descriptor is never checked.
        {"TypePairNotAllowed", kMapping.id, wizards::ids::kMessage.conversionNotAllowed, u"ar_dest",
         u"born INTEGER, other VARCHAR(5)", u"ar_other"},
        {"LastDescriptorUncheckedAndEmptyIdOnlyWarns", kIds.id, ids::kMessage.emptyIdField, u"ar_dest", u"other VARCHAR(5), born INTEGER",
         u"ar_other"},
    };
    for (const Refusal &refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        executeSql(*destination_, u"DROP TABLE IF EXISTS ar_dest");
        executeSql(*destination_, u"CREATE TABLE ar_dest (" + refusal.columns + u")");
        Lines lines = toMapping(refusal.destination, refusal.sourceTable) + Lines{next(kMapping.id)} +
                      Lines{onDialog(kIds.id, "check", kIds.matchIds), next(kIds.id)};
        auto at = std::find(lines.begin(), lines.end(), next(refusal.page));
        ASSERT_NE(at, lines.end());
        lines.erase(at + 1, lines.end());
        ScriptedRun run;
        for (auto line = lines.begin(); line != lines.end(); ++line) {
            if (line + 1 == lines.end() && refusal.before != nullptr)
                run.queueCallback(refusal.page, refusal.before,
                                  refusal.context != 0 ? reinterpret_cast<void *>(refusal.context)
                                                       : static_cast<void *>(destination_.get()));
            run.queue(*line);
        }
        run.queue(answer(refusal.message, "ok"));
        // The warning lets the user go on to the summary; the others keep him on the page.
        const int32_t stays = refusal.message == ids::kMessage.emptyIdField ? ids::kSummaryPage.id : refusal.page;
        run.queue(click(stays, IDCANCEL));
        DbObjectInfo object{};
        EXPECT_EQ(Tabra_AddRecordsWizzard(destination_->handle(), &object), 2);
        expectPlayed(run);
        EXPECT_EQ(run.records(TABRA_RECORD_MESSAGE, refusal.message).size(), 1u);
    }
}

// The wizard's own source connection (here through the test driver) is closed on every
// way out: cancelled after connecting, gone back to the data source page (entering it
// closes the connection) and cancelled there, and after the copy.
class AddRecordsWizardTestDriver : public TestDriverTest {};

TEST_F(AddRecordsWizardTestDriver, TheSourceConnectionIsClosedOnEveryPath) {
    auto destination = connect(dsn::SQLite);
    executeAll(destination, {u"CREATE TABLE ar_dest (id INTEGER, name VARCHAR(20))",
                             u"CREATE TABLE ar_source (id INTEGER, name VARCHAR(20))",
                             u"INSERT INTO ar_source VALUES (1, 'a'), (2, 'b')"});
    const Lines connected{select(kDestination.id, kDestination.tables, u"ar_dest"), next(kDestination.id),
                          select(kSources.id, kSources.dataSources, dsn::TestDriver), next(kSources.id)};
    const struct {
        const char *name;
        Lines lines;
        int32_t result;
        std::size_t rows;
    } paths[] = {
        {"CancelledOnTheTablePage", {click(kTables.id, IDCANCEL)}, 2, 0},
        {"BackToTheDataSources", {click(kTables.id, WIZZARD_ID_BACK), click(kSources.id, IDCANCEL)}, 2, 0},
        {"Finished",
         {select(kTables.id, kTables.tables, u"ar_source"), next(kTables.id), next(kMapping.id), next(kIds.id),
          click(ids::kSummaryPage.id, WIZZARD_ID_FINISH)},
         1, 2},
        // The warning lets the user finish: without both id fields every row is added.
        {"MatchingWithoutIdFields",
         {select(kTables.id, kTables.tables, u"ar_source"), next(kTables.id), next(kMapping.id),
          onDialog(kIds.id, "check", kIds.matchIds), next(kIds.id), answer(ids::kMessage.emptyIdField, "ok"),
          click(ids::kSummaryPage.id, WIZZARD_ID_FINISH)},
         1, 2},
    };
    for (const auto &path : paths) {
        SCOPED_TRACE(path.name);
        executeSql(destination, u"DELETE FROM ar_dest");
        resetTestDriverCounts();
        ScriptedRun run;
        for (const std::string &line : connected + path.lines) run.queue(line);
        DbObjectInfo object{};
        EXPECT_EQ(Tabra_AddRecordsWizzard(destination.handle(), &object), path.result) << run.report();
        EXPECT_EQ(run.pending(), 0) << run.report();
        EXPECT_GE(testDriverConnectionCounts().opened, 1);
        EXPECT_EQ(testDriverConnectionCounts().open(), 0);
        EXPECT_EQ(testDriverStatementCounts().open(), 0);
        EXPECT_EQ(queryRows(destination, u"SELECT id FROM ar_dest").size(), path.rows);
    }
}

// Each run is named after its pair, so that it holds the locks of both its servers.
INSTANTIATE_TEST_SUITE_P(Pairs, AddRecordsWizardTest,
                         ::testing::Values(Backend::PostgreSQL, Backend::MariaDB, Backend::SQLite),
                         [](const ::testing::TestParamInfo<Backend> &info) {
                             return std::string(backendName(sourceOf(info.param))) + "To" + backendName(info.param);
                         });

} // namespace
} // namespace tabra::test
