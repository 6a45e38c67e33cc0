// Generated WHERE and SET texts run on every backend: the rows a descriptor selects
// are the rows the user meant. Column names need quoting (blanks, mixed case).
#include "catalog/catalog_test_support.h"
#include "tabra.h"

namespace {

using namespace tabra::test;

class SelectionBackendTest : public ConnectedBackendTest {
protected:
    // id INTEGER, "Amount Due" DECIMAL, "Name" text, "Born On" DATE.
    void prepare(const OdbcConnection &connection) override {
        quote_ = infoText(connection, SQL_IDENTIFIER_QUOTE_CHAR);
        executeSql(connection, u"CREATE TABLE sel_rows (id INTEGER, " + q(u"Amount Due") + u" DECIMAL(10,2), " +
                                   q(u"Last Name") + u" VARCHAR(40), " + q(u"Born On") + u" DATE)");
        executeAll(connection, {
                                   u"INSERT INTO sel_rows VALUES (1, 10.50, 'Müller', '1980-05-01')",
                                   u"INSERT INTO sel_rows VALUES (2, 1234.50, 'Meier', '1999-12-30')",
                                   u"INSERT INTO sel_rows VALUES (3, NULL, 'Mayer', '1999-12-31')",
                                   u"INSERT INTO sel_rows VALUES (4, 0.25, NULL, NULL)",
                                   u"INSERT INTO sel_rows VALUES (5, 99, '50% off', '2024-02-29')",
                               });
    }
    std::u16string q(const std::u16string &name) const { return quote_ + name + quote_; }

    std::u16string selectedIds(const OdbcConnection &connection, const std::u16string &descriptor) {
        char16_t condition[2000];
        EXPECT_EQ(Tabra_SelDesc_To_WhereClause(connection.handle(), descriptor.c_str(), condition, 2000), 0);
        std::u16string ids;
        for (const Row &row : queryRows(connection, u"SELECT id FROM sel_rows WHERE " + std::u16string(condition) +
                                                        u" ORDER BY id"))
            ids += (ids.empty() ? u"" : u",") + row[0].value_or(u"null");
        return ids;
    }

private:
    std::u16string quote_;
};

// What each condition selects of the sample rows, run on the database.
TEST_P(SelectionBackendTest, ConditionsSelectTheRowsTheyDescribe) {
    const OdbcConnection &connection = *connection_;
    struct Case {
        const char16_t *descriptor, *ids;
    };
    const Case cases[] = {
        // Comparisons on numbers, text and dates.
        {u"Amount Due\tGT\t100\t3\n", u"2"},
        {u"Amount Due\tEQ\t1.234,5\t3\n", u"2"},
        {u"Amount Due\tLE\t0,25\t3\n", u"4"},
        {u"id\tNE\t2\t4\n", u"1,3,4,5"},
        {u"id\tLTF\tAmount Due\t4\n", u"1,2,5"},
        {u"Last Name\tEQ\tM\u00fcller\t12\n", u"1"},
        {u"Born On\tEQ\t1999-12-31\t9\n", u"3"},
        {u"Born On\tGE\t2000-01-01\t9\n", u"5"},
        {u"Born On\tLT\t1999-12-31\t9\n", u"1,2"},
        // Patterns, lists and NULLs.
        {u"Last Name\tBW\tM\t12\n", u"1,2,3"},
        {u"Last Name\tCT\tll\t12\n", u"1"},
        {u"Last Name\tBW\t50%\t12\n", u"5"},
        {u"Last Name\tCT\ta_e\t12\n", u"3"},
        {u"id\tIL\t1;3;5;\t4\n", u"1,3,5"},
        {u"Last Name\tIL\tMeier;Mayer\t12\n", u"2,3"},
        {u"Amount Due\tIN\t\t3\n", u"3"},
        {u"Last Name\tNN\t\t12\n", u"1,2,3,5"},
        {u"id\tGT\t1\t4\nLast Name\tBW\tM\t12\n\vLast Name\tIN\t\t12\n\v", u"2,3,4"},
    };
    for (const Case &c : cases) EXPECT_EQ(selectedIds(connection, c.descriptor), c.ids) << toUtf8(c.descriptor);
}

TEST_P(SelectionBackendTest, SetListUpdatesTheRows) {
    const OdbcConnection &connection = *connection_;
    char16_t assignments[1000];
    Tabra_OpDesc_To_SetClause(connection.handle(),
                              u"Last Name\tSCO\tSchmitz\t12\nAmount Due\tSFI\tid\t3\nBorn On\tSNU\t\t9\n"
                              u"id\tSFO\tid + 10\t4\n\vLast Name\tSCO\tignored\t12\n",
                              assignments, 1000);
    executeSql(connection, u"UPDATE sel_rows SET " + std::u16string(assignments) + u" WHERE id = 2");
    std::vector<Row> rows = queryRows(connection, u"SELECT id, " + q(u"Last Name") + u", " + q(u"Born On") +
                                                      u" FROM sel_rows WHERE id > 10");
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], u"12");
    EXPECT_EQ(rows[0][1], u"Schmitz");
    EXPECT_EQ(rows[0][2], std::nullopt);
    EXPECT_EQ(selectedIds(connection, u"Amount Due\tEQ\t2\t3\n"), u"12");
}

// A column named like a keyword and literals holding keywords: the condition runs as it
// is, and put into a statement through the clause functions it still selects the rows.
TEST_P(SelectionBackendTest, KeywordsInNamesAndLiteralsAndUmlauts) {
    const OdbcConnection &connection = *connection_;
    executeSql(connection, u"CREATE TABLE sel_keys (id INTEGER, from_date DATE, note VARCHAR(40))");
    executeAll(connection, {
                               u"INSERT INTO sel_keys VALUES (1, '2024-01-01', 'select x from y where z')",
                               u"INSERT INTO sel_keys VALUES (2, '2023-06-30', 'Größe ändern')",
                               u"INSERT INTO sel_keys VALUES (3, NULL, 'order by')",
                           });
    char16_t condition[1000];
    Tabra_SelDesc_To_WhereClause(connection.handle(),
                                 u"from_date\tGE\t2024-01-01\t9\n\vnote\tCT\tfrom y where\t12\n\v"
                                 u"note\tBW\tGröße\t12\n\vnote\tIL\torder by;x\t12\n",
                                 condition, 1000);
    auto ids = [&](const std::u16string &statement) {
        std::u16string found;
        for (const Row &row : queryRows(connection, statement)) found += row[0].value_or(u"null") + u";";
        return found;
    };
    EXPECT_EQ(ids(u"SELECT id FROM sel_keys WHERE " + std::u16string(condition) + u" ORDER BY id"), u"1;2;3;");
    char16_t statement[2000] = u"SELECT id FROM sel_keys ORDER BY id";
    ASSERT_EQ(Tabra_Select_Replace_WhereClause(statement, 2000, u"Note CT 'where from' OR id = 2"), 0);
    ASSERT_EQ(Tabra_Select_Replace_WhereClause(statement, 2000, condition), 0);
    EXPECT_EQ(ids(statement), u"1;2;3;") << toUtf8(statement);
}

TABRA_INSTANTIATE_BACKEND_TEST(SelectionBackendTest);

} // namespace
