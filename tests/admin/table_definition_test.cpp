// SQLite table definitions taken apart and put together with a changed key: every
// other word stays as written, whatever quotes, parentheses and comments hold.
#include "admin/table_admin/table_definition.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

using admin::table_admin::TableDefinition;

enum class Change { DropKey, AddKeyColumn, AddKeyConstraint };

struct Case {
    const char *what;
    const char16_t *statement;
    bool hasKey;
    Change change;
    bool changed;             // what the change answers
    const char16_t *expected; // the statement for the table "n" afterwards
};

const Case kCases[] = {
    {"column key with its order, conflict clause and AUTOINCREMENT",
     u"CREATE TABLE t (id INTEGER CONSTRAINT pk PRIMARY KEY DESC ON CONFLICT REPLACE AUTOINCREMENT NOT NULL, b)", true,
     Change::DropKey, true, u"CREATE TABLE n (id INTEGER NOT NULL, b)"},
    {"table constraint with its name, other constraints kept",
     u"CREATE TABLE \"My (T)\"(a INT, b TEXT, CONSTRAINT pk_t PRIMARY KEY (a, b), UNIQUE (b))", true,
     Change::DropKey, true, u"CREATE TABLE n (a INT, b TEXT, UNIQUE (b))"},
    {"key words inside quotes, strings and parentheses are no key",
     u"create table t ([primary key] TEXT DEFAULT 'PRIMARY KEY', \"x,y\" DECIMAL(10, 2) CHECK (\"x,y\" > 0), "
     u"c TEXT COLLATE NOCASE) WITHOUT ROWID",
     false, Change::DropKey, false,
     u"CREATE TABLE n ([primary key] TEXT DEFAULT 'PRIMARY KEY', \"x,y\" DECIMAL(10, 2) CHECK (\"x,y\" > 0), "
     u"c TEXT COLLATE NOCASE) WITHOUT ROWID"},
    {"a key column goes after the columns, before the constraints",
     u"CREATE TABLE t (a TEXT NOT NULL -- the name\n, b REAL, FOREIGN KEY (b) REFERENCES p (id))", false,
     Change::AddKeyColumn, true,
     u"CREATE TABLE n (a TEXT NOT NULL, b REAL, Nr INTEGER PRIMARY KEY AUTOINCREMENT, FOREIGN KEY (b) REFERENCES p (id))"},
    {"a key constraint goes last; comments inside a column stay",
     u"CREATE TABLE t (a TEXT /* code */ NOT NULL, b INTEGER DEFAULT (1 + 2))", false, Change::AddKeyConstraint, true,
     u"CREATE TABLE n (a TEXT /* code */ NOT NULL, b INTEGER DEFAULT (1 + 2), PRIMARY KEY (a, b))"},
    {"a line comment inside a column keeps its line end",
     u"CREATE TABLE t (a INTEGER -- key\n PRIMARY KEY, b)", true, Change::DropKey, true,
     u"CREATE TABLE n (a INTEGER -- key\n, b)"},
};

TEST(TableDefinition, KeysChangeAndEverythingElseStays) {
    for (const Case &c : kCases) {
        SCOPED_TRACE(c.what);
        auto definition = TableDefinition::parse(c.statement);
        ASSERT_TRUE(definition.has_value());
        EXPECT_EQ(definition->hasPrimaryKey(), c.hasKey);
        bool changed = true;
        switch (c.change) {
        case Change::DropKey: changed = definition->dropPrimaryKey(); break;
        case Change::AddKeyColumn: definition->addColumn(u"Nr INTEGER PRIMARY KEY AUTOINCREMENT"); break;
        case Change::AddKeyConstraint: definition->addTableConstraint(u"PRIMARY KEY (a, b)"); break;
        }
        EXPECT_EQ(changed, c.changed);
        EXPECT_EQ(toUtf8(definition->createStatement(u"n")), toUtf8(c.expected));
        EXPECT_EQ(definition->hasPrimaryKey(), c.change != Change::DropKey);
    }
}

TEST(TableDefinition, OnlyTablesWithAColumnListAreTakenApart) {
    EXPECT_TRUE(TableDefinition::parse(u"CREATE TABLE t (a) WITHOUT ROWID")->withoutRowid());
    EXPECT_FALSE(TableDefinition::parse(u"CREATE TEMP TABLE t (a)")->withoutRowid());
    for (const char16_t *text : {u"CREATE VIRTUAL TABLE v USING fts5(a)", u"CREATE VIEW v AS SELECT (1)",
                                 u"CREATE TABLE t (a, b", u"CREATE TABLE t (a, , b)", u""})
        EXPECT_FALSE(TableDefinition::parse(text).has_value()) << toUtf8(text);
}

} // namespace
} // namespace tabra::test
