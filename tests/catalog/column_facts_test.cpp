// Column attributes from prepared statements, auto-increment columns and primary keys
// on the real databases.
#include "catalog_test_support.h"

#include <tuple>

namespace tabra::test {
namespace {

class ColumnFactsTest : public ConnectedBackendTest {
protected:
    // The length asked is the transfer length in bytes of the driver's own C type for
    // the column: one byte per character from the ANSI SQLite driver, UTF-16 from
    // PostgreSQL's Unicode driver, four bytes per character (utf8mb4) from MariaDB's.
    int32_t textLength(int32_t characters) const {
        switch (backend()) {
        case Backend::SQLite: return characters;
        case Backend::PostgreSQL: return characters * 2;
        case Backend::MariaDB: return characters * 4;
        }
        return -1;
    }
    // SQLite's driver describes a DECIMAL(10,2) result column as VARCHAR; the servers
    // describe it as a number.
    int32_t decimalDataType() const { return backend() == Backend::SQLite ? TdtVarText : TdtNumber; }
    // PostgreSQL's driver prepares without asking the server, so a missing name shows
    // only when the description is asked, where the failure is quiet; the others fail
    // the prepare, which is shown.
    bool prepareFindsMissingNames() const { return backend() != Backend::PostgreSQL; }

    void prepare(const OdbcConnection &connection) override {
        std::u16string id;
        switch (backend()) {
        case Backend::SQLite: id = u"id INTEGER PRIMARY KEY AUTOINCREMENT"; break;
        case Backend::PostgreSQL: id = u"id SERIAL PRIMARY KEY"; break;
        case Backend::MariaDB: id = u"id INTEGER AUTO_INCREMENT PRIMARY KEY"; break;
        }
        executeAll(connection, {u"CREATE TABLE items (" + id + u", name VARCHAR(40) NOT NULL, price DECIMAL(10,2), " +
                                    quoted(backend(), u"unit note") + u" VARCHAR(10))",
                                u"CREATE TABLE pairs (" + quoted(backend(), u"part two") +
                                    u" INTEGER NOT NULL, part_one INTEGER NOT NULL, label VARCHAR(5), PRIMARY KEY (part_one, " +
                                    quoted(backend(), u"part two") + u"))",
                                u"CREATE TABLE keyless (a INTEGER)"});
    }
};

TEST_P(ColumnFactsTest, TypesAndLengthsComeFromTheStatementDescription) {
    ScriptedRun run;
    EXPECT_EQ(Tabra_SqlDataTypeToTabraDataType(Tabra_GetColumnDataType(hdbc(), u"items", u"id")), TdtInteger);
    EXPECT_EQ(Tabra_SqlDataTypeToTabraDataType(Tabra_GetColumnDataType(hdbc(), u"items", u"name")), TdtVarText);
    EXPECT_EQ(Tabra_SqlDataTypeToTabraDataType(Tabra_GetColumnDataType(hdbc(), u"items", u"price")), decimalDataType());
    EXPECT_EQ(Tabra_GetColumnLength(hdbc(), u"items", u"name"), textLength(40));
    EXPECT_EQ(Tabra_GetColumnLength(hdbc(), u"items", u"unit note"), textLength(10)); // quoted by the formatter
    // The statement is only prepared: no rows are needed, none are read.
    executeSql(*connection_, u"INSERT INTO items (name, price) VALUES ('x', 1.5)");
    EXPECT_EQ(Tabra_GetColumnLength(hdbc(), u"items", u"name"), textLength(40));
    expectNothingShown(run);
}

TEST_P(ColumnFactsTest, PropertiesAutoIncrementAndUpdatability) {
    ScriptedRun run;
    ColumnProperties id{}, name{};
    EXPECT_EQ(Tabra_GetColumnProperties(hdbc(), u"items", u"id", &id), 1);
    EXPECT_EQ(Tabra_GetColumnProperties(hdbc(), u"items", u"name", &name), 1);
    EXPECT_EQ(Tabra_SqlDataTypeToTabraDataType(id.sqlType), TdtInteger);
    EXPECT_EQ(id.autoIncrement, 1u);
    EXPECT_EQ(name.autoIncrement, 0u);
    EXPECT_EQ(name.length, textLength(40));
    EXPECT_EQ(name.length, Tabra_GetColumnLength(hdbc(), u"items", u"name"));
    EXPECT_EQ(name.sqlType, Tabra_GetColumnDataType(hdbc(), u"items", u"name"));
    EXPECT_LE(name.nullable, 1u);
    EXPECT_LE(name.updatable, 1u);
    EXPECT_LE(name.caseSensitive, 1u);
    EXPECT_EQ(Tabra_IsColumnAutoIncrement(hdbc(), u"items", u"id"), 1);
    EXPECT_EQ(Tabra_IsColumnAutoIncrement(hdbc(), u"items", u"price"), 0);
    // MariaDB answers "unknown", which counts as updatable; PostgreSQL answers "read-only"
    // unless the column was described before the question.
    EXPECT_EQ(Tabra_IsColumnUpdateable(hdbc(), u"items", u"name"), 1);
    char16_t found[100] = u"#";
    EXPECT_EQ(Tabra_FindFirstAutoIncrementField(hdbc(), u"items", found, 100), 1);
    EXPECT_EQ(std::u16string(found), u"id");
    EXPECT_EQ(Tabra_FindFirstAutoIncrementField(hdbc(), u"keyless", found, 100), 2);
    EXPECT_EQ(found[0], u'\0');
    EXPECT_EQ(Tabra_FindFirstAutoIncrementField(hdbc(), u"no_such_table", found, 100), 2);
    expectNothingShown(run);
}

TEST_P(ColumnFactsTest, AMissingColumnIsShownAndGivesTheFailureValue) {
    size_t shown = prepareFindsMissingNames() ? 1 : 0;
    ScriptedRun run;
    for (size_t i = 0; i < 2 * shown; ++i) run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_GetColumnDataType(hdbc(), u"items", u"no_such_column"), 0);
    EXPECT_EQ(Tabra_GetColumnLength(hdbc(), u"items", u"no_such_column"), -1);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(errorDialogsShown(run), 2 * shown);

    // The record is zeroed first; where the prepare fails the result is 2, where only the
    // attribute queries fail each field stays 0 and the record counts as read.
    ScriptedRun again;
    if (shown) again.queue(click(core::ids::kErrorDialog.id, IDOK));
    ColumnProperties properties{7, 7, 7, 7, 7, 7};
    EXPECT_EQ(Tabra_GetColumnProperties(hdbc(), u"no_such_table", u"id", &properties), prepareFindsMissingNames() ? 2 : 1);
    auto fields = [](const ColumnProperties &p) {
        return std::make_tuple(p.sqlType, p.autoIncrement, p.caseSensitive, p.length, p.nullable, p.updatable);
    };
    EXPECT_EQ(fields(properties), fields(ColumnProperties{}));
    EXPECT_FALSE(again.failed()) << again.report();
    EXPECT_EQ(errorDialogsShown(again), shown);
}

TEST_P(ColumnFactsTest, PrimaryKeysInKeyOrderWithQuoting) {
    ScriptedRun run;
    // The list keeps the driver's row order: PostgreSQL's driver lists the key's own
    // order, SQLite's and MariaDB's list the key columns in the table's column order.
    const bool keyOrder = backend() == Backend::PostgreSQL;
    const std::u16string partTwo = quoted(backend(), u"part two");
    struct Case {
        const char16_t *table;
        int32_t flags;
        const char16_t *separator;
        int32_t capacity;
        std::u16string expected;
    };
    const Case cases[] = {
        {u"items", 0, nullptr, 200, u"id"},
        {u"pairs", 0, u",", 200, keyOrder ? u"part_one,part two" : u"part two,part_one"},
        {u"pairs", TABRA_FIELDS_QUOTE, u",", 200, keyOrder ? u"part_one," + partTwo : partTwo + u",part_one"},
        {u"pairs", 0, u",", 6, keyOrder ? u"part_" : u"part "},
        {u"keyless", 0, u",", 200, u""},
        {u"  ", 0, u",", 200, u""},
    };
    for (const Case &c : cases) {
        std::u16string keys(200, u'#');
        EXPECT_EQ(Tabra_GetPrimaryKeyColumns(hdbc(), c.table, c.flags, c.separator, keys.data(), c.capacity), 1);
        EXPECT_EQ(std::u16string(keys.c_str()), c.expected) << toUtf8(c.table) << " " << c.flags;
    }

    char16_t name[100] = u"#";
    EXPECT_EQ(Tabra_GetPrimaryKeyName(hdbc(), u"pairs", 0, name, 100), 1);
    if (backend() == Backend::PostgreSQL) {
        EXPECT_EQ(std::u16string(name), u"pairs_pkey");
    }
    if (backend() == Backend::MariaDB) {
        EXPECT_EQ(std::u16string(name), u"PRIMARY");
    }
    EXPECT_EQ(Tabra_GetPrimaryKeyName(hdbc(), u"keyless", 0, name, 100), 1);
    EXPECT_EQ(std::u16string(name), u"");
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(ColumnFactsTest);

} // namespace
} // namespace tabra::test
