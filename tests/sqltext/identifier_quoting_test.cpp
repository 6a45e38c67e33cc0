// Identifier preparation on real quote characters, and names prepared by the library
// used in real statements on each database.
#include "support/backend_test.h"
#include "support/test_text.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace tabra::test {
namespace {

std::u16string prepare92(SQLHDBC connection, std::u16string_view name, int32_t size = 300) {
    std::u16string buffer(static_cast<size_t>(size) + 4, u'#');
    Tabra_PrepareNameForSql92(connection, std::u16string(name).c_str(), buffer.data(), size, 0);
    for (size_t i = static_cast<size_t>(size); i < buffer.size(); ++i) EXPECT_EQ(buffer[i], u'#') << "overrun";
    return std::u16string(buffer.c_str());
}

std::u16string format(SQLHDBC connection, const char16_t *fmt, const char16_t *a1, const char16_t *a2 = nullptr,
                      const char16_t *a3 = nullptr) {
    char16_t statement[1000];
    Tabra_SprintfSqlStatement(connection, statement, 1000, fmt, a1, a2, a3, nullptr, nullptr, nullptr, nullptr,
                              nullptr);
    return statement;
}

class IdentifierQuotingTest : public BackendTest {};

TEST_P(IdentifierQuotingTest, PreparesWithTheDatabasesQuoteCharacter) {
    auto connection = connect();
    SQLHDBC h = connection.handle();
    const std::u16string q = backend() == Backend::MariaDB ? u"`" : u"\"";
    const std::u16string orderDetails = q + u"Order Details" + q;
    auto wrap = [&q](std::u16string_view name) { return q + std::u16string(name) + q; };
    // A plain name stays bare where the database reads it back unchanged: PostgreSQL
    // folds unquoted names to lower case, so there a name with capitals is quoted.
    const bool folds = backend() == Backend::PostgreSQL;
    struct Case {
        std::u16string name, prepared;
    };
    const Case cases[] = {
        {u"Customers", folds ? wrap(u"Customers") : u"Customers"},
        {u"customers", u"customers"},
        {u"Name$1", folds ? wrap(u"Name$1") : u"Name$1"},
        {u"Order", wrap(u"Order")}, // reserved words, in any case
        {u"group", wrap(u"group")},
        {u"User", wrap(u"User")},
        {u"KEY", wrap(u"KEY")},
        {u"Order Details", orderDetails},
        {u"  " + orderDetails + u"  ", orderDetails}, // unquoted first, quoted once
        {u"2020Sales", q + u"2020Sales" + q},
        {u"M\u00fcller", q + u"M\u00fcller" + q},
        {u"dbo.Order Details", u"dbo." + orderDetails},
        {u"*", u"*"},
        {u"orders.*", u"orders.*"},
        {u" \t ", u""},
    };
    for (const Case &c : cases) EXPECT_EQ(prepare92(h, c.name), c.prepared) << toUtf8(c.name);

    char16_t list[200] = u"customers\tOrder Details\t\t2020Sales\tgroup";
    Tabra_PrepareNameListForSql92(h, list, 200, u'\t', u',');
    EXPECT_EQ(std::u16string(list), u"customers," + orderDetails + u",," + wrap(u"2020Sales") + u"," + wrap(u"group"));

    char16_t reserved[40] = u"Order";
    Tabra_QuoteNameIfNotPureSql(h, reserved, 40);
    EXPECT_EQ(std::u16string(reserved), wrap(u"Order"));
    char16_t quoted[40] = u"Order Details";
    Tabra_QuoteNameIfNotPureSql(h, quoted, 40);
    EXPECT_EQ(std::u16string(quoted), orderDetails);
    Tabra_QuoteNameIfNotPureSql(h, quoted, 40); // no stripping: quoted again
    EXPECT_EQ(std::u16string(quoted), q + q + u"Order Details" + q + q);

    std::u16string stripped = u" dbo . " + orderDetails + u" ";
    Tabra_StripDelimitersFromName(h, stripped.data());
    EXPECT_EQ(std::u16string(stripped.c_str()), u"dbo.Order Details");

    char16_t schema[50], table[50];
    Tabra_ParseSchemaAndTable(h, u"dbo.Orders", schema, 50, table, 50);
    const bool schemas = backend() == Backend::PostgreSQL;
    EXPECT_EQ(std::u16string(schema), schemas ? u"dbo" : u"");
    EXPECT_EQ(std::u16string(table), schemas ? u"Orders" : u"dbo.Orders");
}

TEST_P(IdentifierQuotingTest, PreparedNamesReachTheRightTables) {
    auto connection = connect();
    SQLHDBC h = connection.handle();
    std::vector<std::u16string> names = {u"Customers", u"Order Details", u"2020Sales", u"Müller Straße", u"Ωmega Table",
                                         u"Order", u"user"};
    if (backend() == Backend::MariaDB) names.push_back(u"Say \"Hi\""); // a double quote inside a back-quoted name
    for (const std::u16string &name : names) {
        executeSql(connection, format(h, u"CREATE TABLE %t (%f INTEGER, %f VARCHAR(20))", name.c_str(), u"Order Id",
                                      u"Note"));
        executeSql(connection, format(h, u"INSERT INTO %t (%f) VALUES (42)", name.c_str(), u"Order Id"));
        auto value = queryValue(connection, format(h, u"SELECT %f FROM %t", u"Order Id", name.c_str()));
        EXPECT_EQ(value, std::optional<std::u16string>(u"42")) << toUtf8(name);
    }
    // The catalog holds the names exactly as typed, on PostgreSQL too: a name that it
    // would fold is quoted.
    for (const std::u16string &name : names) {
        OdbcStatement statement(connection);
        std::u16string pattern = name;
        ASSERT_TRUE(succeeded(SQLTablesW(statement.handle(), nullptr, 0, nullptr, 0,
                                         reinterpret_cast<SQLWCHAR *>(pattern.data()), SQL_NTS, nullptr, 0)));
        auto rows = fetchRows(statement.handle());
        bool found = false;
        for (const Row &r : rows) found = found || (r.size() > 2 && r[2] == name);
        EXPECT_TRUE(found) << toUtf8(name);
    }
}

TABRA_INSTANTIATE_BACKEND_TEST(IdentifierQuotingTest);

class SchemaQualifiedNamesTest : public BackendTest {};

// (The name must not hold a server's name: ctest gives a test the lock of the server it names.)
TEST_P(SchemaQualifiedNamesTest, SchemaAndTableWhereSchemasAreKnown) {
    if (backend() != Backend::PostgreSQL) GTEST_SKIP() << "only PostgreSQL knows schemas here";
    auto connection = connect();
    SQLHDBC h = connection.handle();
    executeSql(connection, u"CREATE SCHEMA \"Lager 2\"");
    executeSql(connection, format(h, u"CREATE TABLE %t%.%t (id INTEGER)", u"Lager 2", u"Order Details"));
    executeSql(connection, format(h, u"INSERT INTO %t (id) VALUES (7)", u"Lager 2.Order Details"));
    EXPECT_EQ(prepare92(h, u"Lager 2.Order Details"), u"\"Lager 2\".\"Order Details\"");
    EXPECT_EQ(queryValue(connection, format(h, u"SELECT id FROM %t%.%t", u"Lager 2", u"Order Details")),
              std::optional<std::u16string>(u"7"));
    // An empty schema writes no separator.
    executeSql(connection, format(h, u"CREATE TABLE %t%.%t (id INTEGER)", u"", u"Plain Table"));
    EXPECT_EQ(queryValue(connection, u"SELECT COUNT(*) FROM public.\"Plain Table\""), std::optional<std::u16string>(u"0"));
}

TABRA_INSTANTIATE_SERVER_BACKEND_TEST(SchemaQualifiedNamesTest);

class IdentifierQuotingTestDriverTest : public TestDriverTest {};

TEST_F(IdentifierQuotingTestDriverTest, ADriverThatDoesNotQuoteGetsNamesAsTheyStand) {
    auto blank = connect(dsn::BlankQuote);
    EXPECT_EQ(prepare92(blank.handle(), u" Order Details "), u" Order Details ");
    EXPECT_EQ(prepare92(blank.handle(), u"a.b c"), u"a.b c");
    char16_t name[40] = u"Order Details";
    Tabra_QuoteNameIfNotPureSql(blank.handle(), name, 40); // wraps in spaces, as it stands
    EXPECT_EQ(std::u16string(name), u" Order Details ");
    char16_t statement[100];
    Tabra_SprintfSqlStatement(blank.handle(), statement, 100, u"SELECT * FROM %t", u"Order Details", nullptr, nullptr,
                              nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(std::u16string(statement), u"SELECT * FROM Order Details");
}

// What the driver says about case folding and its own reserved words decides which
// plain names stay bare.
TEST_F(IdentifierQuotingTestDriverTest, FoldingAndTheDriversKeywordsQuotePlainNames) {
    const struct {
        const char *identifierCase;
        std::u16string_view name;
        bool bare;
    } cases[] = {
        {"1", u"CUSTOMERS", true},  {"1", u"Customers", false}, {"1", u"ALPHA", false}, {"1", u"ALPHA2", true},
        {"2", u"customers", true},  {"2", u"Customers", false}, {"3", u"Customers", true}, {"3", u"beta", false},
        {"4", u"Beta_Gamma", true}, {"4", u"ORDER", false},
    };
    for (const auto &c : cases) {
        auto connection = connect(addDataSource({{"IdentifierCase", c.identifierCase}, {"Keywords", "ALPHA,Beta"}}));
        const std::u16string name(c.name);
        EXPECT_EQ(prepare92(connection.handle(), name), c.bare ? name : u"\"" + name + u"\"")
            << c.identifierCase << " " << toUtf8(name);
    }
}

TEST_F(IdentifierQuotingTestDriverTest, BackQuotesWorkOnTheSQLiteFile) {
    auto mysql = connect(dsn::MySql);
    EXPECT_EQ(prepare92(mysql.handle(), u"Order Details"), u"`Order Details`");
    EXPECT_EQ(prepare92(mysql.handle(), u"`Order Details`"), u"`Order Details`");
    executeSql(mysql, format(mysql.handle(), u"CREATE TABLE %t (%f INTEGER)", u"Order Details", u"Unit Price"));
    executeSql(mysql, format(mysql.handle(), u"INSERT INTO %t VALUES (5)", u"Order Details"));
    EXPECT_EQ(queryValue(mysql, format(mysql.handle(), u"SELECT %f FROM %t", u"Unit Price", u"Order Details")),
              std::optional<std::u16string>(u"5"));
}

TEST_F(IdentifierQuotingTestDriverTest, SmallBuffersAreCutButNeverOverrun) {
    auto connection = connect(dsn::TestDriver);
    SQLHDBC h = connection.handle();
    EXPECT_EQ(prepare92(h, u"Customers", 1), u"");
    EXPECT_EQ(prepare92(h, u"Customers", 2), u"");          // the part does not fit and is left out
    EXPECT_EQ(prepare92(h, u"Customers", 10), u"Customers"); // exact fit
    EXPECT_EQ(prepare92(h, u"Customers", 9), u"");
    EXPECT_EQ(prepare92(h, u"Order Details", 16), u"\"Order Details\"");
    EXPECT_EQ(prepare92(h, u"Order Details", 15), u"");
    EXPECT_EQ(prepare92(h, u"dbo.Order Details", 6), u"dbo.");  // the table part is left out
    // The "." is not counted: a later part that would pass the end is cut at it.
    EXPECT_EQ(prepare92(h, u"ab.cd", 5), u"ab.c");
    // An over-long part loses its end, not its opening quote.
    std::u16string longPart(250, u'x');
    longPart[0] = u' ';
    longPart[1] = u'y';
    std::u16string prepared = prepare92(h, u"z" + longPart);
    EXPECT_EQ(prepared.size(), 199u);
    EXPECT_EQ(prepared.substr(0, 3), u"\"z ");
    Tabra_PrepareNameForSql92(h, u"x", nullptr, 10, 0); // null destination: nothing

    // A list prepared in place, in a buffer guarded past the text and its terminator.
    for (const auto &[text, capacity, prepared] :
         {std::tuple{u"ab\tcd\tef", 9, u"ab,cd,ef"}, std::tuple{u"ab\tcd", 5, u"ab,c"}}) {
        std::u16string list = std::u16string(text) + u'\0' + u"###";
        Tabra_PrepareNameListForSql92(h, list.data(), capacity, u'\t', u',');
        EXPECT_EQ(std::u16string(list.c_str()), prepared);
        EXPECT_EQ(list.substr(list.size() - 3), u"###");
    }
}

} // namespace
} // namespace tabra::test
