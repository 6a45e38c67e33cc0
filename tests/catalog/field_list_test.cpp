// Field lists, counts, existence and column names on the real databases.
#include "catalog_test_support.h"

#include "ostrel.h"

namespace tabra::test {
namespace {

class FieldListTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        executeAll(connection, {u"CREATE TABLE fa (id INTEGER, name VARCHAR(40) NOT NULL)",
                                u"CREATE TABLE fb (id INTEGER NOT NULL, price INTEGER, " + quoted(backend(), u"unit price") +
                                    u" INTEGER)"});
    }
    std::u16string fields(SQLHDBC connection, const char16_t *tables, int32_t flags, const char16_t *separator = u",",
                          int32_t capacity = 1000) {
        std::u16string buffer(static_cast<size_t>(capacity), u'#');
        EXPECT_EQ(Tabra_GetFields(connection, tables, flags, separator, buffer.data(), capacity), 1);
        return buffer.c_str();
    }
    // The ODBC type code of VARCHAR as each driver reports it.
    std::u16string varcharCode() const { return backend() == Backend::SQLite ? u"12" : u"-9"; }
    std::u16string q(std::u16string_view name) const { return quoted(backend(), name); }
};

TEST_P(FieldListTest, NamesComeInCatalogOrderShapedByTheFlags) {
    ScriptedRun run;
    const std::u16string unitPrice = q(u"unit price");
    struct Case {
        const char16_t *tables;
        int32_t flags;
        const char16_t *separator;
        std::u16string expected;
    };
    const Case cases[] = {
        {u"fa", 0, u",", u"id,name"},
        {u"fa", 0, nullptr, u"id\tname"}, // default separator: tab
        {u"fa", TABRA_FIELDS_WITH_TYPE, u"\t", u"id\t4\tname\t" + varcharCode()},
        {u"fa\tfb", 0, u",", u"id,name,id,price,unit price"},
        {u"fa\tfb", TABRA_FIELDS_QUALIFY, u",", u"fa.id,fa.name,fb.id,fb.price,fb.unit price"},
        {u"fa\tfb", TABRA_FIELDS_QUALIFY_SHARED, u",", u"fa.id,name,fb.id,price,unit price"},
        {u"fa\tfb", TABRA_FIELDS_NOT_NULL_ONLY, u",", u"name,id"},
        {u"fb", TABRA_FIELDS_QUOTE, u",", u"id,price," + unitPrice},
        {u"fb", TABRA_FIELDS_QUOTE_ALSO, u",", u"id,price," + unitPrice}, // implies quoting
        {u"fa\tfb", TABRA_FIELDS_QUALIFY_SHARED | TABRA_FIELDS_QUOTE, u",", u"fa.id,name,fb.id,price," + unitPrice},
        {u"fb", TABRA_FIELDS_QUALIFY | TABRA_FIELDS_QUOTE, u",", u"fb.id,fb.price,fb." + unitPrice},
    };
    for (const Case &c : cases) EXPECT_EQ(fields(hdbc(), c.tables, c.flags, c.separator), c.expected) << c.flags;
    expectNothingShown(run);
}

TEST_P(FieldListTest, CapacitySkipsALongNameAndStillWritesALaterShortOne) {
    executeSql(*connection_, u"CREATE TABLE fc (a_rather_long_column_name_here INTEGER, b INTEGER, c INTEGER)");
    ScriptedRun run;
    // The bound counts the separator twice and the type text ("4") even without flag 2:
    // "b" needs more than 2 + 1 + 1 characters left.
    EXPECT_EQ(fields(hdbc(), u"fc", 0, u",", 5), u"b");
    EXPECT_EQ(fields(hdbc(), u"fc", 0, u",", 4), u"");
    // After "b", "c" needs more than 4 left again.
    EXPECT_EQ(fields(hdbc(), u"fc", 0, u",", 6), u"b,c");
    char16_t one[1] = {u'#'};
    EXPECT_EQ(Tabra_GetFields(hdbc(), u"fc", 0, u",", one, 1), 1);
    EXPECT_EQ(one[0], u'\0');
    expectNothingShown(run);
}

TEST_P(FieldListTest, EmptyListsMissingTablesAndBadBuffers) {
    ScriptedRun run;
    EXPECT_EQ(fields(hdbc(), u"", 0), u"");
    EXPECT_EQ(fields(hdbc(), nullptr, 0), u"");
    EXPECT_EQ(fields(hdbc(), u"no_such_table", 0), u"");
    EXPECT_EQ(fields(hdbc(), u"no_such_table\tfa", 0), u"id,name");
    EXPECT_EQ(Tabra_GetFields(hdbc(), u"fa", 0, u",", nullptr, 100), 2);
    char16_t buffer[10];
    EXPECT_EQ(Tabra_GetFields(hdbc(), u"fa", 0, u",", buffer, 0), 2);
    expectNothingShown(run);
}

TEST_P(FieldListTest, CountsAndExistence) {
    ScriptedRun run;
    EXPECT_EQ(Tabra_GetFieldCount(hdbc(), u"fb"), 3);
    EXPECT_EQ(Tabra_GetFieldCount(hdbc(), u"no_such_table"), 0);
    struct Case {
        const char16_t *table, *schema, *column;
        int32_t expected;
    };
    const Case cases[] = {
        {u"fb", nullptr, u"PRICE", 1},   {u"fb", nullptr, u"Unit Price", 1}, {u"fb", nullptr, u"name", 0},
        {u"no_such_table", nullptr, u"id", 0}, {u"fa", nullptr, u"NAME", 1}, {u"fa", u"  ", u"price", 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(toUtf8(c.column));
        if (c.schema == nullptr) {
            EXPECT_EQ(Tabra_DoesFieldExist(hdbc(), c.table, c.column), c.expected);
        }
        EXPECT_EQ(OdbcEh_DoesColumnExist(0, hdbc(), c.table, c.schema, c.column), c.expected);
    }
    expectNothingShown(run);
}

TEST_P(FieldListTest, ColumnNamesWithToleratedStates) {
    ScriptedRun run;
    char16_t buffer[200];
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc(), u"fb", nullptr, 0, u";", u"42S02", buffer, 200), 1);
    EXPECT_EQ(std::u16string(buffer), u"id;price;unit price");
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc(), u"fa", nullptr, 0, nullptr, nullptr, buffer, 200), 1);
    EXPECT_EQ(std::u16string(buffer), u"id\tname");
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc(), u"fb", nullptr, 0, u";", nullptr, buffer, 8), 1);
    EXPECT_EQ(std::u16string(buffer), u"id;pric"); // bounded appends cut silently
    expectNothingShown(run);
}

TEST_P(FieldListTest, ResultColumnNamesOfAPreparedStatement) {
    ScriptedRun run;
    OdbcStatement statement(*connection_);
    std::u16string sql = u"SELECT id, name, id AS again FROM fa";
    ASSERT_TRUE(succeeded(SQLPrepareW(statement.handle(), reinterpret_cast<SQLWCHAR *>(sql.data()), SQL_NTS)));
    char16_t buffer[100];
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(statement.handle(), 0, buffer, 100), 1);
    EXPECT_EQ(std::u16string(buffer), u"id\tname\tagain");
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(statement.handle(), u'|', buffer, 100), 1);
    EXPECT_EQ(std::u16string(buffer), u"id|name|again");
    // "name" needs its length + 2 below what is left: stop before it.
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(statement.handle(), u'|', buffer, 7), 1);
    EXPECT_EQ(std::u16string(buffer), u"id");
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(statement.handle(), u'|', nullptr, 7), 2);
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(nullptr, u'|', buffer, 7), 2);
    expectNothingShown(run);
}

TEST_P(FieldListTest, BoxesAreFilledOrAddedTo) {
    ScriptedRun run;
    TestListBox list;
    Ostrel_AddBoxEntry(list.handle(), u"kept", 0, -1, 0);
    Tabra_FillFieldsBox(hdbc(), u"fa\tfb", list.handle(), TABRA_FIELDS_QUALIFY_SHARED);
    EXPECT_EQ(list.entries(), (std::vector<std::u16string>{u"fa.id", u"name", u"fb.id", u"price", u"unit price"}));
    Tabra_FillFieldsBox(hdbc(), nullptr, list.handle(), 0);
    EXPECT_TRUE(list.entries().empty());

    Ostrel_AddBoxEntry(list.handle(), u"kept", 0, -1, 0);
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc(), nullptr, u"fa", list.handle(), 0), 1);
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc(), u" ", u"fa", list.handle(), TABRA_FIELDS_WITH_SCHEMA), 1);
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc(), nullptr, u"  ", list.handle(), 0), 1);
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc(), nullptr, u"fa", nullptr, 0), 1);
    std::vector<std::u16string> expected{u"kept", u"id", u"name", u"id", u"name"};
    EXPECT_EQ(list.entries(), expected);
    expectNothingShown(run);

    // A given schema goes to the catalog call, and each driver treats it its own way:
    // SQLite's ignores it and lists the table (only its NOT NULL column here), PostgreSQL
    // has no schema "sch" and lists nothing, MariaDB's refuses schemas outright (S1C00),
    // which is shown and fails.
    bool refused = backend() == Backend::MariaDB;
    if (refused) run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc(), u"sch", u"fb", list.handle(),
                                    TABRA_FIELDS_QUALIFY | TABRA_FIELDS_WITH_SCHEMA | TABRA_FIELDS_NOT_NULL_ONLY),
              refused ? 2 : 1);
    if (backend() == Backend::SQLite) expected.emplace_back(u"sch.fb.id");
    EXPECT_EQ(list.entries(), expected);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(errorDialogsShown(run), refused ? 1u : 0u);
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
}

TABRA_INSTANTIATE_BACKEND_TEST(FieldListTest);

} // namespace
} // namespace tabra::test
