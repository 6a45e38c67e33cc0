// The select statement wizard played on every backend: statements composed from the
// boxes, statements read back, the single-table rule, and the enabled states; each
// statement the wizard returns is run on the backend.
#include "catalog/catalog_test_support.h"
#include "query/select_wizard/resource_ids.h"
#include "support/scoped_environment.h"
#include "tabra_connection.h"
#include "tabra_query.h"

namespace tabra::test {
namespace {

constexpr auto &kWizard = query::select_wizard::ids::kSelectWizardDialog;

std::string on(std::string_view action, int32_t control, std::string_view argument = {}) {
    return onDialog(kWizard.id, action, control, argument);
}

class SelectWizardTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        executeAll(connection, {u"CREATE TABLE customers (custno INTEGER, name VARCHAR(20))",
                                u"CREATE TABLE orders (orderno INTEGER, custno INTEGER, total INTEGER)",
                                u"INSERT INTO customers VALUES (1, 'Alpha')",
                                u"INSERT INTO customers VALUES (2, 'Beta')",
                                u"INSERT INTO orders VALUES (10, 1, 150)", u"INSERT INTO orders VALUES (11, 1, 50)",
                                u"INSERT INTO orders VALUES (12, 2, 300)",
                                u"CREATE VIEW big_orders AS SELECT orderno, total FROM orders WHERE total > 100"});
    }
    // "{t}" in a statement stands for the schema a table entry reads with, if any,
    // "{first}" for the first table entry.
    std::u16string withSchema(std::u16string_view text, std::u16string_view first = {}) const {
        std::u16string out(text);
        for (auto [mark, by] : {std::pair<std::u16string_view, std::u16string_view>{u"{first}", first},
                                {u"{t}", backend() == Backend::PostgreSQL ? u"public." : u""}})
            for (size_t at = out.find(mark); at != std::u16string::npos; at = out.find(mark, at))
                out.replace(at, mark.size(), by);
        return out;
    }
};

// Identifier quotes differ by backend and are not what these cases are about.
std::u16string unquoted(std::u16string text) {
    std::erase_if(text, [](char16_t c) { return c == u'"' || c == u'`'; });
    return text;
}

struct ComposeCase {
    const char *name;
    std::u16string_view opening;
    int32_t flags;
    std::vector<std::string> actions;
    std::u16string_view expected;
    std::vector<Row> rows; // empty: the statement is not run
};

TEST_P(SelectWizardTest, ComposesAndReadsBackStatements) {
    const auto &w = kWizard;
    // The table entries of this backend; MariaDB offers some tables of its own too.
    const std::string customers = test::quoted(withSchema(u"{t}customers")), orders = test::quoted(withSchema(u"{t}orders"));
    const std::u16string first = readTables(hdbc(), TABRA_TABLE_TYPE_TABLE, nullptr, TABRA_QUALIFY_SCHEMA).items.at(0);
    const std::vector<ComposeCase> cases = {
        {"an empty statement takes the first table and all columns", u"", 0, {}, u"SELECT * FROM {first}", {}},
        {"columns added, moved, removed, and a sort column", u"", 0,
         {on("select", w.tableList, orders), on("uncheck", w.allColumns), on("doubleclick", w.sourceColumns, "\"total\""),
          on("select", w.sourceColumns, "\"custno\""), click(w.id, w.add),
          on("doubleclick", w.sourceColumns, "\"orderno\""), on("select", w.chosenColumns, "\"orderno\""),
          click(w.id, w.up), click(w.id, w.up), on("doubleclick", w.chosenColumns, "\"custno\""),
          on("uncheck", w.noSort), on("select", w.sortColumn, "\"total\"")},
         u"SELECT orderno,total FROM {t}orders ORDER BY total", {{u"11", u"50"}, {u"10", u"150"}, {u"12", u"300"}}},
        {"reopened: the tables, the columns in order and only the first sort column",
         u"SELECT total, orderno FROM {t}orders ORDER BY total DESC, orderno", 0,
         {on("expect", w.sortColumn, "\"total\"")}, u"SELECT total,orderno FROM {t}orders ORDER BY total",
         {{u"50", u"11"}, {u"150", u"10"}, {u"300", u"12"}}},
        {"no sort order writes no ORDER BY though a sort column is selected",
         u"SELECT * FROM {t}customers ORDER BY name", 0,
         {on("expect", w.sortColumn, "\"name\""), on("check", w.noSort)}, u"SELECT * FROM {t}customers",
         {{u"1", u"Alpha"}, {u"2", u"Beta"}}},
        {"views are offered once their box is checked", u"", 0,
         {on("check", w.views), on("select", w.tableList, test::quoted(withSchema(u"{t}big_orders")))},
         u"SELECT * FROM {t}big_orders", {{u"10", u"150"}, {u"12", u"300"}}},
        {"a statement without FROM opens like an empty one", u"SELECT 1", 0, {}, u"SELECT * FROM {first}", {}},
        {"without the flag a second table replaces the first", u"", 0,
         {on("select", w.tableList, customers), on("toggle", w.tableList, orders)}, u"SELECT * FROM {t}orders", {}},
        {"without the flag the table added replaces the others wherever the caret is", u"", 0,
         {on("select", w.tableList, orders), on("select", w.tableList, customers + " " + orders)},
         u"SELECT * FROM {t}customers", {}},
        {"with the flag both tables are read, their columns qualified", u"", TABRA_SELWIZZ_SEVERAL_TABLES,
         {on("select", w.tableList, customers), on("toggle", w.tableList, orders), on("uncheck", w.allColumns),
          on("doubleclick", w.sourceColumns, "\"customers.name\""), on("uncheck", w.noSort),
          on("select", w.sortColumn, "\"orders.total\"")},
         u"SELECT customers.name FROM {t}customers,{t}orders ORDER BY orders.total",
         {{u"Alpha"}, {u"Beta"}, {u"Alpha"}, {u"Beta"}, {u"Alpha"}, {u"Beta"}}},
    };
    for (const ComposeCase &c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedRun run;
        for (const std::string &line : c.actions) run.queue(line);
        run.queue(click(w.id, IDOK));
        char16_t statement[400] = {};
        std::u16string opening = withSchema(c.opening);
        std::copy(opening.begin(), opening.end(), statement);
        EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement, 400, nullptr, c.flags, 0), 1);
        expectNothingShown(run);
        EXPECT_EQ(run.pending(), 0);
        EXPECT_EQ(unquoted(statement), withSchema(c.expected, first));
        if (c.rows.empty()) continue;
        std::vector<Row> rows = queryRows(*connection_, statement), want = c.rows; // in any order
        std::ranges::sort(rows), std::ranges::sort(want);
        EXPECT_EQ(rows, want);
    }
}

TEST_P(SelectWizardTest, HelpAndCancelLeaveTheStatementAndShortBuffersAreCut) {
    const std::u16string opening = withSchema(u"SELECT name FROM {t}customers");
    {
        ScriptedRun run;
        run.queue(on("uncheck", kWizard.allColumns));
        run.queue(click(kWizard.id, IDHELP));
        run.queue(click(kWizard.id, IDCANCEL));
        std::u16string statement = opening;
        statement.resize(100);
        EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement.data(), 100, nullptr, 0, 0), 2);
        EXPECT_EQ(std::u16string(statement.c_str()), opening);
        auto help = run.records(TABRA_RECORD_HELP);
        ASSERT_EQ(help.size(), 1u);
        EXPECT_EQ(help[0].id, kWizard.id);
    }
    ScriptedRun run;
    run.queue(click(kWizard.id, IDOK));
    char16_t statement[12] = {};
    EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement, 12, nullptr, 0, 0), 1);
    EXPECT_EQ(std::u16string(statement), u"SELECT * FR");
}

// The enabled states of remove, up, down, the column source and the sort box, as
// "1" and "0".
void recordEnabledStates(HWND dialog, void *context) {
    std::string states;
    for (int32_t id : {kWizard.remove, kWizard.up, kWizard.down, kWizard.sourceColumns, kWizard.sortColumn})
        states += IsWindowEnabled(GetDlgItem(dialog, id)) ? '1' : '0';
    static_cast<std::vector<std::string> *>(context)->push_back(states);
}

TEST_P(SelectWizardTest, EnabledStatesFollowTheChecksAndTheChosenColumn) {
    const std::vector<std::pair<std::string, std::string>> steps = {
        {"", "00011"},
        {on("select", kWizard.chosenColumns, "#0"), "10111"},
        {on("select", kWizard.chosenColumns, "#2"), "11011"},
        {on("select", kWizard.chosenColumns, "#1"), "11111"},
        {on("check", kWizard.noSort), "11110"},
        {on("check", kWizard.allColumns), "00000"},
    };
    ScriptedRun run;
    std::vector<std::string> seen, expected;
    for (const auto &[action, states] : steps) {
        if (!action.empty()) run.queue(action);
        run.queueCallback(kWizard.id, recordEnabledStates, &seen);
        expected.push_back(states);
    }
    run.queue(click(kWizard.id, IDOK));
    std::u16string statement = withSchema(u"SELECT orderno, custno, total FROM {t}orders ORDER BY total");
    statement.resize(200);
    EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement.data(), 200, nullptr, 0, 0), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(seen, expected);
}

// The schema is the data source's last one where the database knows schemas (and
// ignored elsewhere); the schema button shows another and keeps it for the next time.
TEST_P(SelectWizardTest, SchemaIsTheDataSourcesLastOneAndTheSchemaButtonKeepsIt) {
    ScopedRegistryRoot registry;
    const bool schemas = Tabra_GetSchemaUsage(hdbc()) != 0;
    const std::u16string section = dataSource().name;
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, section.c_str(), u"LastUsedDbaseSchema",
                                 u"sales");
    if (schemas) executeAll(*connection_, {u"CREATE SCHEMA sales", u"CREATE TABLE sales.leads (leadno INTEGER)"});
    ScriptedRun run;
    run.queue(click(kWizard.id, IDOK));
    char16_t statement[200] = {};
    EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement, 200, nullptr, 0, 0), 1);
    EXPECT_EQ(run.closedControlText(kWizard.id, kWizard.schema), schemas ? u"sales" : u"");
    if (!schemas) return;
    EXPECT_EQ(unquoted(statement), u"SELECT * FROM sales.leads");

    run.queue(click(kWizard.id, kWizard.chooseSchema));
    run.queue(onDialog(core::ids::kSchemaDialog.id, "select", core::ids::kSchemaDialog.schemas, "\"public\""));
    run.queue(click(core::ids::kSchemaDialog.id, IDOK));
    run.queue(click(kWizard.id, IDOK));
    EXPECT_EQ(Tabra_SelectStatementWizzard(hdbc(), statement, 200, nullptr, 0, 0), 1);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(unquoted(statement), u"SELECT * FROM public.customers");
    EXPECT_EQ(registryText(HKEY_CURRENT_USER, module::kRegistryRoot, section.c_str(), u"LastUsedDbaseSchema"),
              u"public");
}

TABRA_INSTANTIATE_BACKEND_TEST(SelectWizardTest);

} // namespace
} // namespace tabra::test
