// A scripted designer session on every backend: two tables joined, a column alias, a
// selection and a sort order built on the pages, the statement tested and confirmed;
// the designer returns the descriptors, and its statement returns the expected rows.
#include "catalog/catalog_test_support.h"
#include "query/designer/selection_rows.h"
#include "query/resource_ids.h"
#include "tabra_designer.h"

namespace tabra::test {
namespace {

namespace ids = tabra::query::ids;

std::u16string descriptor(SelFact design, int32_t kind) {
    char16_t text[2000] = {};
    Tabra_SelFact_GetDescriptor(design, kind, text, 2000);
    return text;
}

std::string tab(std::string_view caption) {
    return onDialog(ids::kDesignerDialog.id, "select", ids::kDesignerDialog.pages, quoted(std::u16string_view(toUtf16(caption))));
}

class DesignerSessionTest : public BackendTest {};

TEST_P(DesignerSessionTest, BuildsAJoinWithASelectionAndASortTestsItAndReturnsTheLists) {
    auto connection = connect();
    executeAll(connection, {u"CREATE TABLE customers (custno INTEGER, name VARCHAR(20))",
                            u"CREATE TABLE orders (orderno INTEGER, custno INTEGER, total INTEGER)",
                            u"INSERT INTO customers VALUES (1, 'Alpha')", u"INSERT INTO customers VALUES (2, 'Beta')",
                            u"INSERT INTO customers VALUES (3, 'Gamma')", u"INSERT INTO orders VALUES (10, 1, 50)",
                            u"INSERT INTO orders VALUES (11, 1, 150)", u"INSERT INTO orders VALUES (12, 2, 300)",
                            u"INSERT INTO orders VALUES (13, 3, 120)", u"INSERT INTO orders VALUES (14, 4, 500)"});
    const auto &list = ids::kDesignerList;
    const int32_t tables = ids::kDesignerTablesPage.id, columns = ids::kDesignerColumnsPage.id,
                  selection = ids::kDesignerSelectionPage.id, sort = ids::kDesignerSortPage.id,
                  join = ids::kDesignerJoinDialog.id, column = ids::kDesignerColumnDialog.id;
    const std::u16string statement = u"SELECT o.orderno, c.name AS buyer FROM orders AS o LEFT JOIN customers AS c ON "
                                     u"o.custno = c.custno WHERE (o.total > 100) ORDER BY o.total DESC";
    ScriptedRun run;
    // Tables: orders by a double click, customers dragged below it (joined on custno),
    // its join made a left join in the join dialog.
    run.queue(onDialog(tables, "doubleclick", list.available, "\"orders\""));
    run.queue(onDialog(tables, "drag", list.available, "\"customers\" to " + std::to_string(list.chosen)));
    run.queue(onDialog(tables, "doubleclick", list.chosen, "#1"));
    run.queue(onDialog(join, "expect", ids::kDesignerJoinDialog.preview,
                       "\"INNER JOIN customers AS c ON o.custno = c.custno\""));
    run.queue(onDialog(join, "select", ids::kDesignerJoinDialog.joinType, "\"left join\""));
    run.queue(click(join, IDOK));
    // Columns: the order number and the customer's name under an alias.
    run.queue(tab("Columns"));
    run.queue(onDialog(columns, "doubleclick", list.available, "\"o.orderno\""));
    run.queue(onDialog(columns, "select", list.available, "\"c.name\""));
    run.queue(click(columns, list.add));
    run.queue(click(columns, ids::kDesignerColumnsPage.edit));
    run.queue(onDialog(column, "set", ids::kDesignerColumnDialog.alias, "\"buyer\""));
    run.queue(click(column, IDOK));
    // Selection: totals above 100.
    run.queue(tab("Selection"));
    run.queue(onDialog(selection, "select", list.available, "\"o.total\""));
    run.queue(click(selection, list.add));
    const ConditionRow &firstRow = query::designer::kSelectionRows[0];
    run.queue(onDialog(selection, "select", firstRow.operation, "\"is greater than\""));
    run.queue(onDialog(selection, "set", firstRow.value, "\"100\""));
    // Sort order: the largest total first.
    run.queue(tab("Sort Order"));
    run.queue(onDialog(sort, "doubleclick", list.available, "\"o.total\""));
    run.queue(click(sort, ids::kDesignerSortPage.descending));
    run.queue(onDialog(ids::kDesignerDialog.id, "expect", ids::kDesignerDialog.statement, quoted(std::u16string_view(statement))));
    run.queue(click(ids::kDesignerDialog.id, ids::kDesignerDialog.test));
    run.queue(answer(ids::kMessage.statementValid, "ok"));
    run.queue(click(ids::kDesignerDialog.id, IDOK));

    SelFact design = nullptr;
    ASSERT_EQ(Tabra_SelFact_Create(&design, connection.handle(), u"", 0), TABRA_SELFACT_OK);
    EXPECT_EQ(Tabra_SelFact_Edit(design, nullptr), 1);
    expectPlayed(run);
    EXPECT_EQ(descriptor(design, TABRA_SELFACT_TABLES), u"orders\to\t\tEQ\t\t\ncustomers\tc\tLJ\tEQ\to.custno\tc.custno");
    EXPECT_EQ(descriptor(design, TABRA_SELFACT_COLUMNS), u"o.orderno\t\nc.name\tbuyer");
    EXPECT_EQ(descriptor(design, TABRA_SELFACT_SELECTION), u"o.total\tGT\t100\t4\n\v\v\v\v");
    EXPECT_EQ(descriptor(design, TABRA_SELFACT_SORT_ORDER), u"o.total\tDESC");
    char16_t sql[1000] = {};
    Tabra_SelFact_CreateSql(design, sql, 1000, 0);
    EXPECT_EQ(std::u16string(sql), statement);
    Tabra_SelFact_Destroy(design);

    std::vector<Row> rows = queryRows(connection, statement);
    std::vector<Row> expected = {{u"14", std::nullopt}, {u"12", u"Beta"}, {u"11", u"Alpha"}, {u"13", u"Gamma"}};
    EXPECT_EQ(rows, expected);
}

TABRA_INSTANTIATE_BACKEND_TEST(DesignerSessionTest);

} // namespace
} // namespace tabra::test
