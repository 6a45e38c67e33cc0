// Table lists and existence tests on the real databases: type flags, the bookkeeping
// filter, views, schema qualification, capacity cuts, long and empty catalogs.
#include "catalog_test_support.h"

#include "ostrel.h"
#include "tabra_window.h"

namespace tabra::test {
namespace {

class TableListTest : public ConnectedBackendTest {
protected:
    // Creates tables (and a view) whose names keep their case on every backend.
    void createSample() {
        const OdbcConnection &connection = *connection_;
        for (const char16_t *name : {u"Alpha", u"Beta", u"USysRelations", u"ostrelsystable", u"usysfoo"})
            executeSql(connection, u"CREATE TABLE " + quoted(backend(), name) + u" (id INTEGER)");
        executeSql(connection, u"CREATE VIEW " + quoted(backend(), u"GammaView") + u" AS SELECT id FROM " +
                                   quoted(backend(), u"Alpha"));
    }
};

// Which of the sample's names each type selection lists: the bookkeeping tables
// (USys..., case-sensitive prefix; OstrelSysTable in any case) only with system tables.
TEST_P(TableListTest, TypeFlagsSelectAndTheBookkeepingTablesHideUnlessSystemTablesAreAsked) {
    createSample();
    ScriptedRun run;
    struct Case {
        int32_t flags;
        std::vector<std::u16string> listed, hidden;
    };
    const Case cases[] = {
        {TABRA_TABLE_TYPE_TABLE, {u"Alpha", u"Beta", u"usysfoo"}, {u"USysRelations", u"ostrelsystable", u"GammaView"}},
        {TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_SYSTEM_TABLE,
         {u"Alpha", u"Beta", u"USysRelations", u"ostrelsystable", u"usysfoo"},
         {u"GammaView"}},
        {TABRA_TABLE_TYPE_VIEW, {u"GammaView"}, {u"Alpha"}},
        {TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW, {u"GammaView", u"Alpha"}, {u"USysRelations"}},
        {TABRA_TABLE_TYPE_ALL, {u"GammaView", u"Beta"}, {u"USysRelations"}},
    };
    for (const Case &c : cases) {
        auto tables = readTables(hdbc(), c.flags);
        EXPECT_EQ(tables.result, 0);
        for (const auto &name : c.listed) EXPECT_TRUE(contains(tables.items, name)) << c.flags << ": " << toUtf8(name);
        for (const auto &name : c.hidden) EXPECT_FALSE(contains(tables.items, name)) << c.flags << ": " << toUtf8(name);
    }
    // System tables alone, where the database has them.
    auto system = readTables(hdbc(), TABRA_TABLE_TYPE_SYSTEM_TABLE);
    EXPECT_EQ(system.result, 0);
    if (backend() == Backend::PostgreSQL) {
        EXPECT_FALSE(contains(system.items, u"Alpha")); // the catalog's own tables
        EXPECT_TRUE(contains(system.items, u"pg_class")) << toUtf8(system.text.substr(0, 300));
    }
    expectNothingShown(run);
}

// The default separator is a comma between entries only; a cut ends at the last whole
// entry.
TEST_P(TableListTest, SeparatorsAndCapacityCuts) {
    for (const char16_t *name : {u"a1", u"b1", u"c1"}) executeSql(*connection_, u"CREATE TABLE " + std::u16string(name) + u" (id INTEGER)");
    ScriptedRun run;
    char16_t buffer[2000];
    ASSERT_EQ(Tabra_GetTables(hdbc(), TABRA_TABLE_TYPE_TABLE, buffer, 2000, nullptr), 0);
    std::u16string text = buffer;
    // Other backends may list tables of their own; ours stand together, in catalog order.
    EXPECT_NE(text.find(u"a1,b1,c1"), std::u16string::npos) << toUtf8(text);
    EXPECT_NE(text.front(), u',');
    EXPECT_NE(text.back(), u',');
    ASSERT_EQ(Tabra_GetTables(hdbc(), TABRA_TABLE_TYPE_TABLE, buffer, 2000, u" | "), 0);
    EXPECT_NE(std::u16string(buffer).find(u"a1 | b1 | c1"), std::u16string::npos);
    buffer[0] = u'#';
    EXPECT_EQ(Tabra_GetTables(hdbc(), TABRA_TABLE_TYPE_TABLE, buffer, 1, u"\t"), 0);
    EXPECT_EQ(buffer[0], u'\0');

    auto full = readTables(hdbc(), TABRA_TABLE_TYPE_TABLE);
    ASSERT_GE(full.items.size(), 3u);
    // Room for the first entry and its separator only: later entries do not start.
    int32_t capacity = static_cast<int32_t>(full.items[0].size() + full.items[1].size()) + 1;
    auto cut = readTables(hdbc(), TABRA_TABLE_TYPE_TABLE, nullptr, 0, capacity);
    EXPECT_EQ(cut.result, 0);
    EXPECT_LT(static_cast<int32_t>(cut.text.size()), capacity);
    ASSERT_EQ(cut.items.size(), 1u) << toUtf8(cut.text);
    EXPECT_EQ(cut.items[0], full.items[0]);
    expectNothingShown(run);
}

TEST_P(TableListTest, AnEmptyCatalogGivesAnEmptyListAndNothingExists) {
    ScriptedRun run;
    auto tables = readTables(hdbc(), TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_VIEW);
    EXPECT_EQ(tables.result, 0);
    for (const auto &name : tables.items) // a server may list tables of its own, never ours
        EXPECT_EQ(name.find(u"Alpha"), std::u16string::npos);
    EXPECT_EQ(Tabra_DoesTableExist(hdbc(), TABRA_TABLE_TYPE_ALL, u"Alpha"), 0);
    EXPECT_EQ(OdbcEh_DoesTableExist(0, hdbc(), TABRA_TABLE_TYPE_ALL, nullptr, u"Alpha", 0), 0);
    expectNothingShown(run);
}

TEST_P(TableListTest, ExistenceIgnoresCaseAndHonoursTheTypes) {
    createSample();
    ScriptedRun run;
    struct Case {
        int32_t flags;
        const char16_t *schema, *name;
        int32_t inList, inCatalog; // Tabra_DoesTableExist, OdbcEh_DoesTableExist
    };
    const Case cases[] = {
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"alpha", 1, 1},
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"ALPHA", 1, 1},
        {TABRA_TABLE_TYPE_TABLE, u"   ", u"beta", 1, 1}, // a blank schema is none
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"GammaView", 0, 0},
        {TABRA_TABLE_TYPE_VIEW, nullptr, u"gammaview", 1, 1},
        {TABRA_TABLE_TYPE_ALL, nullptr, u"GammaView", 1, 1},
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"USysRelations", 0, 1}, // only the list hides it
        {TABRA_TABLE_TYPE_TABLE | TABRA_TABLE_TYPE_SYSTEM_TABLE, nullptr, u"USysRelations", 1, 1},
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"Alph", 0, 0},
        {TABRA_TABLE_TYPE_TABLE, nullptr, u"", 0, 0},
        {TABRA_TABLE_TYPE_TABLE, nullptr, nullptr, 0, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(toUtf8(c.name ? c.name : u"(null)"));
        if (c.schema == nullptr) {
            EXPECT_EQ(Tabra_DoesTableExist(hdbc(), c.flags, c.name), c.inList);
        }
        EXPECT_EQ(OdbcEh_DoesTableExist(7, hdbc(), c.flags, c.schema, c.name, 0), c.inCatalog);
    }
    expectNothingShown(run);
}

TEST_P(TableListTest, TheLeanListHasNoFilterAndBareNames) {
    createSample();
    ScriptedRun run;
    char16_t buffer[30000];
    ASSERT_EQ(OdbcEh_GetTablesExtended(0, hdbc(), TABRA_TABLE_TYPE_TABLE, nullptr, 0, buffer, 30000,
                                       u"\t"),
              0);
    auto items = splitList(buffer);
    for (const char16_t *name : {u"Alpha", u"Beta", u"USysRelations", u"ostrelsystable", u"usysfoo"})
        EXPECT_TRUE(contains(items, name)) << toUtf8(name);
    buffer[0] = u'#';
    EXPECT_EQ(OdbcEh_GetTablesExtended(0, hdbc(), TABRA_TABLE_TYPE_TABLE, nullptr, 0, buffer, 1, u"\t"), 0);
    EXPECT_EQ(buffer[0], u'\0');
    ASSERT_EQ(OdbcEh_GetTablesExtended(0, hdbc(), TABRA_TABLE_TYPE_VIEW, nullptr, 0, buffer, 30000,
                                       nullptr),
              0);
    EXPECT_NE(std::u16string(buffer).find(u"GammaView"), std::u16string::npos);
    expectNothingShown(run);
}

TEST_P(TableListTest, BoxFillersReplaceTheEntriesWithTheList) {
    createSample();
    ScriptedRun run;
    TestListBox list;
    HWND box = list.handle();
    ASSERT_NE(box, nullptr);
    Ostrel_AddBoxEntry(box, u"stale entry", 0, -1, 0);
    EXPECT_EQ(Tabra_FillTablesBox(hdbc(), TABRA_TABLE_TYPE_TABLE, box), 0);
    auto entries = list.entries();
    EXPECT_FALSE(contains(entries, u"stale entry"));
    EXPECT_TRUE(contains(entries, u"Alpha"));
    EXPECT_TRUE(contains(entries, u"Beta"));
    EXPECT_FALSE(contains(entries, u"USysRelations"));
    // Qualify flag 2 fills sorted (ignoring case).
    executeSql(*connection_, u"CREATE TABLE aardvark (id INTEGER)");
    EXPECT_EQ(Tabra_FillTablesBoxExtended(hdbc(), TABRA_TABLE_TYPE_TABLE, nullptr, TABRA_QUALIFY_SORTED, box), 0);
    auto sorted = list.entries();
    auto position = [&](std::u16string_view name) { return std::find(sorted.begin(), sorted.end(), name) - sorted.begin(); };
    EXPECT_LT(position(u"aardvark"), position(u"Alpha"));
    EXPECT_LT(position(u"Alpha"), position(u"Beta"));
    EXPECT_EQ(Tabra_FillTablesBox(nullptr, TABRA_TABLE_TYPE_TABLE, box), -1);
    EXPECT_EQ(list.entries(), sorted); // a list that could not be read leaves the box alone
    expectNothingShown(run);
}

// A catalog of several thousand tables: the list for the existence test is cut at
// 10000 characters, so a late table counts as absent there, while the row-by-row test
// still finds it.
TEST_P(TableListTest, LongCatalogListsAreCutAtTheirCapacity) {
    if (backend() == Backend::MariaDB) GTEST_SKIP() << "the long catalog is built on SQLite and PostgreSQL";
    const OdbcConnection &connection = *connection_;
    constexpr int kTables = 2500;
    if (backend() == Backend::PostgreSQL) {
        executeSql(connection, u"DO $$ BEGIN FOR i IN 1..2500 LOOP EXECUTE format('CREATE TABLE long_catalog_table_%s "
                               u"(id integer)', lpad(i::text, 5, '0')); END LOOP; END $$");
    } else {
        executeSql(connection, u"BEGIN");
        for (int i = 1; i <= kTables; ++i) {
            std::string digits = std::to_string(100000 + i).substr(1);
            executeSql(connection, u"CREATE TABLE long_catalog_table_" + toUtf16(digits) + u" (id INTEGER)");
        }
        executeSql(connection, u"COMMIT");
    }
    ScriptedRun run;
    auto list = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, 0, 10000);
    EXPECT_EQ(list.result, 0);
    EXPECT_LT(list.text.size(), 10000u);
    EXPECT_GT(list.text.size(), 10000u - 40u); // cut near the end, at an entry boundary
    ASSERT_GT(list.items.size(), 300u);
    ASSERT_LT(list.items.size(), static_cast<size_t>(kTables));
    for (const auto &item : list.items) EXPECT_EQ(item.size(), 24u) << toUtf8(item);

    // Catalog order is by name on both databases.
    EXPECT_EQ(Tabra_DoesTableExist(connection.handle(), TABRA_TABLE_TYPE_TABLE, u"long_catalog_table_00001"), 1);
    EXPECT_EQ(Tabra_DoesTableExist(connection.handle(), TABRA_TABLE_TYPE_TABLE, u"long_catalog_table_02500"), 0);
    EXPECT_EQ(OdbcEh_DoesTableExist(0, connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr,
                                    u"long_catalog_table_02500", 0),
              1);
    expectNothingShown(run);
}

// PostgreSQL knows schemas: qualified entries, the schema argument, and the
// qualified existence test.
TEST_P(TableListTest, EntriesAreQualifiedWhereTheDriverKnowsSchemas) {
    const OdbcConnection &connection = *connection_;
    executeAll(connection, {u"CREATE TABLE plain_table (id INTEGER)"});
    bool schemas = backend() == Backend::PostgreSQL;
    if (schemas)
        executeAll(connection, {u"CREATE SCHEMA IF NOT EXISTS tabra_other", u"DROP TABLE IF EXISTS tabra_other.other_table",
                                u"CREATE TABLE tabra_other.other_table (id INTEGER)"});
    ScriptedRun run;
    auto qualified = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, TABRA_QUALIFY_SCHEMA);
    auto bare = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, 0);
    EXPECT_TRUE(contains(bare.items, u"plain_table"));
    if (schemas) {
        EXPECT_TRUE(contains(qualified.items, u"public.plain_table")) << toUtf8(qualified.text);
        EXPECT_TRUE(contains(qualified.items, u"tabra_other.other_table"));
        EXPECT_TRUE(contains(bare.items, u"other_table"));
        auto limited = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, u"tabra_other", TABRA_QUALIFY_SCHEMA);
        EXPECT_EQ(limited.items, std::vector<std::u16string>{u"tabra_other.other_table"});
        auto blankSchema = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, u"   ", 0);
        EXPECT_TRUE(contains(blankSchema.items, u"other_table")); // "   " is no schema
        EXPECT_EQ(Tabra_DoesTableExistExtended(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr,
                                               u"TABRA_OTHER.Other_Table"),
                  1);
        EXPECT_EQ(Tabra_DoesTableExistExtended(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, u"other_table"), 0);
        EXPECT_EQ(OdbcEh_DoesTableExist(0, connection.handle(), TABRA_TABLE_TYPE_TABLE, u"public", u"other_table", 0), 0);
        EXPECT_EQ(OdbcEh_DoesTableExist(0, connection.handle(), TABRA_TABLE_TYPE_TABLE, u"tabra_other", u"other_table", 0), 1);
        executeSql(connection, u"DROP SCHEMA tabra_other CASCADE");
    } else {
        EXPECT_TRUE(contains(qualified.items, u"plain_table")); // no schema usage: bare names
        EXPECT_EQ(Tabra_DoesTableExistExtended(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, u"plain_table"), 1);
    }
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(TableListTest);

} // namespace
} // namespace tabra::test
