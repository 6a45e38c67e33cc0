// The statement runner's policies on the test driver: what counts as success, which
// failures are tolerated or kept quiet, a refusing hook, and the statement handle
// dropped on every path.
#include "catalog/catalog_test_support.h"
#include "core/odbc/bound_column.h"
#include "core/odbc/statement_runner.h"
#include "core/resource_ids.h"
#include "support/script_lines.h"

namespace tabra::test {
namespace {

using odbc::Acceptance;
using odbc::Reporting;
using odbc::RunPolicy;
using odbc::RunResult;
using odbc::StatementRunner;

class StatementRunnerTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        executeSql(connect(dsn::TestDriver), u"CREATE TABLE runs (id INTEGER)");
    }
    static int64_t rowsOfRuns(const OdbcConnection &connection) {
        return std::stoll(toUtf8(queryValue(connection, u"SELECT count(*) FROM runs").value_or(u"-1")));
    }
};

constexpr char16_t kInsert[] = u"INSERT INTO runs VALUES (1)";

TEST_F(StatementRunnerTest, PoliciesDecideWhatIsShownAndWhatCounts) {
    // The driver manager of an ODBC 2 environment reports 42S02 in its ODBC 2 form.
    const std::u16string failing = addDataSource({{"FailPattern", "INSERT INTO runs"}, {"FailState", "42S02"}});
    const RunPolicy strict{.acceptance = Acceptance::Strict};
    const RunPolicy tolerant{.acceptance = Acceptance::Strict, .tolerated = u"NOINFO"};
    struct Case {
        const char *what;
        std::u16string dataSource;
        RunPolicy policy;
        bool hookAllows;
        RunResult expected;
        const char16_t *shownState; // null: nothing shown
        bool executed;
    };
    const Case cases[] = {
        {"plain", dsn::TestDriver, {}, true, RunResult::Done, nullptr, true},
        {"information accepted", dsn::ExecInfo, {}, true, RunResult::Done, nullptr, true},
        {"strict shows information", dsn::ExecInfo, strict, true, RunResult::Failed, u"01S02", true},
        {"strict, information tolerated", dsn::ExecInfo, tolerant, true, RunResult::Tolerated, nullptr, true},
        {"listed state tolerated", failing, {.tolerated = u"01000,S0002"}, true, RunResult::Tolerated, nullptr, false},
        {"other state shown", failing, {.tolerated = u"42000"}, true, RunResult::Failed, u"S0002", false},
        {"quiet failure", failing, {.reporting = Reporting::Quiet}, true, RunResult::Failed, nullptr, false},
        {"hook refuses", dsn::TestDriver, {}, false, RunResult::Refused, nullptr, false},
        {"hook refuses a strict run", dsn::ExecInfo, strict, false, RunResult::Refused, nullptr, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        auto connection = connect(c.dataSource);
        const int64_t rowsBefore = rowsOfRuns(connection);
        const auto countsBefore = testDriverStatementCounts();
        ScriptedRun run;
        if (c.shownState != nullptr) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        RecordingHook hook(c.hookAllows);
        EXPECT_EQ(StatementRunner(connection.handle(), kInsert, c.policy).run(), c.expected);
        EXPECT_EQ(hook.statements, std::vector<std::u16string>{kInsert});
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(errorDialogsShown(run), c.shownState ? 1u : 0u);
        if (c.shownState != nullptr) {
            EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.state), c.shownState);
            EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.statement), kInsert);
        }
        // One handle allocated (before the hook, also when it refuses), none left open.
        EXPECT_EQ(testDriverStatementCounts().allocated - countsBefore.allocated, 1);
        expectNoOpenStatements(c.what);
        hook.allow = true;
        EXPECT_EQ(rowsOfRuns(connection), rowsBefore + (c.executed ? 1 : 0));
    }
}

TEST_F(StatementRunnerTest, AHandleThatCannotBeHadIsShownForTheConnection) {
    // An allocated connection that never connected: the driver manager refuses statements.
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC unconnected = SQL_NULL_HDBC;
    ASSERT_EQ(SQLAllocEnv(&environment), SQL_SUCCESS);
    ASSERT_EQ(SQLAllocConnect(environment, &unconnected), SQL_SUCCESS);
    for (Reporting reporting : {Reporting::Shown, Reporting::Quiet}) {
        ScriptedRun run;
        if (reporting == Reporting::Shown) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        RecordingHook hook;
        EXPECT_EQ(StatementRunner(unconnected, kInsert, {.reporting = reporting, .tolerated = u"*"}).run(),
                  RunResult::Failed);
        EXPECT_TRUE(hook.statements.empty()) << "no handle, no hook";
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(errorDialogsShown(run), reporting == Reporting::Shown ? 1u : 0u);
        if (reporting == Reporting::Shown) {
            EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.state), u"08003");
        }
    }
    SQLFreeConnect(unconnected);
    SQLFreeEnv(environment);
}

TEST_F(StatementRunnerTest, ResultsAreReadBeforeTheHandleGoes) {
    auto connection = connect(dsn::TestDriver);
    executeAll(connection, {u"INSERT INTO runs VALUES (1)", u"INSERT INTO runs VALUES (2)"});
    ScriptedRun run;
    {
        StatementRunner update(connection.handle(), u"UPDATE runs SET id = id + 10");
        ASSERT_EQ(update.run(), RunResult::Done);
        EXPECT_EQ(update.rowCount(), 2);
    }
    StatementRunner select(connection.handle(), u"SELECT id, id * 2 FROM runs ORDER BY id");
    ASSERT_EQ(select.run(), RunResult::Done);
    EXPECT_EQ(select.columnCount(), 2);
    odbc::BoundText<10> id;
    ASSERT_EQ(select.check(id.bind(select.handle(), 1)), RunResult::Done);
    std::vector<std::u16string> ids;
    while (SQL_SUCCEEDED(select.fetch())) ids.emplace_back(id.text);
    EXPECT_EQ(ids, (std::vector<std::u16string>{u"11", u"12"}));
    expectNothingShown(run);
    EXPECT_EQ(testDriverStatementCounts().open(), 1);
    select.drop();
    expectNoOpenStatements("dropped");
}

} // namespace
} // namespace tabra::test
