// The designer's statement test on every backend: a view design creates the test view
// and drops it again, other designs run the statement; a wrong statement is shown,
// reports 2 and leaves nothing behind.
#include "catalog/catalog_test_support.h"
#include "query/designer/design_descriptors.h"
#include "query/designer/statement_check.h"

namespace tabra::test {
namespace {

using namespace tabra::query::designer;

class DesignerStatementCheckTest : public BackendTest {};

TEST_P(DesignerStatementCheckTest, ViewsAreCreatedAndDroppedOtherStatementsJustRun) {
    auto connection = connect();
    executeAll(connection, {u"CREATE TABLE orders (id INTEGER, cust INTEGER, total INTEGER)",
                            u"CREATE TABLE customer (no INTEGER, name VARCHAR(20))"});
    const std::u16string view = quoted(backend(), kViewTestName);
    const std::u16string good = u"SELECT o.id, c.name AS buyer FROM orders AS o LEFT JOIN customer AS c ON o.cust = "
                                u"c.no WHERE (o.total > 100) ORDER BY o.id";
    // A join without its columns is a syntax error on every backend.
    const std::u16string bad = u"SELECT o.id, c.name AS buyer FROM orders AS o LEFT JOIN customer AS c ON  =  WHERE "
                               u"(o.total > 100) ORDER BY o.id";
    struct Case {
        uint32_t flags;
        bool wrong;
        int32_t result;
        std::vector<std::u16string> statements;
    } cases[] = {
        {TABRA_SELFACT_VIEW, false, 1, {u"CREATE VIEW " + view + u" AS " + good, u"DROP VIEW " + view}},
        {TABRA_SELFACT_VIEW, true, 2, {u"CREATE VIEW " + view + u" AS " + bad}},
        {0, false, 1, {good}},
        {0, true, 2, {bad}},
    };
    for (const Case &c : cases) {
        QueryDesign design(connection.handle(), u"", c.flags);
        setDescriptor(design, TABRA_SELFACT_TABLES,
                      c.wrong ? u"orders\to\ncustomer\tc\tLJ" : u"orders\to\ncustomer\tc\tLJ\tEQ\to.cust\tc.no");
        setDescriptor(design, TABRA_SELFACT_COLUMNS, u"o.id\nc.name\tbuyer");
        setDescriptor(design, TABRA_SELFACT_SELECTION, u"o.total\tGT\t100\t4\n");
        setDescriptor(design, TABRA_SELFACT_SORT_ORDER, u"o.id\tasc");
        ScriptedRun run;
        if (c.wrong) run.queue("dialog 10025: click 1");
        RecordingHook hook;
        EXPECT_EQ(testStatement(design), c.result);
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(errorDialogsShown(run), c.wrong ? 1u : 0u);
        EXPECT_EQ(hook.statements, c.statements) << toUtf8(c.statements.front());
        EXPECT_EQ(OdbcEh_DoesTableExist(0, connection.handle(), TABRA_TABLE_TYPE_ALL, nullptr, kViewTestName, 0), 0);
    }
}

TABRA_INSTANTIATE_BACKEND_TEST(DesignerStatementCheckTest);

} // namespace
} // namespace tabra::test
