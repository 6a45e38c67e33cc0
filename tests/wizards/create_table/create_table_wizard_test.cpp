// The create table wizard played through the scripted driver: each way of making a
// table on every backend, the new table checked through the catalog and by inserting
// rows, the refusals on its pages; on the test driver with the classic database
// names, the modes the page offers and the exact statements each mode runs.
#include "catalog/catalog_test_support.h"
#include "core/connection/capabilities.h"
#include "support/scoped_environment.h"
#include "tabra.h"
#include "wizards/create_table/create_table_wizard.h"
#include "wizards/create_table/resource_ids.h"
#include "wizards/resource_ids.h"

namespace tabra::test {
namespace {

namespace ids = wizards::create_table::ids;
using wizards::create_table::kModeValue;
using wizards::create_table::kRegistryKey;
using wizards::create_table::kSourceValue;

constexpr int32_t kNext = WIZZARD_ID_NEXT, kBack = WIZZARD_ID_BACK, kFinish = WIZZARD_ID_FINISH;
const auto &kModes = ids::kModePage;
const int32_t kModePageId = ids::kModePage.id, kSourcePageId = ids::kSourcePage.id, kNamePageId = ids::kNamePage.id,
              kClosingPageId = ids::kClosingPage.id;

// The script of a run that makes table `name` in `mode` (from `source` for a copy).
std::vector<std::string> makeTable(int32_t mode, const char *name, const char *source = "ct_source") {
    std::vector<std::string> lines = {onDialog(kModePageId, "check", mode), click(kModePageId, kNext)};
    if (mode == kModes.copyStructure)
        lines.insert(lines.end(), {onDialog(kSourcePageId, "select", ids::kSourcePage.tables, test::quoted(toUtf16(source))),
                                   click(kSourcePageId, kNext)});
    lines.insert(lines.end(), {onDialog(kNamePageId, "set", ids::kNamePage.name, test::quoted(toUtf16(name))),
                               click(kNamePageId, kNext), click(kClosingPageId, kFinish)});
    return lines;
}

struct WizardRun {
    int32_t result = 0;
    std::u16string name; // what the wizard handed back
    std::vector<int32_t> messages;
};

// Runs the wizard on the connection with the script.
WizardRun runWizard(SQLHDBC connection, const ScriptedRun &script, const std::vector<std::string> &lines) {
    for (const auto &line : lines) script.queue(line);
    char16_t name[wizards::create_table::kNameCapacity] = u"untouched";
    WizardRun run;
    run.result = Tabra_CreateTableWizzard(connection, name, wizards::create_table::kNameCapacity);
    run.name = name;
    for (const auto &message : script.records(TABRA_RECORD_MESSAGE)) run.messages.push_back(message.id);
    expectPlayed(script);
    return run;
}

// Column name, ODBC type, type name and size of each column of a table, in order.
std::vector<Row> catalogColumns(const OdbcConnection &connection, const std::u16string &table) {
    OdbcStatement statement(connection);
    std::u16string name = table;
    EXPECT_TRUE(succeeded(SQLColumnsW(statement.handle(), nullptr, 0, nullptr, 0,
                                      reinterpret_cast<SQLWCHAR *>(name.data()), SQL_NTS, nullptr, 0)));
    std::vector<Row> columns;
    for (Row &row : fetchRows(statement.handle())) columns.push_back({row[3], row[4], row[5], row[6]});
    return columns;
}

std::u16string folded(std::u16string text) {
    for (char16_t &c : text)
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
    return text;
}

// The names of the default definition's columns (string 2161), in lower case.
std::vector<std::u16string> defaultColumnNames() {
    std::vector<std::u16string> names;
    std::u16string definition = resourceText(ids::kString.defaultColumns);
    for (size_t at = 0; at < definition.size();) {
        while (at < definition.size() && definition[at] == u' ') ++at;
        size_t end = definition.find(u' ', at);
        names.push_back(folded(definition.substr(at, end - at)));
        size_t depth = 0; // the rest of the column up to a comma outside parentheses
        for (at = end; at < definition.size() && (definition[at] != u',' || depth > 0); ++at)
            depth += definition[at] == u'(' ? 1 : definition[at] == u')' ? -1 : 0;
        ++at;
    }
    return names;
}

// ---- Every way on every backend ----

class CreateTableWizardTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        executeAll(connection,
                   {u"CREATE TABLE ct_source (id INTEGER, label VARCHAR(30), amount DECIMAL(10,2), born DATE)",
                    u"INSERT INTO ct_source VALUES (1, 'first', 2.5, '2024-01-02')",
                    u"CREATE TABLE ct_other (code CHAR(4), note VARCHAR(80))"});
    }
    // Inserts two rows without an Id and reads the Ids the database gave them.
    std::vector<Row> numberedRows(const std::u16string &table, const char16_t *values) {
        std::u16string insert = u"INSERT INTO " + table + values;
        executeAll(*connection_, {insert, insert});
        return queryRows(*connection_, u"SELECT Id FROM " + table + u" ORDER BY Id");
    }
    std::u16string emptyRow() const {
        return backend() == Backend::MariaDB ? u" () VALUES ()" : u" DEFAULT VALUES";
    }

    ScopedRegistryRoot registry_;
};

TEST_P(CreateTableWizardTest, KeyColumnOnlyNumbersTheRows) {
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script, makeTable(kModes.keyColumnOnly, "ct_made"));
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.name, u"ct_made");
    auto columns = catalogColumns(*connection_, u"ct_made");
    ASSERT_EQ(columns.size(), 1u);
    EXPECT_EQ(folded(*columns[0][0]), u"id");
    EXPECT_EQ(numberedRows(u"ct_made", emptyRow().c_str()), (std::vector<Row>{{u"1"}, {u"2"}}));
}

TEST_P(CreateTableWizardTest, CopyHasTheSourceColumnsAndNoRows) {
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script, makeTable(kModes.copyStructure, "ct_made"));
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(catalogColumns(*connection_, u"ct_made"), catalogColumns(*connection_, u"ct_source"));
    EXPECT_EQ(queryValue(*connection_, u"SELECT Count(*) FROM ct_made"), u"0");
    EXPECT_EQ(queryValue(*connection_, u"SELECT Count(*) FROM ct_source"), u"1");
}

TEST_P(CreateTableWizardTest, DefaultColumnsGetTheIdKeyColumnLast) {
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script, makeTable(kModes.defaultDefinition, "ct_made"));
    EXPECT_EQ(run.result, 1);
    std::vector<std::u16string> names;
    for (const Row &column : catalogColumns(*connection_, u"ct_made")) names.push_back(folded(*column[0]));
    auto expected = defaultColumnNames();
    expected.push_back(u"id");
    EXPECT_EQ(names, expected);
    std::u16string firstColumn = u" (" + defaultColumnNames().front() + u") VALUES ('x')";
    EXPECT_EQ(numberedRows(u"ct_made", firstColumn.c_str()), (std::vector<Row>{{u"1"}, {u"2"}}));
}

// The pages keep the user on a missing source, an empty name and a taken one (in
// another letter case); the mode and source are remembered as their pages are left,
// so a cancelled run leaves them for the next, which copies ct_other untouched.
TEST_P(CreateTableWizardTest, RefusalsKeepTheUserAndChoicesAreRemembered) {
    const int32_t nothing = wizards::ids::kMessage.nothingChosen, taken = core::ids::kMessage.tableNameTaken;
    {
        ScriptedRun script;
        WizardRun run = runWizard(
            hdbc(), script,
            {onDialog(kModePageId, "check", kModes.copyStructure), click(kModePageId, kNext),
             onDialog(kSourcePageId, "select", ids::kSourcePage.tables, "\"ct_other\""), click(kSourcePageId, kNext),
             onDialog(kNamePageId, "set", ids::kNamePage.name, "\"  \""), click(kNamePageId, kNext),
             answer(nothing, "ok"), onDialog(kNamePageId, "set", ids::kNamePage.name, "\"CT_SOURCE\""),
             click(kNamePageId, kNext), answer(taken, "ok"), click(kNamePageId, kBack), click(kSourcePageId, kBack),
             click(kModePageId, IDCANCEL)});
        EXPECT_EQ(run.result, 2);
        EXPECT_EQ(run.name, u"untouched");
        EXPECT_EQ(run.messages, (std::vector<int32_t>{nothing, taken}));
    }
    EXPECT_EQ(Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kModeValue, 0),
              kModes.copyStructure);
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script,
                              {click(kModePageId, kNext), click(kSourcePageId, kNext),
                               onDialog(kNamePageId, "set", ids::kNamePage.name, "\"ct_made\""),
                               click(kNamePageId, kNext), click(kClosingPageId, kFinish)});
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(catalogColumns(*connection_, u"ct_made"), catalogColumns(*connection_, u"ct_other"));
}

// The proposed name is string 1965, made unique when a view (or a table) has it; a
// database without tables offers no source. MariaDB's table list always holds a few
// performance_schema tables, so its source list is never empty.
TEST_P(CreateTableWizardTest, ProposedNameIsFreeAndAnEmptySourceListIsRefused) {
    std::u16string proposed = resourceText(ids::kString.defaultTableName);
    executeAll(*connection_, {u"DROP TABLE ct_source", u"DROP TABLE ct_other", u"CREATE VIEW " + proposed + u" AS SELECT 1 AS a"});
    const bool listsNoTables = backend() != Backend::MariaDB;
    std::vector<std::string> lines = {
        click(kModePageId, kNext), onDialog(kNamePageId, "expect", ids::kNamePage.name, test::quoted(proposed + u"_1")),
        click(kNamePageId, kBack)};
    if (listsNoTables)
        lines.insert(lines.end(), {onDialog(kModePageId, "check", kModes.copyStructure), click(kModePageId, kNext),
                                   click(kSourcePageId, kNext), answer(wizards::ids::kMessage.nothingChosen, "ok"),
                                   click(kSourcePageId, IDCANCEL)});
    else
        lines.push_back(click(kModePageId, IDCANCEL));
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script, lines);
    EXPECT_EQ(run.result, 2);
    EXPECT_EQ(run.messages.size(), listsNoTables ? 1u : 0u);
}

// A statement the hook declines ends the wizard with 2, nothing shown or made.
TEST_P(CreateTableWizardTest, DeclinedStatementMakesNothing) {
    RecordingHook hook(false);
    ScriptedRun script;
    WizardRun run = runWizard(hdbc(), script, makeTable(kModes.defaultDefinition, "ct_made"));
    EXPECT_EQ(run.result, 2);
    EXPECT_EQ(hook.statements.size(), 1u);
    EXPECT_TRUE(run.messages.empty());
    EXPECT_EQ(Tabra_DoesTableExist(hdbc(), TABRA_TABLE_TYPE_ALL, u"ct_made"), 0);
}

TABRA_INSTANTIATE_BACKEND_TEST(CreateTableWizardTest);

// ---- The classic database types on the test driver ----

// What the mode page showed: each button's enabled and checked state.
struct ModePageState {
    std::vector<int32_t> enabled;
    int32_t checked = 0;
    static void read(HWND page, void *context) {
        auto *state = static_cast<ModePageState *>(context);
        for (int32_t mode : {kModes.keyColumnOnly, kModes.copyStructure, kModes.defaultDefinition}) {
            if (IsWindowEnabled(GetDlgItem(page, mode))) state->enabled.push_back(mode);
            if (IsDlgButtonChecked(page, mode) == BST_CHECKED) state->checked = mode;
        }
    }
};

// The design's rows: the DBMS name, the auto-increment key column type (null: none)
// and whether SELECT ... INTO is allowed.
struct ClassicRow {
    const char *dbmsName;
    const char16_t *autoIncrement;
    bool copies;
};

class CreateTableWizardTestDriverTest : public TestDriverTest, public ::testing::WithParamInterface<ClassicRow> {};

// Each mode the page offers, on a fresh registry: the page offers exactly the modes the
// row allows and presets the key column where there is one, else the default
// definition; each mode runs exactly the design's statements. The underlying SQLite
// refuses the classic auto-increment types and SELECT INTO, which the error dialog
// shows; the default definition's table stays even when its key column fails.
TEST_P(CreateTableWizardTestDriverTest, OffersTheRowsModesAndRunsTheirStatements) {
    const ClassicRow &row = GetParam();
    std::u16string dataSource = addDataSource({{"DBMSName", row.dbmsName}});
    OdbcConnection setup(dsn::SQLite);
    executeAll(setup, {u"CREATE TABLE ct_source (a INTEGER)"});
    const std::u16string columns = resourceText(ids::kString.defaultColumns);
    const std::u16string keyColumn = row.autoIncrement ? row.autoIncrement : u"";
    struct Expected {
        int32_t mode;
        std::vector<std::u16string> statements;
    };
    std::vector<Expected> modes = {{kModes.defaultDefinition, {u"CREATE TABLE ct_new (" + columns + u")"}}};
    if (row.autoIncrement) {
        modes.front().statements.push_back(u"ALTER TABLE ct_new ADD Id " + keyColumn);
        modes.push_back({kModes.keyColumnOnly, {u"CREATE TABLE ct_new (Id " + keyColumn + u")"}});
    }
    if (row.copies) modes.push_back({kModes.copyStructure, {u"SELECT * INTO ct_new FROM ct_source WHERE 3=5"}});

    for (const Expected &expected : modes) {
        SCOPED_TRACE(expected.mode);
        ScopedRegistryRoot registry;
        executeAll(setup, {u"DROP TABLE IF EXISTS ct_new"});
        OdbcConnection connection(dataSource);
        RecordingHook hook;
        ScriptedRun script;
        ModePageState page;
        script.queueCallback(kModePageId, ModePageState::read, &page);
        bool fails = expected.mode != kModes.defaultDefinition || row.autoIncrement;
        auto lines = makeTable(expected.mode, "ct_new");
        if (fails) lines.push_back(click(core::ids::kErrorDialog.id, IDOK));
        WizardRun run = runWizard(connection.handle(), script, lines);
        EXPECT_EQ(run.result, fails ? 2 : 1);
        EXPECT_EQ(hook.statements, expected.statements);
        EXPECT_EQ(page.checked, row.autoIncrement ? kModes.keyColumnOnly : kModes.defaultDefinition);
        std::vector<int32_t> offered;
        for (const Expected &mode : modes) offered.push_back(mode.mode);
        std::sort(offered.begin(), offered.end());
        EXPECT_EQ(page.enabled, offered);
        EXPECT_EQ(Tabra_DoesTableExist(connection.handle(), TABRA_TABLE_TYPE_ALL, u"ct_new"),
                  expected.mode == kModes.defaultDefinition ? 1 : 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    ClassicRows, CreateTableWizardTestDriverTest,
    ::testing::Values(ClassicRow{"ACCESS", u"AUTOINCREMENT", true},
                      ClassicRow{"MICROSOFT SQL SERVER", u"INTEGER NOT NULL IDENTITY PRIMARY KEY", true},
                      ClassicRow{"MYSQL", u"INTEGER NOT NULL AUTO_INCREMENT PRIMARY KEY", false},
                      ClassicRow{"ORACLE8", nullptr, true}, ClassicRow{"PROGRESS", nullptr, true},
                      ClassicRow{"EXCEL", nullptr, false}, ClassicRow{"SOMEBASE", nullptr, true}),
    [](const ::testing::TestParamInfo<ClassicRow> &info) {
        std::string name;
        for (const char *c = info.param.dbmsName; *c; ++c)
            if (*c != ' ') name += *c;
        return name;
    });

// A mode the database cannot do, should it reach the statements, is refused with 1642
// before anything runs.
TEST_F(TestDriverTest, CreateTableRefusesAModeTheDatabaseCannotDo) {
    const struct {
        const char16_t *dataSource;
        int32_t mode;
    } cases[] = {{dsn::MySql, kModes.copyStructure}, {dsn::Excel, kModes.copyStructure},
                 {dsn::Progress, kModes.keyColumnOnly}};
    for (const auto &c : cases) {
        OdbcConnection connection(c.dataSource);
        RecordingHook hook;
        ScriptedRun script;
        script.queue(answer(core::ids::kMessage.notPossibleHere, "ok"));
        EXPECT_FALSE(wizards::create_table::createTable(connection.handle(),
                                                        connection::capabilities(connection.handle()), c.mode,
                                                        u"ct_new", u"ct_source"));
        EXPECT_TRUE(hook.statements.empty());
        EXPECT_EQ(script.pending(), 0);
    }
}

} // namespace
} // namespace tabra::test
